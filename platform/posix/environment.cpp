#include "platform/environment.h"

#include <array>
#include <cstdlib>
#include <pwd.h>
#include <unistd.h>

#include "platform/file.h"
#include "platform/posix/native_path.h"
#include "platform/system_environment.h"

namespace dg {

namespace {

std::string variable(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

std::string firstSet(std::string first, std::string second) {
  return first.empty() ? std::move(second) : std::move(first);
}

std::string hostName() {
  std::array<char, 256> name = {};
  if (::gethostname(name.data(), name.size() - 1) != 0) return {};
  return name.data();
}

std::string homeFolder() {
  std::string home = variable("HOME");
  if (!home.empty()) return home;
  const passwd* user = ::getpwuid(::getuid());
  return user && user->pw_dir ? user->pw_dir : "";
}

std::string settingsFile() {
  std::string folder = variable("XDG_CONFIG_HOME");
  // A relative folder there counts as none, by that variable's own rules.
  if (folder.empty() || folder.front() != '/') {
    const std::string home = homeFolder();
    if (home.empty()) return {};
    folder = home + "/.config";
  }
  return folder + "/DealerGauge.ini";
}

}  // namespace

Environment environmentFromSystem() {
  Environment found;
  found.temp = firstSet(firstSet(variable("TEMP"), variable("TMPDIR")), "/tmp");
  found.shareRoot = variable("DG_SHARE_ROOT");
  found.computerName = firstSet(variable("COMPUTERNAME"), hostName());
  found.settingsFile = settingsFile();
  return found;
}

bool shareIsReachable(const std::string& root) {
  const bool found = fileSystem().directoryExists(root);
  if (found) noteShare(root);
  return found;
}

}  // namespace dg
