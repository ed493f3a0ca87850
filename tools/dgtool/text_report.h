#pragma once

#include <ostream>
#include <vector>

#include "shell/main_window.h"

namespace dg {

/// Writes the report for reading: who and where, the recap, then the views in load order; with
/// `details` each view is followed by the windows that its rows open.
void writeTextReport(std::ostream& out, const frmTRVN& main, const std::vector<View*>& views,
                     bool details);

}  // namespace dg
