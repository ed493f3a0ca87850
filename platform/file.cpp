#include "platform/file.h"

#include <atomic>
#include <utility>

#include "platform/file_call.h"
#include "platform/read_ahead_file.h"
#include "platform/share_path.h"
#include "platform/system_file.h"
#include "platform/unopened_files.h"
#include "platform/values/run_time_error.h"

namespace dg {

namespace {

std::unique_ptr<FileSystem>& replacedFileSystem() {
  static std::unique_ptr<FileSystem> replaced;
  return replaced;
}

std::atomic<FileCallWatcher> fileCallWatcher = nullptr;

std::atomic<std::uint64_t> readCalls = 0;
std::atomic<std::uint64_t> readBytes = 0;

/// The file system in place, with files that read ahead while a ReadAheadScope lives.
class FrontFileSystem final : public FileSystem {
 public:
  std::unique_ptr<File> open(const std::string& path, FileAccess access) override {
    try {
      return openReadAhead(inPlace(), path, access);
    } catch (const RunTimeError& error) {
      if (isSharePath(path)) noteUnopened(path, error);
      throw;
    }
  }
  bool fileExists(const std::string& path) override {
    return answerAhead(path, [](const std::string& file) { return inPlace().fileExists(file); });
  }
  bool directoryExists(const std::string& path) override {
    return answerAhead(path,
                       [](const std::string& folder) { return inPlace().directoryExists(folder); });
  }

 private:
  static FileSystem& inPlace() {
    const std::unique_ptr<FileSystem>& replaced = replacedFileSystem();
    return replaced ? *replaced : systemFileSystem();
  }
};

}  // namespace

bool systemFilesInPlace() {
  return replacedFileSystem() == nullptr;
}

FileSystem& fileSystem() {
  static FrontFileSystem front;
  return front;
}

std::unique_ptr<File> openIfThere(const std::string& path) {
  try {
    return fileSystem().open(path, FileAccess::kRead);
  } catch (const RunTimeError& error) {
    if (error.number() == kFileNotFound || error.number() == kPathNotFound) return nullptr;
    throw;
  }
}

std::unique_ptr<FileSystem> setFileSystem(std::unique_ptr<FileSystem> replacement) {
  forgetKeptBytes();
  return std::exchange(replacedFileSystem(), std::move(replacement));
}

FileCallWatcher watchFileCalls(FileCallWatcher watcher) {
  return fileCallWatcher.exchange(watcher);
}

void noteFileCall(FileCall call) {
  if (const FileCallWatcher watcher = fileCallWatcher.load()) watcher(call);
}

ReadStatistics readStatistics() {
  return {.calls = readCalls, .bytes = readBytes};
}

void countRead(std::size_t bytes) {
  ++readCalls;
  readBytes += bytes;
}

}  // namespace dg
