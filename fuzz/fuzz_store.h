#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/program_run.h"
#include "tools/sample/sample_store.h"

namespace dg::fuzz {

/// The files of a small example store, made once.
const std::vector<SampleFile>& baseStore();
/// Those of them whose paths end so, with the catalog file, the terminal table and the link table:
/// a store that is quickly copied.
std::vector<SampleFile> smallStore(std::initializer_list<std::string_view> ends);

/// The process as the workstation of a store in memory, without a log file. Message boxes close by
/// themselves.
class FuzzStore {
 public:
  FuzzStore();

  /// Creates the shared engine over these files; a store that it refuses has none.
  bool openEngine(std::vector<SampleFile> files);
  /// Loads all views, opens the detail windows of the first rows of each grid, and refreshes.
  void loadWithDetails(std::vector<SampleFile> files);

 private:
  ProgramRun run_;
};

/// A directory's entry of a file that begins with the data file.
std::string directoryEntry(std::string_view name, char type, std::int32_t recordLength,
                           std::int32_t lastRecord);

/// A store with one data file of these logical files: "LINEL" and the like from `directory` and
/// `data`, reached through links of the same names.
std::vector<SampleFile> storeOf(std::string_view directory, std::string_view data);

}  // namespace dg::fuzz
