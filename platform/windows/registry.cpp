#include "platform/registry.h"

#include <windows.h>

namespace dg {

namespace {

constexpr DWORD kBufferSize = 1024;

/// What ShellExecute returns above this means success.
constexpr INT_PTR kLastShellError = 32;

}  // namespace

bool readMachineRegistry(const std::string& key, const std::string& name, std::uint32_t& type,
                         std::string& bytes) {
  HKEY handle = nullptr;
  // Reading is all that is asked for: a user without an administrator's rights gets it too.
  if (RegOpenKeyExA(HKEY_LOCAL_MACHINE, key.c_str(), 0, KEY_READ, &handle) != ERROR_SUCCESS) {
    return false;
  }
  std::string buffer(kBufferSize, '\0');
  DWORD size = kBufferSize;
  DWORD kind = 0;
  const LSTATUS status = RegQueryValueExA(handle, name.c_str(), nullptr, &kind,
                                          reinterpret_cast<BYTE*>(buffer.data()), &size);
  RegCloseKey(handle);
  if (status != ERROR_SUCCESS) return false;
  buffer.resize(size);
  type = kind;
  bytes = buffer;
  return true;
}

bool startProgram(const std::string& path) {
  const HINSTANCE result =
      ShellExecuteA(nullptr, "open", path.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
  return reinterpret_cast<INT_PTR>(result) > kLastShellError;
}

}  // namespace dg
