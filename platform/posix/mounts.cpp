#include "platform/posix/mounts.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <sstream>
#include <string_view>

namespace dg {

namespace {

/// The kernel's names of file systems that ask another machine for their files.
constexpr std::array<std::string_view, 14> kRemoteTypes = {
    "nfs", "nfs4", "cifs", "smb3", "smbfs", "ncpfs",     "afs",
    "9p",  "ceph", "coda", "gfs2", "ocfs2", "glusterfs", "lustre"};
/// Programs that serve files: most of them by asking a server.
constexpr std::string_view kServedByProgram = "fuse.";

bool isRemoteType(std::string_view type) {
  return type.starts_with(kServedByProgram) ||
         std::ranges::find(kRemoteTypes, type) != kRemoteTypes.end();
}

/// A mount's place: blanks, tabs, line ends and backslashes in it stand as three octal digits.
std::string unescaped(const std::string& text) {
  const auto digit = [&](std::size_t at) { return at < text.size() ? text[at] - '0' : -1; };
  const auto isOctal = [&](std::size_t at) { return digit(at) >= 0 && digit(at) < 8; };
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\\' && isOctal(i + 1) && isOctal(i + 2) && isOctal(i + 3)) {
      plain += static_cast<char>(digit(i + 1) * 64 + digit(i + 2) * 8 + digit(i + 3));
      i += 3;
    } else {
      plain += text[i];
    }
  }
  return plain;
}

bool isAbove(const std::string& folder, const std::string& path) {
  if (folder == "/" || folder == path) return true;
  return path.starts_with(folder) && path[folder.size()] == '/';
}

}  // namespace

bool isMountedFromElsewhere(std::istream& mounts, const std::string& real) {
  bool isRemote = false;
  std::size_t deepest = 0;
  for (std::string line; std::getline(mounts, line);) {
    std::istringstream words(line);
    std::string word;
    std::string place;
    for (int i = 0; i < 5 && words >> place; ++i) {
    }
    while (words >> word && word != "-") {
    }
    std::string type;
    if (!(words >> type)) continue;
    place = unescaped(place);
    // A later one at the same place hides the earlier.
    if (!isAbove(place, real) || place.size() < deepest) continue;
    deepest = place.size();
    isRemote = isRemoteType(type);
  }
  return isRemote;
}

}  // namespace dg
