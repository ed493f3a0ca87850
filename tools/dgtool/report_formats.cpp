// The table of the ways to write a report.

#include <algorithm>

#include "tools/dgtool/csv_report.h"
#include "tools/dgtool/json_report.h"
#include "tools/dgtool/report_format.h"
#include "tools/dgtool/text_report.h"
#include "tools/dgtool/xlsx_report.h"

namespace dg {

namespace {

constexpr ReportFormat kFormats[] = {
    {.option = "",
     .argument = "",
     .description = "",
     .hasDetails = true,
     .hasMessages = false,
     .check = nullptr,
     .write = &writeTextReport},
    {.option = "--json",
     .argument = "",
     .description = "Write one JSON document",
     .hasDetails = true,
     .hasMessages = true,
     .check = nullptr,
     .write = &writeJsonReport},
    {.option = "--csv",
     .argument = "GRID",
     .description = "Write one grid as CSV; VIEW.GRID where two views have one so named",
     .hasDetails = false,
     .hasMessages = false,
     .check = nullptr,
     .write = &writeCsvReport},
    {.option = "--xlsx",
     .argument = "FILE",
     .description = "Write a workbook to this file, a sheet for each grid",
     .hasDetails = false,
     .hasMessages = false,
     .check = &checkWorkbookPath,
     .write = &writeXlsxReport},
};

}  // namespace

std::span<const ReportFormat> reportFormats() {
  return kFormats;
}

bool areComplete(const std::vector<View*>& views) {
  return std::ranges::none_of(views, [](const View* view) { return view->incomplete(); });
}

}  // namespace dg
