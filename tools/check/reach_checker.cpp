#include "tools/check/reach_checker.h"

#include "tools/check/text.h"

namespace dg::check {

void ReachChecker::check(const IndexTraits& traits) {
  const IndexContents* index = run_.contents(traits.name);
  const RecordUse* use = run_.use(traits.recordFile);
  if (index == nullptr || use == nullptr) return;
  const std::string name(traits.recordFile);
  std::vector<bool> reached(static_cast<std::size_t>(use->last()) + 1, false);
  std::int64_t repeated = 0;
  IndexEntry firstRepeated;
  for (const IndexEntry& entry : index->entries) {
    if (entry.record < 1 || entry.record > use->file().entry.LastRecord) continue;  // told before
    if (!use->isUsed(entry.record)) {
      run_.findings.damage(kind::kIndexFreeRecord, index->placeOf(entry),
                           "An entry leads to record " + text(entry.record) + " of " + name +
                               ", which is not in use.");
      continue;
    }
    const auto record = static_cast<std::size_t>(entry.record);
    if (reached[record] && repeated++ == 0) firstRepeated = entry;
    reached[record] = true;
  }
  if (traits.complete && repeated > 0) {
    run_.findings.note(kind::kIndexRecordTwice, index->placeOf(firstRepeated),
                       "Entries that lead where an earlier one does: " + text(repeated) +
                           "; the first leads to record " + text(firstRepeated.record) + " of " +
                           name + ".");
  }
  if (traits.complete && index->complete) checkUnreached(*use, reached, std::string(traits.name));
}

void ReachChecker::checkUnreached(const RecordUse& use, const std::vector<bool>& reached,
                                  const std::string& index) {
  for (std::int64_t record = 1; record <= use.last(); ++record) {
    if (!use.isUsed(record) || reached[static_cast<std::size_t>(record)]) continue;
    run_.findings.damage(
        kind::kUnreached, use.file().atRecord(record),
        "Record " + text(record) + " is in use, but no entry of " + index + " leads to it.");
  }
}

}  // namespace dg::check
