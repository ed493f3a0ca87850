#pragma once

#include <ostream>
#include <vector>

#include "tools/dgtool/session.h"

namespace dg {

/// Writes the whole report as one JSON document; with `details` also the windows that the rows of
/// the views open.
void writeJsonReport(std::ostream& out, const Session& session, const frmTRVN& main,
                     const std::vector<View*>& views, bool details);

}  // namespace dg
