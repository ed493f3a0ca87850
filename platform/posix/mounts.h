#pragma once

#include <istream>
#include <string>

namespace dg {

/// Whether what lies at a real path is another machine's: by the file system of the last mount
/// above it, in a list of mounts as proc(5) describes it for "mountinfo".
bool isMountedFromElsewhere(std::istream& mounts, const std::string& real);

}  // namespace dg
