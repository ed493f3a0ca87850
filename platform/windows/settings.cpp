#include <windows.h>

#include "platform/system_settings.h"
#include "platform/values/run_time_error.h"
#include "platform/windows/system_error.h"

namespace dg {

namespace {

/// Where the run-time keeps every program's settings for a user, by application and section.
std::string registryPath(const std::string& application, const std::string& section) {
  return "Software\\VB and VBA Program Settings\\" + application + "\\" + section;
}

/// Owns an open registry key.
class RegistryKey {
 public:
  RegistryKey() = default;
  ~RegistryKey() {
    if (key_) ::RegCloseKey(key_);
  }
  RegistryKey(const RegistryKey&) = delete;
  RegistryKey& operator=(const RegistryKey&) = delete;

  HKEY get() const { return key_; }
  HKEY* receive() { return &key_; }

 private:
  HKEY key_ = nullptr;
};

}  // namespace

std::optional<std::string> storedSetting(const std::string& application, const std::string& section,
                                         const std::string& key) {
  const std::string path = registryPath(application, section);
  // A value that grows between the two questions is asked for again.
  for (int attempt = 0; attempt < 3; ++attempt) {
    DWORD size = 0;
    if (::RegGetValueA(HKEY_CURRENT_USER, path.c_str(), key.c_str(), RRF_RT_REG_SZ, nullptr,
                       nullptr, &size) != ERROR_SUCCESS) {
      return std::nullopt;
    }
    std::string value(size, '\0');
    const LSTATUS status = ::RegGetValueA(HKEY_CURRENT_USER, path.c_str(), key.c_str(),
                                          RRF_RT_REG_SZ, nullptr, value.data(), &size);
    if (status == ERROR_MORE_DATA) continue;
    if (status != ERROR_SUCCESS) return std::nullopt;
    return std::string(value.c_str());
  }
  return std::nullopt;
}

void storeSetting(const std::string& application, const std::string& section,
                  const std::string& key, const std::string& value) {
  if (value.find('\0') != std::string::npos) throw RunTimeError(kInvalidProcedureCall);
  RegistryKey opened;
  if (::RegCreateKeyExA(HKEY_CURRENT_USER, registryPath(application, section).c_str(), 0, nullptr,
                        REG_OPTION_NON_VOLATILE, KEY_SET_VALUE, nullptr, opened.receive(),
                        nullptr) != ERROR_SUCCESS) {
    throw RunTimeError(kPermissionDenied);
  }
  if (::RegSetValueExA(opened.get(), key.c_str(), 0, REG_SZ,
                       reinterpret_cast<const BYTE*>(value.c_str()),
                       static_cast<DWORD>(value.size() + 1)) != ERROR_SUCCESS) {
    throw RunTimeError(kPermissionDenied);
  }
}

void makeFoldersOf(const std::string& nativeFile) {
  constexpr const char* kSeparators = "\\/";
  const std::size_t last = nativeFile.find_last_of(kSeparators);
  if (last == std::string::npos) return;
  const DWORD attributes = ::GetFileAttributesA(nativeFile.substr(0, last).c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES) return;

  // The drive or the share at the path's head is there or cannot be made.
  const bool onDrive = nativeFile.size() > 2 && nativeFile[1] == ':';
  std::size_t end = onDrive ? 2 : 0;
  while ((end = nativeFile.find_first_of(kSeparators, end + 1)) != std::string::npos) {
    const std::string folder = nativeFile.substr(0, end);
    if (::CreateDirectoryA(folder.c_str(), nullptr)) continue;
    const DWORD error = ::GetLastError();
    if (end != last || error == ERROR_ALREADY_EXISTS) continue;
    throw RunTimeError(error == ERROR_FILE_NOT_FOUND ? static_cast<int>(kPathNotFound)
                                                     : pathErrorNumber(error));
  }
}

}  // namespace dg
