#include "platform/windows/full_path.h"

#include <string>
#include <windows.h>

namespace dg {

std::filesystem::path fullPath(const std::filesystem::path& path) {
  std::wstring full(32768, L'\0');
  const DWORD length =
      ::GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
  if (length == 0 || length >= full.size()) return path;
  full.resize(length);
  return full;
}

}  // namespace dg
