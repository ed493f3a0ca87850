#include "platform/file.h"

#include <cerrno>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>
#include <utility>

#include "platform/file_call.h"
#include "platform/posix/descriptor.h"
#include "platform/posix/native_path.h"
#include "platform/posix/system_error.h"
#include "platform/system_file.h"
#include "platform/values/run_time_error.h"

namespace dg {

namespace {

class SystemFile final : public File {
 public:
  explicit SystemFile(Descriptor descriptor) : descriptor_(std::move(descriptor)) {}
  ~SystemFile() override {
    descriptor_ = Descriptor();
    noteFileCall(FileCall::kClose);
  }

  std::size_t read(std::int64_t offset, char* buffer, std::size_t count) override {
    if (offset < 0) throw RunTimeError(kBadRecordNumber);
    std::size_t done = 0;
    while (done < count) {
      const ssize_t got = ::pread(descriptor_.get(), buffer + done, count - done,
                                  static_cast<off_t>(offset) + static_cast<off_t>(done));
      if (got < 0 && errno == EINTR) continue;
      noteFileCall(FileCall::kRead);
      countRead(got > 0 ? static_cast<std::size_t>(got) : 0);
      if (got < 0) throw RunTimeError(kDeviceIoError);
      if (got == 0) {
        // A line that breaks may look like the file's end; the length tells one from the other.
        if (offset + static_cast<std::int64_t>(done) < size()) throw RunTimeError(kDeviceIoError);
        break;
      }
      done += static_cast<std::size_t>(got);
      // Fewer bytes than asked for are the file's last ones, or those before a failure, which
      // another read then tells. The length settles it without one.
      if (done < count && offset + static_cast<std::int64_t>(done) >= size()) break;
    }
    return done;
  }

  void write(std::int64_t offset, std::string_view data) override {
    if (offset < 0) throw RunTimeError(kBadRecordNumber);
    auto position = static_cast<off_t>(offset);
    while (!data.empty()) {
      const ssize_t written = ::pwrite(descriptor_.get(), data.data(), data.size(), position);
      if (written < 0 && errno == EINTR) continue;
      if (written < 0) throw RunTimeError(transferErrorNumber(errno));
      if (written == 0) throw RunTimeError(kDiskFull);
      data.remove_prefix(static_cast<std::size_t>(written));
      position += static_cast<off_t>(written);
    }
  }

  bool isOrdinary() const {
    struct stat status = {};
    return ::fstat(descriptor_.get(), &status) == 0 && S_ISREG(status.st_mode);
  }

  std::int64_t size() override {
    struct stat status = {};
    if (::fstat(descriptor_.get(), &status) != 0) throw RunTimeError(kDeviceIoError);
    return status.st_size;
  }

 private:
  Descriptor descriptor_;
};

/// A file that is not there raises 53, a directory on the way to it 76.
[[noreturn]] void raiseMissing(const std::string& native) {
  const std::size_t end = native.rfind('/');
  if (end == std::string::npos || end == 0) throw RunTimeError(kFileNotFound);
  struct stat status = {};
  const bool inDirectory = ::stat(native.substr(0, end).c_str(), &status) == 0;
  noteFileCall(FileCall::kQuestion);
  throw RunTimeError(inDirectory ? kFileNotFound : kPathNotFound);
}

/// The type of what stands at a path, behind its links; 0, and the reason in errno, when nothing
/// does.
mode_t typeAt(const std::string& native) {
  struct stat status = {};
  const bool isThere = ::stat(native.c_str(), &status) == 0;
  const int error = errno;
  noteFileCall(FileCall::kQuestion);
  errno = error;
  return isThere ? status.st_mode & S_IFMT : 0;
}

/// The same, but raises when nothing stands there.
mode_t typeOf(const std::string& native) {
  if (const mode_t type = typeAt(native); type != 0) return type;
  if (errno == ENOENT) raiseMissing(native);
  throw RunTimeError(pathErrorNumber(errno));
}

int openingFlags(FileAccess access) {
  return access == FileAccess::kReadWrite ? O_RDWR : O_RDONLY;
}

Descriptor openCounted(const std::string& native, int flags) {
  Descriptor descriptor = openDescriptor(native.c_str(), flags);
  const int error = errno;
  noteFileCall(FileCall::kOpen);
  errno = error;
  return descriptor;
}

/// Opens a file of a type that was asked before: the open would wait for ever for the other end of
/// a pipe.
std::unique_ptr<File> openOfType(const std::string& native, mode_t type, FileAccess access) {
  if (type != S_IFREG) throw RunTimeError(kPathFileAccess);
  Descriptor descriptor = openCounted(native, openingFlags(access));
  if (!descriptor.isOpen()) throw RunTimeError(pathErrorNumber(errno));
  return std::make_unique<SystemFile>(std::move(descriptor));
}

class SystemFileSystem final : public FileSystem {
 public:
  std::unique_ptr<File> open(const std::string& path, FileAccess access) override {
    if (std::optional<std::string> native = placeAsWritten(path)) {
      errno = 0;
      if (std::unique_ptr<File> file = openAtOnce(*native, access)) return file;
      // A load has listed the folder, or does so once: it tells of a name in other letters, too.
      if (errno == ENOENT && isMissing(*native)) throw RunTimeError(kFileNotFound);
    }
    const Location location = locate(path);
    if (location.error != 0) throw RunTimeError(location.error);
    const mode_t type = location.type != 0 ? location.type : typeOf(location.native);
    return openOfType(location.native, type, access);
  }

  bool fileExists(const std::string& path) override { return isOfType(path, S_IFREG); }
  bool directoryExists(const std::string& path) override { return isOfType(path, S_IFDIR); }

 private:
  static bool isOfType(const std::string& path, mode_t type) {
    const Location location = locate(path);
    if (location.error != 0) return false;
    return (location.type != 0 ? location.type : typeAt(location.native)) == type;
  }
};

}  // namespace

FileSystem& systemFileSystem() {
  static SystemFileSystem system;
  return system;
}

std::unique_ptr<File> openAtOnce(const std::string& native, FileAccess access) {
  Descriptor descriptor = openCounted(native, openingFlags(access) | O_NOFOLLOW | O_NONBLOCK);
  if (!descriptor.isOpen()) return nullptr;
  auto file = std::make_unique<SystemFile>(std::move(descriptor));
  return file->isOrdinary() ? std::move(file) : nullptr;
}

std::unique_ptr<File> openSystemFile(const std::string& nativeFile, FileAccess access) {
  return openOfType(nativeFile, typeOf(nativeFile), access);
}

}  // namespace dg
