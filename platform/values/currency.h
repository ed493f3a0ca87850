#pragma once

#include <compare>
#include <cstdint>
#include <limits>
#include <string>

#include "platform/values/run_time_error.h"

namespace dg {

/// Money and quantities: a fixed-point number of four decimals, held as a 64-bit integer of
/// ten-thousandths. Sums and differences are exact; a result out of range raises error 6.
class Currency {
 public:
  static constexpr std::int64_t kUnit = 10000;

  constexpr Currency() = default;
  constexpr explicit Currency(std::int32_t whole) : value_(whole * kUnit) {}

  static constexpr Currency fromTenThousandths(std::int64_t value) {
    Currency result;
    result.value_ = value;
    return result;
  }
  /// A stored integer divided by its scale (1, 10 or 100), exactly.
  static constexpr Currency fromScaled(std::int32_t stored, std::int32_t scale) {
    return fromTenThousandths(stored * (kUnit / scale));
  }
  /// The nearest ten-thousandth, halves to even; raises error 6 when out of range or not a number.
  static Currency fromDouble(double value);

  constexpr std::int64_t tenThousandths() const { return value_; }
  double toDouble() const { return static_cast<double>(value_) / static_cast<double>(kUnit); }
  /// The nearest whole number, halves to the even neighbour; raises error 6 beyond 32 bits.
  std::int32_t toLong() const;
  /// The nearest whole number, halves to the even neighbour.
  Currency rounded() const;
  /// The integer to store for this value at a scale of 1, 10 or 100, halves to even; error 6
  /// beyond 32 bits.
  std::int32_t toScaled(std::int32_t scale) const;
  /// Plain text: no trailing zeros, no separators ("12.5", "-.05" is "-0.05").
  std::string text() const;

  constexpr Currency abs() const { return value_ < 0 ? -*this : *this; }
  /// The lowest value has no counterpart and raises error 6.
  constexpr Currency operator-() const {
    if (value_ == std::numeric_limits<std::int64_t>::min()) throw RunTimeError(kOverflow);
    return fromTenThousandths(-value_);
  }
  Currency& operator+=(Currency other);
  Currency& operator-=(Currency other);
  friend Currency operator+(Currency a, Currency b) { return a += b; }
  friend Currency operator-(Currency a, Currency b) { return a -= b; }
  constexpr bool operator==(const Currency&) const = default;
  constexpr std::strong_ordering operator<=>(const Currency& other) const {
    return value_ <=> other.value_;
  }

 private:
  std::int64_t value_ = 0;
};

}  // namespace dg
