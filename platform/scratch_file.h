#pragma once

#include <filesystem>
#include <string>

namespace dg {

/// A file for a library that can only write to a path: it has no name that anybody meets, where the
/// system allows that, and is gone with this object, or with the process however it ends.
class ScratchFile {
 public:
  /// In the system's folder for temporary files. Raises 57, 61, 70 or 76.
  ScratchFile();
  ~ScratchFile();
  ScratchFile(const ScratchFile&) = delete;
  ScratchFile& operator=(const ScratchFile&) = delete;

  /// What the library is told.
  const std::string& path() const { return path_; }
  /// All that was written. Raises 57.
  std::string content() const;

 private:
  std::string path_;
  std::filesystem::path named_;  ///< where the system knows no file without a name
  int descriptor_ = -1;
};

}  // namespace dg
