#pragma once

#include <memory>
#include <string>

#include "platform/file.h"

namespace dg {

/// Passes everything on to another file system, and lets one read fail as a broken line to the
/// share does: the n-th from now, over all files.
class FaultyFileSystem final : public FileSystem {
 public:
  explicit FaultyFileSystem(std::unique_ptr<FileSystem> inner);

  /// The read after `reads` more that succeed raises 57, and so does every later one when
  /// `forEver`.
  void failAfter(std::uint64_t reads, bool forEver = false);
  /// How many reads were asked for so far.
  std::uint64_t reads() const { return state_->reads; }

  std::unique_ptr<File> open(const std::string& path, FileAccess access) override;
  bool fileExists(const std::string& path) override { return inner_->fileExists(path); }
  bool directoryExists(const std::string& path) override { return inner_->directoryExists(path); }

  /// Shared with the open files, which may outlive the file system.
  struct State {
    std::uint64_t reads = 0;
    std::uint64_t failing = UINT64_MAX;  ///< count of the reads before the one that fails
    bool forEver = false;
  };

 private:
  std::unique_ptr<FileSystem> inner_;
  std::shared_ptr<State> state_ = std::make_shared<State>();
};

}  // namespace dg
