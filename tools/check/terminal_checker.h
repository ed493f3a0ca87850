#pragma once

#include "tools/check/check_run.h"

namespace dg::check {

/// Examines the terminal table, without which no program starts.
class TerminalChecker {
 public:
  explicit TerminalChecker(CheckRun& run) : run_(run) {}
  void check();

 private:
  CheckRun& run_;
};

}  // namespace dg::check
