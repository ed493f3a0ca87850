#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace dg {

/// A finite number as its decimal digits, so that display never sees binary noise. The value is
/// 0.d1d2d3... times ten to the power `exponent`; zero has no digits.
class Decimal {
 public:
  /// The 15 significant digits of a double. Raises error 6 for infinities and for no number.
  static Decimal fromDouble(double value);
  /// Exactly `value` times ten to the power of -4.
  static Decimal fromTenThousandths(std::int64_t value);

  bool isZero() const { return digits_.empty(); }
  bool isNegative() const { return negative_ && !isZero(); }
  /// The significant digits, without leading or trailing zeros.
  const std::string& digits() const { return digits_; }
  std::int64_t exponent() const { return exponent_; }

  void multiplyByPowerOfTen(std::int64_t power) {
    if (!isZero()) exponent_ += power;
  }
  /// Rounds half away from zero to so many decimals.
  void round(std::size_t decimals);

  /// The digits before the point; none for a magnitude below 1.
  std::string wholeDigits() const;
  /// The digits after the point, trailing zeros left out.
  std::string fractionDigits() const;
  /// "-0.05", "1200", "12.5".
  std::string text() const;

 private:
  Decimal(bool negative, std::string_view digits, std::int64_t exponent);
  void normalize();

  bool negative_ = false;
  std::string digits_;
  std::int64_t exponent_ = 0;
};

}  // namespace dg
