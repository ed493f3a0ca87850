#pragma once

#include <string>

namespace dg {

/// Where a file or directory of the program's own path form stands.
struct Location {
  std::string native;  ///< to be used with system calls; links within a share are resolved
  int error = 0;       ///< the run-time's error number when the path is refused, else 0
};

/// As nativePath, and refuses a share's link that leads out of it: neither below the share's own
/// folder nor below the share root.
Location locate(const std::string& path);

}  // namespace dg
