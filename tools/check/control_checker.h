#pragma once

#include <cstdint>
#include <memory>

#include "tools/check/check_run.h"
#include "tools/check/page_chain_checker.h"

namespace dg::check {

/// Examines the control file: its length, and the tables of open jobs and saved invoices in it.
class ControlChecker {
 public:
  explicit ControlChecker(CheckRun& run) : run_(run) {}

  /// Opens the file and examines its length.
  void checkLength();
  /// Walks the documents that the tables lead to. Not before checkLength.
  void checkTables(PageChainChecker& pages);

 private:
  void checkJobs(PageChainChecker& pages, std::int32_t firstBlock, std::int32_t lastBlock);
  void checkSavedInvoices(PageChainChecker& pages);
  Place placeOf(std::int64_t block, std::int64_t within) const;

  CheckRun& run_;
  std::shared_ptr<StoreFile> file_;
};

}  // namespace dg::check
