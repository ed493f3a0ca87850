#pragma once

#include <map>
#include <memory>
#include <string>

#include "platform/file.h"

namespace dg {

/// Files held in memory, by path without regard to case. For tests and fuzz targets. A directory
/// exists when a file lies below it. All openings of a path see one content.
class MemoryFileSystem final : public FileSystem {
 public:
  /// Puts a file there in place of one of that name; what has that one open keeps it.
  void add(const std::string& path, std::string content);
  /// Behaves as a share that grants reading only: opening for writing raises 75.
  void setReadOnly(bool readOnly) { readOnly_ = readOnly; }
  std::unique_ptr<File> open(const std::string& path, FileAccess access) override;
  bool fileExists(const std::string& path) override;
  bool directoryExists(const std::string& path) override;

 private:
  std::map<std::string, std::shared_ptr<std::string>> files_;
  bool readOnly_ = false;
};

}  // namespace dg
