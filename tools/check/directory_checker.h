#pragma once

#include "tools/check/check_run.h"

namespace dg::check {

/// Examines the store's directory files and their data files: entries that share a place, run past
/// the end or cannot be read by. Marks files of the store as misplaced where it found so.
class DirectoryChecker {
 public:
  explicit DirectoryChecker(CheckRun& run) : run_(run) {}
  void check();

 private:
  void checkTable(const DirectoryTable& table);
  void checkEntry(const DirectoryTable& table, const DirectoryTableEntry& entry);
  bool checkShape(const DirectoryTableEntry& entry, const Place& place);
  void checkExtent(const DirectoryTable& table, const DirectoryTableEntry& entry,
                   const Place& place);
  void checkOverlaps(const DirectoryTable& table);
  void markMisplaced(const DirectoryTable& table, const DirectoryTableEntry& entry);

  CheckRun& run_;
};

}  // namespace dg::check
