#pragma once

#include <string>
#include <utility>

#include "engine/codec.h"
#include "engine/state.h"
#include "records/failure_log.h"

namespace dg {

/// While it lives, reading leaves no trace that a view could see: failures that record classes trap
/// go to no log, and the packed-text table comes back with the head that it had.
class QuietScope {
 public:
  QuietScope() : log_(setFailureLog({})), table_(MaskTable) {}
  ~QuietScope() {
    MaskTable = table_;
    setFailureLog(std::move(log_));
  }
  QuietScope(const QuietScope&) = delete;
  QuietScope& operator=(const QuietScope&) = delete;

 private:
  FailureLog log_;
  std::string table_;
};

}  // namespace dg
