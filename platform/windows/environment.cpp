#include "platform/environment.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <windows.h>

#include "platform/file.h"
#include "platform/system_environment.h"
#include "platform/windows/share_guard.h"

namespace dg {

namespace {

/// The user's temporary directory in its long form, without a closing separator.
std::string temporaryFolder() {
  std::string path(MAX_PATH + 1, '\0');
  const DWORD length = ::GetTempPathA(static_cast<DWORD>(path.size()), path.data());
  if (length == 0 || length >= path.size()) return {};
  path.resize(length);

  std::string longForm(32768, '\0');
  const DWORD longLength =
      ::GetLongPathNameA(path.c_str(), longForm.data(), static_cast<DWORD>(longForm.size()));
  if (longLength > 0 && longLength < longForm.size()) path = longForm.substr(0, longLength);
  while (!path.empty() && path.back() == '\\')
    path.pop_back();
  return path;
}

/// The value of a variable; no value is an empty one.
std::string variable(const char* name) {
  std::string value(32768, '\0');
  const DWORD length =
      ::GetEnvironmentVariableA(name, value.data(), static_cast<DWORD>(value.size()));
  value.resize(length < value.size() ? length : 0);
  return value;
}

std::string systemComputerName() {
  std::array<char, MAX_COMPUTERNAME_LENGTH + 1> name = {};
  DWORD size = static_cast<DWORD>(name.size());
  return ::GetComputerNameA(name.data(), &size) ? std::string(name.data(), size) : std::string();
}

}  // namespace

Environment environmentFromSystem() {
  Environment found;
  found.temp = temporaryFolder();
  // The suite's programs may set it apart from the system's own folder.
  found.logFolder = variable("TEMP");
  const std::string local = variable("LOCALAPPDATA");
  if (!local.empty()) {
    found.dataFolder = local + "\\DealerGauge";
    found.desktopFile = found.dataFolder + "\\desktop.ini";
  }
  found.directory = variable("DG_DIRECTORY");
  found.computerName = systemComputerName();
  return found;
}

namespace {

bool answers(const std::string& root) {
  if (!nativePath(root)) return false;
  // The system knows nothing of a share that a folder stands in for.
  if (!environment().shareRoot.empty()) return fileSystem().directoryExists(root);
  std::array<char, 255> volume = {};
  std::array<char, 255> system = {};
  DWORD serial = 0;
  DWORD longestName = 0;
  DWORD flags = 0;
  if (::GetVolumeInformationA(root.c_str(), volume.data(), static_cast<DWORD>(volume.size()),
                              &serial, &longestName, &flags, system.data(),
                              static_cast<DWORD>(system.size()))) {
    return true;
  }
  // Some servers tell nothing of the volume behind a share that can be read all the same.
  return fileSystem().directoryExists(root);
}

}  // namespace

bool shareIsReachable(const std::string& root) {
  const bool found = answers(root);
  if (found) noteShare(root);
  return found;
}

}  // namespace dg
