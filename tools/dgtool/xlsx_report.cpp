#include "tools/dgtool/xlsx_report.h"

#include "export/csv.h"
#include "export/form_sheet.h"
#include "export/workbook.h"
#include "forms/form_bands.h"
#include "platform/text.h"
#include "platform/text_file.h"
#include "shell/recap_sheet.h"
#include "shell/splash.h"
#include "tools/dgtool/console.h"
#include "tools/dgtool/left_out.h"

namespace dg {

namespace {

void writeViewSheets(Workbook& book, const View& view) {
  std::vector<const Grid*> grids;
  for (const auto& control : view.controls()) {
    if (const auto* grid = dynamic_cast<const Grid*>(control.get())) grids.push_back(grid);
  }
  std::vector<std::string> notes;
  if (std::string moment = figuresAsOf(momentOf(view)); !moment.empty())
    notes.push_back(std::move(moment));
  if (view.incomplete()) notes.emplace_back(kIncomplete);
  for (const Grid* grid : grids) {
    book.addGrid(gridTitle(view, *grid), *grid, allRows(*grid), notes, linesBelowGrid(view, *grid));
  }
}

}  // namespace

void checkWorkbookPath(const std::string& file) {
  try {
    checkExportPath(pathFromBytes(file));
  } catch (const ExportError& error) {
    throw UsageError(std::string("--xlsx: ") + error.what());
  }
}

std::string reportWorkbook(const frmTRVN& main, const std::vector<View*>& views) {
  Workbook book;
  book.setTitle(std::string(kProgramName) + " - " + std::string(trim(main.lblStoreName.caption())));
  for (const View* view : views) {
    if (view->name() == "frmRecap") addFormSheet(book, *view);
  }
  for (const View* view : views)
    writeViewSheets(book, *view);
  return book.finish();
}

bool writeXlsxReport(const ReportInput& input) {
  try {
    writeExport(pathFromBytes(input.argument), reportWorkbook(input.main, input.views));
  } catch (const ExportError& error) {
    throw UsageError(error.what());
  }
  return areComplete(input.views);
}

}  // namespace dg
