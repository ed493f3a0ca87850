#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "engine/logical_file.h"

namespace dg::bench {

/// A folder of this process's own below the system's temporary folder, removed at its end.
class BenchFolder {
 public:
  BenchFolder();
  ~BenchFolder();
  BenchFolder(const BenchFolder&) = delete;
  BenchFolder& operator=(const BenchFolder&) = delete;

  std::string file(const std::string& name) const { return (path_ / name).string(); }
  void write(const std::string& name, const std::string& content) const;

 private:
  std::filesystem::path path_;
};

/// A file on disk that is one index, as an open logical file. The engine's collection of open files
/// must exist.
std::shared_ptr<cLogicalFile> openIndex(const std::string& path, int lastBlock);

}  // namespace dg::bench
