#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/file.h"

namespace dg::test {

/// Ends a run that asks the file system too often. No run-time error, and no exception that a trap
/// of the program takes: whoever started the run must catch it.
struct TooManySteps {
  std::uint64_t limit;
};

/// Passes everything on to another file system and counts the calls; the one beyond the limit
/// raises TooManySteps. So a loop that would never end becomes a failure of its test.
class StepLimitFileSystem final : public FileSystem {
 public:
  explicit StepLimitFileSystem(std::unique_ptr<FileSystem> inner);
  /// Over a file system that somebody else owns, such as the operating system's.
  explicit StepLimitFileSystem(FileSystem& inner);

  void setLimit(std::uint64_t steps) { state_->limit = steps; }
  std::uint64_t steps() const { return state_->steps; }

  std::unique_ptr<File> open(const std::string& path, FileAccess access) override;
  bool fileExists(const std::string& path) override;
  bool directoryExists(const std::string& path) override;

  /// Shared with the open files, which may outlive the file system.
  struct State {
    std::uint64_t steps = 0;
    std::uint64_t limit = UINT64_MAX;
    void step() {
      if (++steps > limit) throw TooManySteps{limit};
    }
  };

 private:
  std::unique_ptr<FileSystem> owned_;
  FileSystem& inner_;
  std::shared_ptr<State> state_ = std::make_shared<State>();
};

}  // namespace dg::test
