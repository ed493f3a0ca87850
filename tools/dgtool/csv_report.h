#pragma once

#include "tools/dgtool/report_format.h"

namespace dg {

/// Writes one grid, all rows. The argument is "GRID", or "VIEW.GRID" where two views have a grid so
/// named; raises UsageError when there is no such grid, or more than one.
bool writeCsvReport(const ReportInput& input);

}  // namespace dg
