#include "tools/check/directory_checker.h"

#include <algorithm>
#include <limits>
#include <set>

#include "engine/open_file.h"
#include "engine/record_zero.h"
#include "tools/check/text.h"

namespace dg::check {

namespace {

constexpr std::int32_t kReservedBlocks = 2;

Place tablePlace(const DirectoryTable& table) {
  return {.file = table.path, .physical = table.path};
}

Place placeOf(const DirectoryTable& table, const DirectoryTableEntry& entry) {
  Place place = tablePlace(table);
  place.unit = Unit::kEntry;
  place.number = entry.number;
  place.offset = entry.number * DirectoryEntry::kSize;
  return place;
}

LogicalView viewOf(const DirectoryTable& table, const DirectoryTableEntry& entry) {
  return {.name = entry.entry.FileName, .entry = entry.entry, .data = table.data};
}

bool isIndex(const DirectoryEntry& entry) {
  return entry.FileType == "I";
}
bool isRecordFile(const DirectoryEntry& entry) {
  return entry.FileType == "L";
}

/// Whether a reader can meet the entry: flags behind the NULs that fill up a name make it one that
/// nobody asks for.
bool counts(const DirectoryTableEntry& entry) {
  const std::string& name = entry.entry.FileName;
  return !name.empty() && name.find('\0') == std::string::npos;
}

}  // namespace

void DirectoryChecker::check() {
  for (const DirectoryTable& table : run_.store.directories()) {
    if (table.presence == Presence::kUnreadable) {
      run_.findings.damage(kind::kUnreadable, tablePlace(table),
                           "The directory file cannot be read: " + table.error + ".");
    }
    if (!table.file) continue;  // told with the links that lead here
    run_.step(tablePlace(table), [&] { checkTable(table); });
  }
}

void DirectoryChecker::checkTable(const DirectoryTable& table) {
  const Place place = tablePlace(table);
  const std::int64_t size = table.file->size();
  if (size % DirectoryEntry::kSize != 0) {
    run_.findings.note(kind::kDirectoryLength, place,
                       "The directory file has " + text(size) +
                           " bytes, which is no whole number of entries; the last one is short.");
  }
  const auto read = static_cast<std::int64_t>(table.entries.size()) * DirectoryEntry::kSize;
  if (size - read >= DirectoryEntry::kSize) {
    run_.findings.damage(
        kind::kDirectoryLength, place,
        "The directory file is longer than any real one; its end was not examined.");
  }
  if (!table.data) {
    const std::string why = table.dataPresence == Presence::kUnreadable
                                ? "cannot be read: " + table.dataError
                                : std::string("is not there");
    run_.findings.damage(kind::kDataFile, place, "The data file of this directory " + why + ".");
    return;
  }
  std::set<std::string> names;
  for (const DirectoryTableEntry& entry : table.entries) {
    if (counts(entry) && !names.insert(entry.entry.FileName).second) {
      run_.findings.note(
          kind::kDirectoryRepeated, placeOf(table, entry),
          "The name " + entry.entry.FileName + " stands a second time; the first entry counts.");
      continue;
    }
    checkEntry(table, entry);
  }
  checkOverlaps(table);
}

void DirectoryChecker::checkEntry(const DirectoryTable& table, const DirectoryTableEntry& entry) {
  const Place place = placeOf(table, entry);
  if (entry.entry.FileName.empty()) return;
  if (!counts(entry)) {
    run_.findings.note(kind::kDirectoryFlagged, place,
                       "The entry has flags, which end its name: no reader finds it.");
    return;
  }
  if (checkShape(entry, place)) {
    checkExtent(table, entry, place);
  } else {
    markMisplaced(table, entry);
  }
}

/// Whether type, length and capacity are such that a reader can compute places.
bool DirectoryChecker::checkShape(const DirectoryTableEntry& entry, const Place& place) {
  const DirectoryEntry& file = entry.entry;
  const std::string& name = file.FileName;
  const std::string_view expected = typeOf(name);
  if (!expected.empty() && file.FileType != expected) {
    run_.findings.damage(kind::kDirectoryType, place,
                         "The entry " + name + " has the type \"" + file.FileType +
                             "\" instead of \"" + std::string(expected) + "\".");
    return false;
  }
  if (!isIndex(file) && !isRecordFile(file)) {
    run_.findings.note(kind::kDirectoryType, place,
                       "The entry " + name + " is neither of type \"L\" nor of type \"I\".");
    return false;
  }
  bool sound = true;
  if (file.RecordLength == 0) {
    run_.findings.damage(kind::kRecordLength, place,
                         "The entry " + name + " has the record length 0.");
    sound = false;
  } else if (isRecordFile(file) && file.RecordLength < record_zero::kSize) {
    run_.findings.damage(kind::kRecordLength, place,
                         "The entry " + name + " has the record length " + text(file.RecordLength) +
                             ", too short for record zero.");
    sound = false;
  } else if (isIndex(file) && file.RecordLength != kBlockSize) {
    run_.findings.damage(kind::kRecordLength, place,
                         "The index " + name + " has the record length " + text(file.RecordLength) +
                             " instead of 512.");
    sound = false;
  }
  if (file.LastRecord < 1) {
    run_.findings.damage(kind::kDirectoryCapacity, place,
                         "The entry " + name + " has the capacity " + text(file.LastRecord) + ".");
    sound = false;
  }
  if (file.Position < kReservedBlocks) {
    run_.findings.note(kind::kDirectoryReserved, place,
                       "The file " + name + " begins at block " + text(file.Position) +
                           ", in the blocks that belong to no file.");
  }
  return sound;
}

/// A file may be shorter than its capacity asks for: only what was handed out must be there.
void DirectoryChecker::checkExtent(const DirectoryTable& table, const DirectoryTableEntry& entry,
                                   const Place& place) {
  const LogicalView view = viewOf(table, entry);
  const std::int64_t size = view.data->size();
  if (view.begin() >= size) {
    run_.findings.damage(kind::kDirectoryPastEnd, place,
                         "The file " + view.name + " begins at byte " + text(view.begin()) +
                             ", behind the end of the data file at " + text(size) + ".");
    markMisplaced(table, entry);
    return;
  }
  const std::int64_t addressable =
      std::min<std::int64_t>(size, std::numeric_limits<std::int32_t>::max());
  if (view.end() <= addressable) return;
  const std::string sentence = "The file " + view.name + " may go on to byte " + text(view.end()) +
                               ", and the data file ends at " + text(size);
  const std::string recordZero = view.data->bytes(view.begin(), record_zero::kSize);
  const std::int32_t highUsed = numberOf(record_zero::kHighUsedRecord, recordZero);
  const bool usedPartIsThere =
      view.isRecordFile() && view.recordOffset(std::int64_t{highUsed} + 1) <= addressable;
  if (usedPartIsThere || view.isIndex()) {
    run_.findings.note(kind::kDirectoryPastEnd, place, sentence + ".");
  } else {
    run_.findings.damage(kind::kDirectoryPastEnd, place,
                         sentence + ", before the highest record in use, " + text(highUsed) + ".");
  }
}

void DirectoryChecker::checkOverlaps(const DirectoryTable& table) {
  std::vector<const DirectoryTableEntry*> order;
  std::set<std::string> names;
  for (const DirectoryTableEntry& entry : table.entries) {
    const DirectoryEntry& file = entry.entry;
    if (counts(entry) && names.insert(file.FileName).second && file.RecordLength > 0 &&
        file.LastRecord >= 0) {
      order.push_back(&entry);
    }
  }
  std::stable_sort(order.begin(), order.end(), [](const auto* a, const auto* b) {
    return a->entry.Position < b->entry.Position;
  });
  // Compared with the one that reaches farthest of those that begin before.
  const DirectoryTableEntry* farthest = nullptr;
  for (const DirectoryTableEntry* entry : order) {
    const LogicalView view = viewOf(table, *entry);
    if (farthest != nullptr && viewOf(table, *farthest).end() > view.begin()) {
      run_.findings.damage(kind::kDirectoryOverlap, placeOf(table, *entry),
                           "The file " + view.name + " begins at byte " + text(view.begin()) +
                               ", within the file " + farthest->entry.FileName +
                               ", which ends at " + text(viewOf(table, *farthest).end()) + ".");
      markMisplaced(table, *entry);
      markMisplaced(table, *farthest);
    }
    if (farthest == nullptr || view.end() > viewOf(table, *farthest).end()) farthest = entry;
  }
}

void DirectoryChecker::markMisplaced(const DirectoryTable& table,
                                     const DirectoryTableEntry& entry) {
  LogicalView* view = run_.store.find(entry.entry.FileName);
  if (view != nullptr && view->data == table.data) view->misplaced = true;
}

}  // namespace dg::check
