#include "platform/text_file.h"

#include <optional>
#include <windows.h>

#include "platform/environment.h"
#include "platform/values/run_time_error.h"
#include "platform/windows/handle.h"
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
  explicit TemporaryFile(const std::string& target) {
    DWORD error = ERROR_FILE_EXISTS;
    // A name that is in use belongs to another run; only a handful can be.
    for (int attempt = 0; attempt < 100 && error == ERROR_FILE_EXISTS; ++attempt) {
      name_ = target + "." + std::to_string(::GetCurrentProcessId()) + "-" +
              std::to_string(attempt) + ".tmp";
      file_ = Handle(::CreateFileA(name_.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                   CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
      error = file_.isOpen() ? ERROR_SUCCESS : ::GetLastError();
    }
    if (!file_.isOpen()) throw RunTimeError(creationErrorNumber(error));
  }
  ~TemporaryFile() {
    file_.close();
    if (!name_.empty()) ::DeleteFileA(name_.c_str());
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  HANDLE handle() const { return file_.get(); }

  /// Puts the file in the target's place once its bytes are on the disk.
  void replace(const std::string& target) {
    if (!::FlushFileBuffers(file_.get())) {
      throw RunTimeError(transferErrorNumber(::GetLastError()));
    }
    file_.close();
    if (!::MoveFileExA(name_.c_str(), target.c_str(),
                       MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) {
      throw RunTimeError(creationErrorNumber(::GetLastError()));
    }
    name_.clear();
  }

 private:
  std::string name_;
  Handle file_;
};

}  // namespace

void appendText(const std::string& path, std::string_view text) {
  const std::optional<std::string> native = nativePath(path);
  if (!native) throw RunTimeError(kPathNotFound);
  const Handle file(::CreateFileA(native->c_str(), FILE_APPEND_DATA, kShareAll, nullptr,
                                  OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file.isOpen()) throw RunTimeError(creationErrorNumber(::GetLastError()));
  writeFully(file.get(), text);
}

void replaceFile(const std::string& nativeFile, std::string_view content, NewFileMode /*mode*/) {
  // A user's folders are the user's own here, and new files in them with them.
  const DWORD attributes = ::GetFileAttributesA(nativeFile.c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES) {
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) throw RunTimeError(kPathFileAccess);
    if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) throw RunTimeError(kPermissionDenied);
  }
  TemporaryFile temporary(nativeFile);
  writeFully(temporary.handle(), content);
  temporary.replace(nativeFile);
}

}  // namespace dg
