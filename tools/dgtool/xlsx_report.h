#pragma once

#include <string>

#include "tools/dgtool/report_format.h"

namespace dg {

/// Writes a workbook to the file that the argument names: the recap, then a sheet for each grid of
/// the views, with real numbers and dates. The file is replaced in one step when it is complete.
/// Raises UsageError when it cannot be written.
bool writeXlsxReport(const ReportInput& input);

/// The same workbook's bytes. Raises ExportError.
std::string reportWorkbook(const frmTRVN& main, const std::vector<View*>& views);

/// Raises UsageError when a workbook cannot be written at this path: before the work is done.
void checkWorkbookPath(const std::string& file);

}  // namespace dg
