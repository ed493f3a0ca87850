#pragma once

#include <string>
#include <sys/types.h>

namespace dg {

/// Where a file or directory of the program's own path form stands.
struct Location {
  std::string native = {};  ///< to be used with system calls; links within a share are resolved
  int error = 0;            ///< the run-time's error number when the path is refused, else 0
  mode_t type = 0;          ///< S_IFREG, S_IFDIR, ...; 0 when it is not known yet
};

/// As nativePath, and refuses a share's link that leads out of it: neither below the share's own
/// folder nor below the share root.
Location locate(const std::string& path);

}  // namespace dg
