#include "platform/file.h"

#include <utility>

#include "platform/system_file.h"

namespace dg {

namespace {

std::unique_ptr<FileSystem>& replacedFileSystem() {
  static std::unique_ptr<FileSystem> replaced;
  return replaced;
}

}  // namespace

FileSystem& fileSystem() {
  const std::unique_ptr<FileSystem>& replaced = replacedFileSystem();
  return replaced ? *replaced : systemFileSystem();
}

std::unique_ptr<FileSystem> setFileSystem(std::unique_ptr<FileSystem> replacement) {
  return std::exchange(replacedFileSystem(), std::move(replacement));
}

ReadStatistics& readStatistics() {
  static ReadStatistics statistics;
  return statistics;
}

}  // namespace dg
