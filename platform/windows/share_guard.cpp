#include "platform/windows/share_guard.h"

#include <algorithm>
#include <optional>
#include <set>
#include <windows.h>

#include "platform/environment.h"
#include "platform/text_file.h"
#include "platform/windows/handle.h"

namespace dg {

namespace {

std::set<std::string>& metShares() {
  static std::set<std::string> shares;
  return shares;
}

/// A folder's path behind drive letters and links, in one case: "\\\\?\\unc\\server\\share\\".
std::optional<std::wstring> realFolder(const std::filesystem::path& folder) {
  const Handle open(::CreateFileW(folder.c_str(), 0,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                  OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  if (!open.isOpen()) return std::nullopt;
  std::wstring path(32768, L'\0');
  const DWORD length =
      ::GetFinalPathNameByHandleW(open.get(), path.data(), static_cast<DWORD>(path.size()), 0);
  if (length == 0 || length >= path.size()) return std::nullopt;
  path.resize(length);
  ::CharLowerBuffW(path.data(), length);
  if (path.back() != L'\\') path += L'\\';
  return path;
}

bool liesBelow(const std::wstring& folder, const std::filesystem::path& top) {
  const std::optional<std::wstring> real = realFolder(top);
  return real && folder.starts_with(*real);
}

}  // namespace

bool liesOnShare(const std::filesystem::path& file) {
  const std::filesystem::path parent = file.parent_path();
  const std::optional<std::wstring> folder = realFolder(parent.empty() ? "." : parent);
  if (!folder) return false;
  const std::string& root = environment().shareRoot;
  if (!root.empty() && liesBelow(*folder, pathFromBytes(root))) return true;
  return std::ranges::any_of(metShares(), [&](const std::string& share) {
    return liesBelow(*folder, pathFromBytes(share));
  });
}

void noteShare(const std::string& root) {
  if (const std::optional<std::string> native = nativePath(root)) metShares().insert(*native);
}

}  // namespace dg
