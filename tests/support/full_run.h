#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/file.h"
#include "tests/support/program_run.h"

namespace dg::test {

/// How far a run goes.
enum class RunExtent {
  kOneLoad,         ///< the start of the program and its end
  kLoadAndRefresh,  ///< and File/Refresh
  kEverything,      ///< and then a click on every row that opens a window
};

/// What became of one run of the whole program, as its user would use it.
struct FullRun {
  /// Promises that were broken: an exception that left the program, too many steps, a view that
  /// failed without saying so, a label in error without a line in the log.
  std::vector<std::string> faults;
  std::vector<std::string> log;      ///< all lines
  std::vector<MessageBox> messages;  ///< all boxes
  std::vector<std::string> failed;   ///< recap labels in error, at the load and at the refresh
  int windows = 0;                   ///< detail windows that opened
  std::uint64_t steps = 0;           ///< calls to the file system
  /// What each view showed at the load and at the refresh, of those that pass for complete: not
  /// marked as incomplete, while no share was lost and no file left out. As the picture.
  std::map<std::string, std::string> complete;
  std::string picture;  ///< what all windows showed; only when it was asked for
};

/// Whether a run keeps what its windows show.
enum class KeepPicture { kNo, kYes };

/// Runs all views over the store that `files` hold. `stepLimit` bounds its calls to the file
/// system.
FullRun runFully(const std::vector<SampleFile>& files, std::uint64_t stepLimit,
                 RunExtent extent = RunExtent::kEverything, KeepPicture keep = KeepPicture::kNo);

/// The same in surroundings that are in place, over another file system than the store's: one that
/// fails, or the operating system's.
FullRun runFully(ProgramRun& surroundings, std::unique_ptr<FileSystem> files,
                 std::uint64_t stepLimit, RunExtent extent = RunExtent::kEverything,
                 KeepPicture keep = KeepPicture::kNo);
FullRun runFullyOnDisk(const std::string& store, std::uint64_t stepLimit,
                       RunExtent extent = RunExtent::kEverything,
                       KeepPicture keep = KeepPicture::kNo);
/// The same as over a far line. Its workers fetch the operating system's own files only, so nothing
/// bounds the calls.
FullRun runFullyFar(const std::string& store, RunExtent extent = RunExtent::kEverything,
                    KeepPicture keep = KeepPicture::kNo);

}  // namespace dg::test
