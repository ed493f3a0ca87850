#pragma once

#include <cstdint>

#include "engine/logical_file.h"

namespace dg {

/// Stands against walks over a logical file that never end: links, leaves and pages of a damaged
/// file can lead in a circle. A walk has no more steps than the file has records or blocks; one
/// that does raises 6 into its routine's trap.
///
/// How many there are the directory tells as the capacity. A damaged one can tell any number, so a
/// walk that gets long is measured by the length of the physical file as well; short walks do not
/// pay for asking it. A circle ends sooner: where each place leads to just one next, a place that
/// is met again would be met for ever.
class WalkGuard {
 public:
  /// `stepsPerRecord`: for walks that visit a record or block several times, as those over the
  /// entries of an index do. The file must outlive the guard.
  explicit WalkGuard(const cLogicalFile& file, std::int64_t stepsPerRecord = 1);

  /// Counts a step to a place: a record or block number, or what else tells places apart. Raises 6
  /// for a step too many or a place met before, and what asking for the file's length raises.
  void step(std::int64_t place) {
    if (++taken_ > limit_) measure();
    if (place == mark_) raiseCircle();
    // The mark moves on at each power of two, and so falls into any circle sooner or later: no list
    // of all places is needed.
    if (taken_ != nextMark_) return;
    mark_ = place;
    nextMark_ *= 2;
  }

 private:
  static constexpr std::int64_t kNoPlace = INT64_MIN;  // chains of damaged files lead to -1 as well

  void measure();
  [[noreturn]] static void raiseCircle();

  const cLogicalFile* file_;
  std::int64_t stepsPerRecord_;
  std::int64_t taken_ = 0;
  std::int64_t limit_;
  bool measured_ = false;
  std::int64_t mark_ = kNoPlace;  ///< a place met before
  std::int64_t nextMark_ = 1;
};

}  // namespace dg
