#pragma once

#include <cstdint>

#include "platform/run_time_error.h"

namespace dg {

/// Stands against walks that never end: chains in damaged files can loop. A walk cannot take more
/// steps than the file has records or blocks; one that does raises 6 into its routine's trap.
class StepGuard {
 public:
  explicit StepGuard(std::int64_t limit) : left_(limit) {}
  void step() {
    if (left_-- <= 0) throw RunTimeError(kOverflow);
  }

 private:
  std::int64_t left_;
};

}  // namespace dg
