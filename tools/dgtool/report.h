#pragma once

#include "tools/dgtool/console.h"
#include "tools/dgtool/options.h"
#include "tools/dgtool/session.h"

namespace dg {

/// `dgtool report`. Returns the exit status: 1 when a view ended in "Data Error !" or the load
/// broke off, 2 when the store could not be reached. Raises UsageError for a view, grid or column
/// that is not there.
int runReport(const ReportOptions& options, const Console& console, const ViewCatalogue& catalogue);

/// A label of the recap, or null when there is no recap.
const Label* recapLabel(const View* recap, int index);

/// Whether the view behind a recap label failed.
bool isDataError(const Label& label);

}  // namespace dg
