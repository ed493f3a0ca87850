#include "platform/file.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <windows.h>

#include "platform/environment.h"
#include "platform/file_call.h"
#include "platform/system_file.h"
#include "platform/values/run_time_error.h"
#include "platform/windows/handle.h"
#include "platform/windows/system_error.h"

namespace dg {

namespace {

constexpr std::size_t kMostAtOnce = std::size_t{1} << 30;

OVERLAPPED atOffset(std::int64_t offset) {
  OVERLAPPED place = {};
  place.Offset = static_cast<DWORD>(offset & 0xffffffff);
  place.OffsetHigh = static_cast<DWORD>(offset >> 32);
  return place;
}

class SystemFile final : public File {
 public:
  explicit SystemFile(Handle handle) : handle_(std::move(handle)) {}
  ~SystemFile() override {
    handle_.close();
    noteFileCall(FileCall::kClose);
  }

  std::size_t read(std::int64_t offset, char* buffer, std::size_t count) override {
    if (offset < 0) throw RunTimeError(kBadRecordNumber);
    std::size_t done = 0;
    while (done < count) {
      OVERLAPPED place = atOffset(offset + static_cast<std::int64_t>(done));
      const auto wanted = static_cast<DWORD>(std::min(count - done, kMostAtOnce));
      DWORD got = 0;
      const bool succeeded =
          ::ReadFile(handle_.get(), buffer + done, wanted, &got, &place) != FALSE;
      const DWORD error = succeeded ? ERROR_SUCCESS : ::GetLastError();
      noteFileCall(FileCall::kRead);
      countRead(got);
      // A range that a terminal has locked is refused, and counts as permission denied.
      if (!succeeded && error != ERROR_HANDLE_EOF) throw RunTimeError(transferErrorNumber(error));
      done += got;
      // Fewer bytes than asked for are a file's last ones: to ask again is one more round trip.
      if (got < wanted) break;
    }
    return done;
  }

  void write(std::int64_t offset, std::string_view data) override {
    if (offset < 0) throw RunTimeError(kBadRecordNumber);
    while (!data.empty()) {
      OVERLAPPED place = atOffset(offset);
      DWORD written = 0;
      if (!::WriteFile(handle_.get(), data.data(),
                       static_cast<DWORD>(std::min(data.size(), kMostAtOnce)), &written, &place)) {
        throw RunTimeError(transferErrorNumber(::GetLastError()));
      }
      if (written == 0) throw RunTimeError(kDiskFull);
      data.remove_prefix(written);
      offset += written;
    }
  }

  std::int64_t size() override {
    LARGE_INTEGER size = {};
    if (!::GetFileSizeEx(handle_.get(), &size)) throw RunTimeError(kDeviceIoError);
    return size.QuadPart;
  }

 private:
  Handle handle_;
};

class SystemFileSystem final : public FileSystem {
 public:
  std::unique_ptr<File> open(const std::string& path, FileAccess access) override {
    const std::optional<std::string> native = nativePath(path);
    if (!native) throw RunTimeError(kPathNotFound);
    return openSystemFile(*native, access);
  }

  bool fileExists(const std::string& path) override {
    const DWORD attributes = attributesOf(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
  }

  bool directoryExists(const std::string& path) override {
    const DWORD attributes = attributesOf(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  }

 private:
  static DWORD attributesOf(const std::string& path) {
    const std::optional<std::string> native = nativePath(path);
    if (!native) return INVALID_FILE_ATTRIBUTES;
    const DWORD attributes = ::GetFileAttributesA(native->c_str());
    noteFileCall(FileCall::kQuestion);
    return attributes;
  }
};

}  // namespace

FileSystem& systemFileSystem() {
  static SystemFileSystem system;
  return system;
}

std::optional<std::string> placeAsWritten(const std::string& path) {
  return nativePath(path);
}

std::unique_ptr<File> openAtOnce(const std::string& native, FileAccess access) {
  try {
    return openSystemFile(native, access);
  } catch (const RunTimeError&) {
    return nullptr;
  }
}

std::unique_ptr<File> openSystemFile(const std::string& nativeFile, FileAccess access) {
  const DWORD wanted =
      access == FileAccess::kReadWrite ? GENERIC_READ | GENERIC_WRITE : GENERIC_READ;
  Handle handle(::CreateFileA(nativeFile.c_str(), wanted,
                              FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                              OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  const DWORD error = handle.isOpen() ? ERROR_SUCCESS : ::GetLastError();
  noteFileCall(FileCall::kOpen);
  if (!handle.isOpen()) {
    // A directory is there: what is missing needs no further question.
    if (error == ERROR_FILE_NOT_FOUND) throw RunTimeError(kFileNotFound);
    const DWORD attributes = ::GetFileAttributesA(nativeFile.c_str());
    const bool isDirectory =
        attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    noteFileCall(FileCall::kQuestion);
    throw RunTimeError(isDirectory ? static_cast<int>(kPathFileAccess) : pathErrorNumber(error));
  }
  if (::GetFileType(handle.get()) != FILE_TYPE_DISK) throw RunTimeError(kPathFileAccess);
  return std::make_unique<SystemFile>(std::move(handle));
}

}  // namespace dg
