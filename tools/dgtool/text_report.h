#pragma once

#include "tools/dgtool/report_format.h"

namespace dg {

/// Writes the report for reading: who and where, the recap, then the views in load order; with
/// `details` each view is followed by the windows that its rows open.
bool writeTextReport(const ReportInput& input);

}  // namespace dg
