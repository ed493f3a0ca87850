#pragma once

#include <memory>
#include <utility>

#include "platform/environment.h"
#include "platform/file.h"

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
