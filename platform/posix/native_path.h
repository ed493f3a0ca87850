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

/// Whether a load has found that a folder which is there holds no such name, in whatever case.
/// False where nothing is kept (see keepPlaces), and where the folder is not there.
bool isMissing(const std::string& native);

/// Whether a native path, there or not, lies on the share by where its folder really is: below the
/// share root, or in a share that was found to be reachable. Nothing of ours is written there.
bool liesOnShare(const std::string& native);
/// Notes the root of a share that was found to be reachable, in the program's own form.
void noteShare(const std::string& root);

}  // namespace dg
