#pragma once

#include <chrono>
#include <memory>
#include <utility>

#include "platform/environment.h"
#include "platform/file.h"
#include "platform/read_ahead.h"

namespace dg {

/// Puts the process's environment back at the end of a test that changes it.
class EnvironmentScope {
 public:
  EnvironmentScope() : saved_(environment()) {}
  ~EnvironmentScope() { environment() = saved_; }
  EnvironmentScope(const EnvironmentScope&) = delete;
  EnvironmentScope& operator=(const EnvironmentScope&) = delete;

 private:
  Environment saved_;
};

/// For a line on which no answer is quick enough to be near.
inline constexpr std::chrono::microseconds kEveryLineIsFar(-1);

/// Lets loads read ahead in another way until the end of a test.
class ReadAheadSettingsScope {
 public:
  explicit ReadAheadSettingsScope(const ReadAheadSettings& settings)
      : former_(setReadAhead(settings)) {}
  ~ReadAheadSettingsScope() { setReadAhead(former_); }
  ReadAheadSettingsScope(const ReadAheadSettingsScope&) = delete;
  ReadAheadSettingsScope& operator=(const ReadAheadSettingsScope&) = delete;

 private:
  ReadAheadSettings former_;
};

/// Puts a file system in the place of the process's until the end of a test.
class FileSystemScope {
 public:
  explicit FileSystemScope(std::unique_ptr<FileSystem> replacement)
      : former_(setFileSystem(std::move(replacement))) {}
  ~FileSystemScope() { setFileSystem(std::move(former_)); }
  FileSystemScope(const FileSystemScope&) = delete;
  FileSystemScope& operator=(const FileSystemScope&) = delete;

 private:
  std::unique_ptr<FileSystem> former_;
};

}  // namespace dg
