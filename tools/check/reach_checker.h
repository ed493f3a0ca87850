#pragma once

#include <span>

#include "tools/check/check_run.h"

namespace dg::check {

/// Holds an index against the records that it leads to: no entry may lead to a free record, and an
/// index that has all records must lead to each record in use.
class ReachChecker {
 public:
  explicit ReachChecker(CheckRun& run) : run_(run) {}
  /// Raises nothing: all was read before.
  void check(const IndexTraits& traits);

 private:
  void checkUnreached(const RecordUse& use, const std::vector<bool>& reached,
                      const std::string& index);

  CheckRun& run_;
};

}  // namespace dg::check
