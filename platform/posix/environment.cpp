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

/// The folder that a variable of the desktop's rules names, or its default below the home.
std::string userFolder(const char* name, const char* otherwise) {
  std::string folder = variable(name);
  // A relative folder there counts as none, by those rules.
  if (!folder.empty() && folder.front() == '/') return folder;
  const std::string home = homeFolder();
  return home.empty() ? home : home + otherwise;
}

std::string below(std::string folder, const char* name) {
  return folder.empty() ? folder : folder + name;
}

}  // namespace

Environment environmentFromSystem() {
  Environment found;
  found.temp = firstSet(firstSet(variable("TEMP"), variable("TMPDIR")), "/tmp");
  found.shareRoot = variable("DG_SHARE_ROOT");
  found.directory = variable("DG_DIRECTORY");
  found.computerName = firstSet(variable("COMPUTERNAME"), hostName());
  const std::string config = userFolder("XDG_CONFIG_HOME", "/.config");
  found.settingsFile = below(config, "/DealerGauge.ini");
  found.desktopFile = below(config, "/DealerGauge/desktop.ini");
  found.dataFolder = below(userFolder("XDG_DATA_HOME", "/.local/share"), "/DealerGauge");
  return found;
}

bool shareIsReachable(const std::string& root) {
  const bool found = fileSystem().directoryExists(root);
  if (found) noteShare(root);
  return found;
}

}  // namespace dg
