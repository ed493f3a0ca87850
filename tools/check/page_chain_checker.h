#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tools/check/check_run.h"

namespace dg::check {

/// Examines the documents of INVOL or WARRL: chains of pages that must lead to page 1 and hold
/// every page up to the highest.
class PageChainChecker {
 public:
  /// `use` is the use of the file's records.
  PageChainChecker(CheckRun& run, const RecordUse& use);

  /// Walks the chain of a document. What leads to it stands at `place` and is called `source`, as
  /// "the slot of job 12". A start that is not in use is a finding of the given kind there.
  void checkDocument(std::int32_t start, const Place& place, const std::string& source,
                     std::string_view badStart);
  /// Notes records in use that no document has.
  void noteUnreached();

 private:
  struct Page {
    std::int32_t number = 0;
    std::int64_t link = 0;
    std::int32_t lines = 0;
  };
  class Walk;

  bool hasRoomForHeader();
  Page readPage(std::int64_t record) const;
  void checkLines(std::int64_t record, const Page& page);

  CheckRun& run_;
  const RecordUse& use_;
  const LogicalView& file_;
  bool hasRoom_;
  /// By record: the document that has it, counted from 1 in the order of checkDocument; 0 for none.
  std::vector<std::uint32_t> owner_;
  std::uint32_t documents_ = 0;
};

}  // namespace dg::check
