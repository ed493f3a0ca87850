#pragma once

#include <string_view>

#include "tools/check/check_run.h"

namespace dg::check {

/// Examines the document files that PUTBI and RTTBI name. Findings stand at the index entry.
class DocumentChecker {
 public:
  explicit DocumentChecker(CheckRun& run) : run_(run) {}
  void check(std::string_view index);

 private:
  void checkDocument(const std::string& name, const Place& place);

  CheckRun& run_;
};

}  // namespace dg::check
