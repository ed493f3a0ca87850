#pragma once

#include "tools/dgtool/report_format.h"

namespace dg {

/// Writes the whole report as one JSON document; with `details` also the windows that the rows of
/// the views open.
bool writeJsonReport(const ReportInput& input);

}  // namespace dg
