#include "platform/text_file.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <optional>
#include <sys/stat.h>
#include <system_error>

#include "platform/environment.h"
#include "platform/posix/descriptor.h"
#include "platform/posix/native_path.h"
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

/// What replacing must know of its target.
struct Target {
  std::string path;  ///< behind links, so that they stay
  bool isThere = false;
  mode_t mode = 0;
};

/// The path behind links, of which the last may lead to what is not there yet.
std::string behindLinks(std::string native) {
  constexpr int kMostLinks = 40;
  for (int i = 0; i < kMostLinks; ++i) {
    std::error_code error;
    const std::filesystem::path next = std::filesystem::read_symlink(native, error);
    if (error) break;
    native = (std::filesystem::path(native).parent_path() / next).string();
  }
  return native;
}

Target targetOf(const std::string& native) {
  Target target{.path = behindLinks(native)};
  struct stat status = {};
  target.isThere = ::stat(target.path.c_str(), &status) == 0;
  target.mode = status.st_mode;
  const std::size_t end = target.path.rfind('/');
  const std::string folder = end == std::string::npos ? "." : target.path.substr(0, end + 1);
  if (target.isThere && !S_ISREG(target.mode)) throw RunTimeError(kPathFileAccess);
  if (::stat(folder.c_str(), &status) != 0) throw RunTimeError(creationErrorNumber(errno));
  if (!S_ISDIR(status.st_mode)) throw RunTimeError(kPathNotFound);
  // A rename asks the folder only; a file that its owner protected stays as it is.
  const bool isProtected = target.isThere && ::access(target.path.c_str(), W_OK) != 0;
  if (isProtected || liesOnShare(target.path)) throw RunTimeError(kPermissionDenied);
  return target;
}

/// Holds back the signals that end a program while a file beside its target exists.
class SignalsHeldBack {
 public:
  SignalsHeldBack() {
    sigset_t ending;
    ::sigemptyset(&ending);
    constexpr int kEnding[] = {SIGHUP, SIGINT, SIGTERM};
    for (const int signal : kEnding)
      ::sigaddset(&ending, signal);
    ::pthread_sigmask(SIG_BLOCK, &ending, &former_);
  }
  ~SignalsHeldBack() { ::pthread_sigmask(SIG_SETMASK, &former_, nullptr); }
  SignalsHeldBack(const SignalsHeldBack&) = delete;
  SignalsHeldBack& operator=(const SignalsHeldBack&) = delete;

 private:
  sigset_t former_ = {};
};

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
  if (isSharePath(path)) throw RunTimeError(kPermissionDenied);
  const std::optional<std::string> native = nativePath(path);
  if (!native) throw RunTimeError(kPathNotFound);

  // Asked before the open, which would wait for ever for the other end of a pipe.
  struct stat status = {};
  if (::lstat(native->c_str(), &status) == 0 && !S_ISREG(status.st_mode) &&
      !S_ISCHR(status.st_mode)) {
    throw RunTimeError(kPathFileAccess);
  }
  if (liesOnShare(*native)) throw RunTimeError(kPermissionDenied);
  const Descriptor descriptor =
      openDescriptor(native->c_str(), O_WRONLY | O_APPEND | O_CREAT | O_NOFOLLOW, 0666);
  if (!descriptor.isOpen()) throw RunTimeError(creationErrorNumber(errno));
  writeFully(descriptor.get(), text);
}

bool isOnShare(const std::filesystem::path& file) {
  return isSharePath(file.string()) || liesOnShare(behindLinks(file.string()));
}

void checkReplaceable(const std::filesystem::path& file) {
  static_cast<void>(targetOf(file.string()));
}

void replaceFile(const std::filesystem::path& file, std::string_view content, NewFileMode mode) {
  const Target target = targetOf(file.string());
  const SignalsHeldBack whole;
  TemporaryFile temporary(target.path, mode == NewFileMode::kPrivate ? 0600 : 0666);
  writeFully(temporary.descriptor(), content);
  if (target.isThere && ::fchmod(temporary.descriptor(), target.mode & 0777) != 0) {
    throw RunTimeError(kPermissionDenied);
  }
  temporary.replace(target.path);
  syncDirectoryOf(target.path);
}

std::filesystem::path pathFromBytes(const std::string& bytes) {
  return bytes;
}

}  // namespace dg
