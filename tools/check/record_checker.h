#pragma once

#include <cstdint>
#include <vector>

#include "tools/check/check_run.h"

namespace dg::check {

/// Examines a record file's allocation: record zero by itself, and against its records and their
/// free chain.
class RecordChecker {
 public:
  RecordChecker(CheckRun& run, const LogicalView& file);

  /// Record zero alone, in one read.
  void checkRecordZero();
  /// The records: reads them all, and leaves their use in the run. Which records of an extension
  /// file are in use is the main file's to say.
  void checkRecords();
  /// An extension file against the records that it continues; nothing for another file. Not before
  /// the records of both.
  void checkExtension();

 private:
  void readRecordZero();
  void checkFreeChain(const RecordUse& use);
  void checkFreeRecord(const RecordUse& use, std::int64_t record);
  void checkCounts(const RecordUse& use);
  void checkUnused(const RecordUse& use);
  bool isExtension() const { return !traits_.mainFile.empty(); }

  CheckRun& run_;
  const LogicalView& file_;
  RecordFileTraits traits_;
  std::int32_t freeHead_ = 0;
  std::int32_t highUsed_ = 0;
  std::int32_t activeCount_ = 0;
  std::vector<bool> onChain_;  // by record number
};

}  // namespace dg::check
