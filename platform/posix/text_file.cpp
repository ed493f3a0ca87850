#include "platform/text_file.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <optional>
#include <sys/stat.h>

#include "platform/environment.h"
#include "platform/posix/descriptor.h"
#include "platform/posix/system_error.h"
#include "platform/share_path.h"
#include "platform/values/run_time_error.h"

namespace dg {

namespace {

/// The number for a file that could not be created: what is missing then is its directory.
int creationErrorNumber(int systemError) {
  return systemError == ENOENT ? static_cast<int>(kPathNotFound) : pathErrorNumber(systemError);
}

/// A new file beside another, removed again unless it has taken the other's place.
class TemporaryFile {
 public:
  TemporaryFile(const std::string& target, unsigned mode) {
    // A name that is in use belongs to another run; only a handful can be.
    for (int attempt = 0; attempt < 100 && !descriptor_.isOpen(); ++attempt) {
      name_ = target + "." + std::to_string(::getpid()) + "-" + std::to_string(attempt) + ".tmp";
      descriptor_ = openDescriptor(name_.c_str(), O_WRONLY | O_CREAT | O_EXCL, mode);
      if (!descriptor_.isOpen() && errno != EEXIST) break;
    }
    if (!descriptor_.isOpen()) throw RunTimeError(creationErrorNumber(errno));
  }
  ~TemporaryFile() {
    if (!name_.empty()) ::unlink(name_.c_str());
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  int descriptor() const { return descriptor_.get(); }

  /// Puts the file in the target's place once its bytes are on the disk.
  void replace(const std::string& target) {
    if (::fsync(descriptor_.get()) != 0) throw RunTimeError(transferErrorNumber(errno));
    if (::close(descriptor_.release()) != 0 && errno != EINTR) {
      throw RunTimeError(transferErrorNumber(errno));
    }
    if (::rename(name_.c_str(), target.c_str()) != 0) {
      throw RunTimeError(creationErrorNumber(errno));
    }
    name_.clear();
  }

 private:
  std::string name_;
  Descriptor descriptor_;
};

/// The file behind a link, so that replacing keeps the link; the path itself when there is none.
std::string behindLinks(const std::string& native) {
  const std::unique_ptr<char, decltype(&std::free)> real(::realpath(native.c_str(), nullptr),
                                                         &std::free);
  return real ? std::string(real.get()) : native;
}

void syncDirectoryOf(const std::string& native) {
  const std::size_t end = native.rfind('/');
  const std::string directory =
      end == std::string::npos ? "." : native.substr(0, std::max<std::size_t>(end, 1));
  const Descriptor descriptor = openDescriptor(directory.c_str(), O_RDONLY | O_DIRECTORY);
  // Some file systems cannot do that; the new content is in place all the same.
  if (descriptor.isOpen()) static_cast<void>(::fsync(descriptor.get()));
}

}  // namespace

void appendText(const std::string& path, std::string_view text) {
  // Nothing is ever written on a share.
  if (isSharePath(path)) throw RunTimeError(kPermissionDenied);
  const std::optional<std::string> native = nativePath(path);
  if (!native) throw RunTimeError(kPathNotFound);

  // Asked before the open, which would wait for ever for the other end of a pipe.
  struct stat status = {};
  if (::stat(native->c_str(), &status) == 0 && !S_ISREG(status.st_mode) &&
      !S_ISCHR(status.st_mode)) {
    throw RunTimeError(kPathFileAccess);
  }
  const Descriptor descriptor =
      openDescriptor(native->c_str(), O_WRONLY | O_APPEND | O_CREAT, 0666);
  if (!descriptor.isOpen()) throw RunTimeError(creationErrorNumber(errno));
  writeFully(descriptor.get(), text);
}

void replaceFile(const std::string& nativeFile, std::string_view content, NewFileMode mode) {
  const std::string target = behindLinks(nativeFile);
  struct stat old = {};
  const bool isThere = ::stat(target.c_str(), &old) == 0;
  if (isThere && !S_ISREG(old.st_mode)) throw RunTimeError(kPathFileAccess);
  // A rename asks the folder only; a file that its owner protected stays as it is.
  if (isThere && ::access(target.c_str(), W_OK) != 0) throw RunTimeError(kPermissionDenied);

  TemporaryFile temporary(target, mode == NewFileMode::kPrivate ? 0600 : 0666);
  writeFully(temporary.descriptor(), content);
  if (isThere && ::fchmod(temporary.descriptor(), old.st_mode & 0777) != 0) {
    throw RunTimeError(kPermissionDenied);
  }
  temporary.replace(target);
  syncDirectoryOf(target);
}

}  // namespace dg
