#include "tools/check/record_checker.h"

#include <algorithm>

#include "engine/record_zero.h"
#include "tools/check/text.h"

namespace dg::check {

namespace {

constexpr std::int32_t kMarker = -2;

}  // namespace

RecordChecker::RecordChecker(CheckRun& run, const LogicalView& file)
    : run_(run), file_(file), traits_(recordFileTraits(file.name)) {}

void RecordChecker::readRecordZero() {
  const std::string header = file_.data->bytes(file_.begin(), record_zero::kSize);
  freeHead_ = numberOf(record_zero::kFreeHead, header);
  highUsed_ = numberOf(record_zero::kHighUsedRecord, header);
  activeCount_ = numberOf(record_zero::kActiveCount, header);
}

void RecordChecker::checkRecordZero() {
  readRecordZero();
  const std::string header = file_.data->bytes(file_.begin(), record_zero::kSize);
  const std::int32_t marker = numberOf(record_zero::kMarker, header);
  const std::int32_t capacity = file_.entry.LastRecord;
  if (marker != kMarker) {
    run_.findings.note(kind::kMarker, file_.atRecord(0),
                       "Record zero has the marker " + text(marker) + " instead of -2.");
  }
  const Place highUsed = file_.atRecord(0, within(record_zero::kHighUsedRecord));
  if (highUsed_ < 0 || highUsed_ > capacity) {
    run_.findings.damage(kind::kHighUsed, highUsed,
                         "The highest record in use is given as " + text(highUsed_) +
                             "; the capacity is " + text(capacity) + ".");
  }
  if (freeHead_ > std::clamp(highUsed_, 0, capacity)) {
    run_.findings.damage(kind::kFreeHead, file_.atRecord(0, within(record_zero::kFreeHead)),
                         "The free chain begins at record " + text(freeHead_) +
                             ", above the highest record in use, " + text(highUsed_) + ".");
  }
  if (activeCount_ < 0 || activeCount_ > std::max(highUsed_, 0)) {
    run_.findings.damage(kind::kActiveCount, file_.atRecord(0, within(record_zero::kActiveCount)),
                         "The number of records in use is given as " + text(activeCount_) +
                             ", the highest record in use as " + text(highUsed_) + ".");
  }
}

void RecordChecker::checkRecords() {
  readRecordZero();
  const RecordUse& use =
      run_.uses.insert_or_assign(file_.name, RecordUse(file_, traits_.inUse)).first->second;
  onChain_.assign(static_cast<std::size_t>(use.last()) + 1, false);
  checkFreeChain(use);
  if (isExtension()) return;
  checkCounts(use);
  checkUnused(use);
}

void RecordChecker::checkFreeChain(const RecordUse& use) {
  if (freeHead_ > file_.entry.LastRecord) return;  // told with record zero
  std::int64_t from = 0;
  std::int64_t record = freeHead_;
  while (record >= 1) {
    const Place link = file_.atRecord(from, within(kNextFreeRecord));
    if (record > use.last() || record > highUsed_) {
      if (from != 0) {
        run_.findings.damage(kind::kFreeRange, link,
                             "The free chain goes from record " + text(from) + " to record " +
                                 text(record) + ", which was never handed out.");
      }
      return;
    }
    if (onChain_[static_cast<std::size_t>(record)]) {
      run_.findings.damage(kind::kFreeLoop, link,
                           "The free chain goes from record " + text(from) + " back to record " +
                               text(record) + " and never ends.");
      return;
    }
    onChain_[static_cast<std::size_t>(record)] = true;
    checkFreeRecord(use, record);
    from = record;
    record = numberOf(kNextFreeRecord, file_.record(record));
  }
}

void RecordChecker::checkFreeRecord(const RecordUse& use, std::int64_t record) {
  if (use.isUsed(record)) {
    run_.findings.damage(
        kind::kFreeUsed, file_.atRecord(record),
        "Record " + text(record) + " is on the free chain but in use: it will be overwritten.");
  } else if (use.state(record) == RecordState::kOther) {
    run_.findings.note(kind::kFreeContent, file_.atRecord(record),
                       "Record " + text(record) + " is free but was not cleared.");
  }
}

/// The count must agree with the records that are in use. Those that hold something and are not
/// marked as in use may count or not.
void RecordChecker::checkCounts(const RecordUse& use) {
  std::int64_t used = 0;
  std::int64_t unmarked = 0;
  std::int64_t firstUnmarked = 0;
  for (std::int64_t record = 1; record <= use.last(); ++record) {
    const bool isUsed = use.isUsed(record);
    if (record > highUsed_) {
      if (isUsed) {
        run_.findings.damage(
            kind::kHighUsed, file_.atRecord(0, within(record_zero::kHighUsedRecord)),
            "Record " + text(record) + " is in use, above the highest record in use, " +
                text(highUsed_) + ": it will be overwritten.");
        return;
      }
      continue;
    }
    if (isUsed) {
      ++used;
    } else if (use.state(record) == RecordState::kOther &&
               !onChain_[static_cast<std::size_t>(record)]) {
      if (unmarked++ == 0) firstUnmarked = record;
    }
  }
  if (unmarked > 0) {
    run_.findings.note(
        kind::kNotMarked, file_.atRecord(firstUnmarked),
        "Neither marked as in use nor free, but not blank: " + counted(unmarked, "record") +
            "; the first is " + text(firstUnmarked) + ".");
  }
  if (activeCount_ >= used && activeCount_ <= used + unmarked) return;
  run_.findings.damage(kind::kActiveCount, file_.atRecord(0, within(record_zero::kActiveCount)),
                       "Record zero counts " + counted(activeCount_, "record") +
                           " in use, and there are " + text(used) + ".");
}

/// Records below the highest that nobody has and that the free chain does not offer again.
void RecordChecker::checkUnused(const RecordUse& use) {
  std::int64_t cleared = 0;
  std::int64_t firstCleared = 0;
  std::int64_t blank = 0;
  std::int64_t firstBlank = 0;
  const std::int64_t last = std::min<std::int64_t>(use.last(), highUsed_);
  for (std::int64_t record = 1; record <= last; ++record) {
    if (onChain_[static_cast<std::size_t>(record)]) continue;
    const RecordState state = use.state(record);
    if (state == RecordState::kCleared && cleared++ == 0) firstCleared = record;
    if (state == RecordState::kBlank && blank++ == 0) firstBlank = record;
  }
  if (cleared > 0) {
    run_.findings.damage(kind::kFreeLost, file_.atRecord(firstCleared),
                         "Not reached by the free chain: " + counted(cleared, "freed record") +
                             "; the first is " + text(firstCleared) + ".");
  }
  if (blank > 0) {
    run_.findings.note(kind::kBlankRecords, file_.atRecord(firstBlank),
                       "Blank and not on the free chain: " + counted(blank, "record") +
                           " below the highest in use; the first is " + text(firstBlank) + ".");
  }
}

void RecordChecker::checkExtension() {
  const RecordUse* main = isExtension() ? run_.use(traits_.mainFile) : nullptr;
  if (main == nullptr) return;
  readRecordZero();
  const LogicalView& mainFile = main->file();
  const std::string header = mainFile.data->bytes(mainFile.begin(), record_zero::kSize);
  const std::int32_t mainCount = numberOf(record_zero::kActiveCount, header);
  if (mainCount != activeCount_) {
    run_.findings.note(kind::kActiveCount, file_.atRecord(0, within(record_zero::kActiveCount)),
                       "Record zero counts " + counted(activeCount_, "record") +
                           " in use, and that of " + mainFile.name +
                           ", which this file continues, " + text(mainCount) + ".");
  }
  for (std::int64_t record = main->last(); record > file_.entry.LastRecord; --record) {
    if (!main->isUsed(record)) continue;
    run_.findings.damage(kind::kExtensionShort, mainFile.atRecord(record),
                         "Record " + text(record) + " is in use, and " + file_.name +
                             ", which continues it, has no record above " +
                             text(file_.entry.LastRecord) + ".");
    return;
  }
}

}  // namespace dg::check
