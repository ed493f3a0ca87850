#include "tools/check/control_checker.h"

#include <iterator>

#include "engine/open_file.h"
#include "records/control_file.h"
#include "tools/check/text.h"

namespace dg::check {

namespace {

using namespace control_file;

/// Readers look at no block behind the job table.
constexpr std::int64_t kBlocksRead = std::end(kJobs)[-1].last + 1;

}  // namespace

Place ControlChecker::placeOf(std::int64_t block, std::int64_t within) const {
  return {.file = files::kControlFile,
          .physical = run_.store.physicalName(files::kControlFile),
          .unit = Unit::kBlock,
          .number = block,
          .offset = block * kBlockSize + within};
}

void ControlChecker::checkLength() {
  const std::string name = files::kControlFile;
  const Place place{.file = name, .physical = run_.store.physicalName(name)};
  std::string error;
  switch (run_.store.open(run_.store.storePath(name), place.physical, file_, error)) {
    case Presence::kThere:
      break;
    case Presence::kUnreadable:
      run_.findings.damage(kind::kUnreadable, place,
                           "The control file cannot be read: " + error + ".");
      return;
    default:
      run_.findings.damage(kind::kControlFile, place, "The control file is not there.");
      return;
  }
  const std::int64_t size = file_->size();
  if (size < kBlocksRead * kBlockSize) {
    run_.findings.damage(kind::kControlFile, place,
                         "The control file has " + text(size) + " bytes; its tables end at byte " +
                             text(kBlocksRead * kBlockSize) + ".");
  } else if (size % kBlockSize != 0) {
    run_.findings.note(
        kind::kControlFile, place,
        "The control file has " + text(size) + " bytes, which is no whole number of blocks.");
  }
}

void ControlChecker::checkTables(PageChainChecker& pages) {
  if (!file_) return;
  checkSavedInvoices(pages);
  for (const Blocks& range : kJobs)
    checkJobs(pages, range.first, range.last);
}

void ControlChecker::checkJobs(PageChainChecker& pages, std::int32_t firstBlock,
                               std::int32_t lastBlock) {
  for (std::int32_t block = firstBlock; block <= lastBlock; ++block) {
    const std::string bytes = file_->bytes(std::int64_t{block} * kBlockSize, kBlockSize);
    for (std::int32_t slot = 0; slot < kJobsPerBlock; ++slot) {
      const std::int32_t record = numberOf(jobSlot(slot), bytes);
      if (record < 1) continue;  // free
      pages.checkDocument(record, placeOf(block, within(jobSlot(slot))),
                          "the job of slot " + text(slot) + " in block " + text(block),
                          kind::kJobSlot);
    }
  }
}

void ControlChecker::checkSavedInvoices(PageChainChecker& pages) {
  for (std::int32_t block = kSavedInvoices.first; block <= kSavedInvoices.last; ++block) {
    const std::string bytes = file_->bytes(std::int64_t{block} * kBlockSize, kBlockSize);
    for (std::int32_t group = 0; group < kSavedGroups; ++group) {
      for (std::int32_t slot = 0; slot < kSavedPerGroup; ++slot) {
        const NumberField field = savedSlot(group, slot);
        const std::int32_t record = numberOf(field, bytes);
        if (record == 0) continue;  // free
        pages.checkDocument(record, placeOf(block, within(field)),
                            "the saved invoice of slot " + text(slot) + " in group " + text(group) +
                                " of block " + text(block),
                            kind::kSavedSlot);
      }
    }
  }
}

}  // namespace dg::check
