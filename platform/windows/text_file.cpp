#include "platform/text_file.h"

#include <filesystem>
#include <optional>
#include <string>
#include <system_error>
#include <windows.h>

#include "platform/environment.h"
#include "platform/share_path.h"
#include "platform/values/run_time_error.h"
#include "platform/windows/full_path.h"
#include "platform/windows/handle.h"
#include "platform/windows/share_guard.h"
#include "platform/windows/system_error.h"

namespace dg {

namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// The number for a file that could not be created: what is missing then is its directory.
int creationErrorNumber(DWORD error) {
  return error == ERROR_FILE_NOT_FOUND ? static_cast<int>(kPathNotFound) : pathErrorNumber(error);
}

/// A new file beside another, removed again unless it has taken the other's place.
class TemporaryFile {
 public:
  explicit TemporaryFile(const std::filesystem::path& target) {
    DWORD error = ERROR_FILE_EXISTS;
    // A name that is in use belongs to another run; only a handful can be.
    for (int attempt = 0; attempt < 100 && error == ERROR_FILE_EXISTS; ++attempt) {
      name_ = target;
      name_ +=
          "." + std::to_string(::GetCurrentProcessId()) + "-" + std::to_string(attempt) + ".tmp";
      file_ = Handle(::CreateFileW(name_.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                   CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
      error = file_.isOpen() ? ERROR_SUCCESS : ::GetLastError();
    }
    if (!file_.isOpen()) throw RunTimeError(creationErrorNumber(error));
  }
  ~TemporaryFile() {
    file_.close();
    if (!name_.empty()) ::DeleteFileW(name_.c_str());
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  HANDLE handle() const { return file_.get(); }

  /// Puts the file in the target's place once its bytes are on the disk.
  void replace(const std::filesystem::path& target) {
    if (!::FlushFileBuffers(file_.get())) {
      throw RunTimeError(transferErrorNumber(::GetLastError()));
    }
    file_.close();
    if (!::MoveFileExW(name_.c_str(), target.c_str(),
                       MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) {
      throw RunTimeError(creationErrorNumber(::GetLastError()));
    }
    name_.clear();
  }

 private:
  std::filesystem::path name_;
  Handle file_;
};

/// The whole path of what a path leads to, behind links on this computer; the whole path itself
/// when nothing is there.
std::filesystem::path behindLinks(const std::filesystem::path& file) {
  const std::filesystem::path full = fullPath(file);
  if (isSharePath(full.string())) return full;
  std::error_code error;
  const std::filesystem::path real = std::filesystem::canonical(full, error);
  return error ? full : real;
}

bool isFolder(const std::filesystem::path& path) {
  const DWORD attributes = ::GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

}  // namespace

void appendText(const std::string& path, std::string_view text) {
  const std::optional<std::string> native = nativePath(path);
  if (!native) throw RunTimeError(kPathNotFound);
  if (liesOnShare(pathFromBytes(*native))) throw RunTimeError(kPermissionDenied);
  // A link is opened itself, and refused: it might lead anywhere.
  const Handle file(::CreateFileA(native->c_str(), FILE_APPEND_DATA | FILE_READ_ATTRIBUTES,
                                  kShareAll, nullptr, OPEN_ALWAYS,
                                  FILE_ATTRIBUTE_NORMAL | FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
  if (!file.isOpen()) throw RunTimeError(creationErrorNumber(::GetLastError()));
  BY_HANDLE_FILE_INFORMATION facts = {};
  if (::GetFileInformationByHandle(file.get(), &facts) &&
      (facts.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) {
    throw RunTimeError(kPathFileAccess);
  }
  writeFully(file.get(), text);
}

void checkReplaceable(const std::filesystem::path& file) {
  const std::filesystem::path target = behindLinks(file);
  const DWORD attributes = ::GetFileAttributesW(target.c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES) {
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) throw RunTimeError(kPathFileAccess);
    if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) throw RunTimeError(kPermissionDenied);
    const Handle open(::CreateFileW(target.c_str(), 0, kShareAll, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr));
    if (open.isOpen() && ::GetFileType(open.get()) != FILE_TYPE_DISK) {
      throw RunTimeError(kPathFileAccess);
    }
  }
  if (!isFolder(target.parent_path())) throw RunTimeError(kPathNotFound);
  if (liesOnShare(target)) throw RunTimeError(kPermissionDenied);
}

bool isOnShare(const std::filesystem::path& file) {
  const std::filesystem::path target = behindLinks(file);
  // Any other server's is one as well, behind a drive letter too.
  return isSharePath(target.string()) ||
         ::GetDriveTypeW(target.root_path().c_str()) == DRIVE_REMOTE || liesOnShare(target);
}

void replaceFile(const std::filesystem::path& file, std::string_view content,
                 NewFileMode /*mode*/) {
  // A user's folders are the user's own here, and new files in them with them.
  checkReplaceable(file);
  const std::filesystem::path target = behindLinks(file);
  TemporaryFile temporary(target);
  writeFully(temporary.handle(), content);
  temporary.replace(target);
}

std::filesystem::path pathFromBytes(const std::string& bytes) {
  std::wstring wide(bytes.size(), L'\0');
  const int length = ::MultiByteToWideChar(CP_ACP, 0, bytes.data(), static_cast<int>(bytes.size()),
                                           wide.data(), static_cast<int>(wide.size()));
  wide.resize(static_cast<std::size_t>(length));
  return wide;
}

}  // namespace dg
