#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "tools/check/findings.h"
#include "tools/check/record_use.h"
#include "tools/check/store_reader.h"

namespace dg::check {

/// A leaf entry of an index: the record it leads to and where it stands.
struct IndexEntry {
  std::int32_t record = 0;
  std::int64_t offset = 0;  ///< in the data file
};

/// The leaf entries of an index in the order of its keys, without the sentinel.
struct IndexContents {
  const LogicalView* file = nullptr;
  int keyLength = 0;
  std::vector<IndexEntry> entries;
  /// Whether the whole tree could be walked: else entries may be missing.
  bool complete = true;

  Place placeOf(const IndexEntry& entry) const;
};

/// One examination of a store, as the checkers share it.
struct CheckRun {
  StoreReader& store;
  Findings& findings;
  std::function<void(std::string_view)> progress;  ///< gets what is looked at next; may be empty

  std::map<std::string, IndexContents, std::less<>> indexes;  ///< of those that could be read
  std::map<std::string, RecordUse, std::less<>> uses;         ///< likewise

  /// What IndexChecker left for a name, or null.
  const IndexContents* contents(std::string_view name) const;
  /// What RecordChecker left for a name, or null.
  const RecordUse* use(std::string_view name) const;

  /// Runs one step about a file. A failed read ends the step and becomes a finding at that file.
  void step(const Place& place, const std::function<void()>& work);
};

}  // namespace dg::check
