#include "tools/check/page_chain_checker.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>

#include "records/page_record.h"
#include "tools/check/text.h"

namespace dg::check {

using namespace page_record;

/// The pages of one chain as it is walked.
class PageChainChecker::Walk {
 public:
  /// Returns false for a page number that the chain has had.
  bool add(std::int32_t page) {
    const auto place = static_cast<std::size_t>(page);
    highest_ = std::max(highest_, page);
    return !std::exchange(seen_[place], true);
  }
  /// The lowest page number below the highest that was not met; 0 when none is missing.
  std::int32_t firstMissing() const {
    for (std::int32_t page = 1; page < highest_; ++page) {
      if (!seen_[static_cast<std::size_t>(page)]) return page;
    }
    return 0;
  }
  std::int32_t highest() const { return highest_; }

 private:
  std::array<bool, kHighestPage + 1> seen_{};
  std::int32_t highest_ = 0;
};

PageChainChecker::PageChainChecker(CheckRun& run, const RecordUse& use)
    : run_(run), use_(use), file_(use.file()), hasRoom_(hasRoomForHeader()) {
  owner_.assign(static_cast<std::size_t>(use.last()) + 1, 0);
}

bool PageChainChecker::hasRoomForHeader() {
  if (file_.entry.RecordLength >= kLines - 1) return true;
  run_.findings.damage(kind::kRecordLength, file_.whole(),
                       "The records have " + text(file_.entry.RecordLength) +
                           " bytes; a page's lines begin at byte " + text(kLines - 1) + ".");
  return false;
}

PageChainChecker::Page PageChainChecker::readPage(std::int64_t record) const {
  const std::string bytes = file_.record(record);
  return {.number = numberOf(kNumber, bytes),
          .link = std::abs(std::int64_t{numberOf(kLink, bytes)}),
          .lines = numberOf(kLineCount, bytes)};
}

void PageChainChecker::checkLines(std::int64_t record, const Page& page) {
  const std::int32_t room = (file_.entry.RecordLength - (kLines - 1)) / kLineWidth;
  if (page.lines <= room) return;
  run_.findings.damage(kind::kPageLines, file_.atRecord(record, within(kLineCount)),
                       "Page " + text(page.number) + " in record " + text(record) + " counts " +
                           text(page.lines) + " lines; a record has room for " + text(room) + ".");
}

void PageChainChecker::checkDocument(std::int32_t start, const Place& place,
                                     const std::string& source, std::string_view badStart) {
  if (!hasRoom_) return;
  if (!use_.isValidTarget(start)) {
    run_.findings.damage(badStart, place,
                         "It leads " + source + " to record " + text(start) + " of " + file_.name +
                             ", which is not in use.");
    return;
  }
  if (owner_[static_cast<std::size_t>(start)] != 0) {
    run_.findings.note(kind::kPageShared, place,
                       "Record " + text(start) + " of " + file_.name + ", where it leads " +
                           source + ", belongs to another document as well.");
    return;
  }
  ++documents_;
  Walk walk;
  std::int64_t record = start;
  for (;;) {
    owner_[static_cast<std::size_t>(record)] = documents_;
    const Page page = readPage(record);
    const Place link = file_.atRecord(record, within(kLink));
    checkLines(record, page);
    if (page.number < 1 || page.number > kHighestPage) {
      run_.findings.damage(kind::kPageNumber, file_.atRecord(record, within(kNumber)),
                           "Record " + text(record) +
                               " is on a chain of pages with the page number " + text(page.number) +
                               "; pages go from 1 to " + text(kHighestPage) + ".");
      return;
    }
    if (!walk.add(page.number)) {
      run_.findings.damage(kind::kPageNumber, file_.atRecord(record, within(kNumber)),
                           "Record " + text(record) + " is a second page " + text(page.number) +
                               " of its document.");
    }
    if (page.number == 1) break;
    if (!use_.isValidTarget(page.link)) {
      run_.findings.damage(kind::kPageLink, link,
                           "Page " + text(page.number) + " in record " + text(record) +
                               " links to record " + text(page.link) + ", which is not in use.");
      return;
    }
    const std::uint32_t owner = owner_[static_cast<std::size_t>(page.link)];
    if (owner == documents_) {
      run_.findings.damage(kind::kPageLoop, link,
                           "Page " + text(page.number) + " in record " + text(record) +
                               " links back to record " + text(page.link) +
                               ": the chain never comes to page 1.");
      return;
    }
    if (owner != 0) {
      run_.findings.note(kind::kPageShared, link,
                         "Page " + text(page.number) + " in record " + text(record) +
                             " links to record " + text(page.link) +
                             ", which belongs to another document as well.");
      return;
    }
    record = page.link;
  }
  const std::int32_t missing = walk.firstMissing();
  if (missing != 0) {
    run_.findings.damage(kind::kPageGap, file_.atRecord(start),
                         "The document that begins at record " + text(start) + " has " +
                             text(walk.highest()) + " pages, but no page " + text(missing) + ".");
  }
}

/// Finished documents stay in the file for a while, so these need be no loss.
void PageChainChecker::noteUnreached() {
  if (!hasRoom_) return;
  std::int64_t count = 0;
  std::int64_t first = 0;
  for (std::int64_t record = 1; record <= use_.last(); ++record) {
    if (!use_.isUsed(record) || owner_[static_cast<std::size_t>(record)] != 0) continue;
    if (count++ == 0) first = record;
  }
  if (count == 0) return;
  run_.findings.note(kind::kPagesUnreached, file_.atRecord(first),
                     "Not part of any open document: " + counted(count, "record") +
                         " in use; the first is " + text(first) + ".");
}

}  // namespace dg::check
