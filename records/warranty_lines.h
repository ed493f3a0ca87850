#pragma once

#include <cstdint>

#include "records/line_builder.h"

namespace dg {

/// The lines and totals of a warranty claim. Totals are in hundredths of the money unit.
class clsWarrDetail final : public LineBuilder {
 public:
  clsWarrDetail();

  /// The claim's number as the index "WARRI" has it: the shop reference, with a two-digit segment
  /// behind it where claims are made by segment.
  void ShopRef(std::int32_t number) { shopRef_ = number; }
  /// Whether the lines are meant for display. Stored, and nothing reads it.
  void DDisplay(bool display) { dDisplay_ = display; }
  /// Finds the claim, or the next one in the index, and reads its pages. Failures are logged and
  /// set DetailError.
  void GetDetail();

  double WarrPartTotal() const { return total(LineTotal::kPart); }
  double WarrLabTotal() const { return total(LineTotal::kLabor); }

 private:
  std::int32_t shopRef_ = 0;
  [[maybe_unused]] bool dDisplay_ = false;
};

}  // namespace dg
