#include "platform/posix/native_path.h"

#include <algorithm>
#include <cstdlib>
#include <dirent.h>
#include <memory>
#include <optional>
#include <sys/stat.h>
#include <vector>

#include "platform/environment.h"
#include "platform/run_time_error.h"
#include "platform/share_path.h"
#include "platform/text.h"

namespace dg {

namespace {

bool exists(const std::string& native) {
  struct stat status = {};
  return ::lstat(native.c_str(), &status) == 0;
}

/// The directory's entry of that name without regard to case; of several the first in byte order,
/// so that the answer does not depend on the directory's own order. The program's names are bytes
/// of the code page, a directory's usually UTF-8, so either is met. The name itself when there is
/// none.
std::string entryIgnoringCase(const std::string& directory, const std::string& name) {
  struct Closer {
    void operator()(DIR* open) const { ::closedir(open); }
  };
  const std::unique_ptr<DIR, Closer> open(::opendir(directory.c_str()));
  const std::string unicodeName = utf8FromBytes(name);
  std::optional<std::string> found;
  if (open) {
    while (const dirent* entry = ::readdir(open.get())) {
      const std::string_view candidate = entry->d_name;
      if (!equalIgnoringCase(candidate, name) && !equalIgnoringCase(candidate, unicodeName)) {
        continue;
      }
      if (!found || candidate < *found) found = candidate;
    }
  }
  return found.value_or(name);
}

std::string resolveNames(const std::string& root, const std::vector<std::string>& names) {
  std::string asWritten = root;
  for (const std::string& name : names)
    asWritten += "/" + name;
  if (exists(asWritten)) return asWritten;

  std::string resolved = root;
  for (const std::string& name : names) {
    std::string next = resolved;
    next.append("/").append(name);
    if (!exists(next))
      next.replace(resolved.size() + 1, name.size(), entryIgnoringCase(resolved, name));
    resolved = std::move(next);
  }
  return resolved;
}

std::optional<std::string> realPath(const std::string& native) {
  const std::unique_ptr<char, decltype(&std::free)> real(::realpath(native.c_str(), nullptr),
                                                         &std::free);
  if (!real) return std::nullopt;
  return std::string(real.get());
}

bool liesBelow(const std::string& real, const std::optional<std::string>& folder) {
  if (!folder) return false;
  if (*folder == "/" || real == *folder) return true;
  return real.size() > folder->size() && real.compare(0, folder->size(), *folder) == 0 &&
         real[folder->size()] == '/';
}

/// The first two names below the root: the share's own folder.
std::string shareFolder(const std::string& native, const std::string& root) {
  const std::size_t server = native.find('/', root.size() + 1);
  const std::size_t share = server == std::string::npos ? server : native.find('/', server + 1);
  return native.substr(0, share);
}

}  // namespace

std::optional<std::string> nativePath(const std::string& path) {
  if (path.empty() || path.find('\0') != std::string::npos) return std::nullopt;
  if (!isSharePath(path)) {
    std::string native = path;
    std::replace(native.begin(), native.end(), '\\', '/');
    return native;
  }
  const std::string& root = environment().shareRoot;
  const std::optional<std::vector<std::string>> names = sharePathNames(path);
  if (root.empty() || root.find('\0') != std::string::npos || !names) return std::nullopt;
  return resolveNames(root, *names);
}

Location locate(const std::string& path) {
  std::optional<std::string> native = nativePath(path);
  if (!native) return {{}, kPathNotFound};
  if (!isSharePath(path)) return {std::move(*native), 0};

  // The user's own folders lead to a share, and may do so through links; what lies in the share
  // is written by others.
  const std::optional<std::string> real = realPath(*native);
  if (!real) return {std::move(*native), 0};
  const std::string& root = environment().shareRoot;
  if (!liesBelow(*real, realPath(shareFolder(*native, root))) &&
      !liesBelow(*real, realPath(root))) {
    return {{}, kPermissionDenied};
  }
  return {*real, 0};
}

}  // namespace dg
