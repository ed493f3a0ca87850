#pragma once

#include <string>
#include <vector>

#include "shell/main_window.h"

namespace dg {

/// Writes a workbook: the recap, then a sheet for each grid of the views, with real numbers and
/// dates. The file is replaced in one step when it is complete. Raises UsageError when it cannot be
/// written.
void writeWorkbook(const std::string& file, const frmTRVN& main, const std::vector<View*>& views);

/// Raises UsageError when a workbook cannot be written at this path: before the work is done.
void checkWorkbookPath(const std::string& file);

}  // namespace dg
