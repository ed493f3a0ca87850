#include "platform/values/currency.h"

#include <cmath>

#include "platform/values/decimal.h"
#include "platform/values/rounding.h"

namespace dg {

namespace {

std::int32_t toInt32(std::int64_t value) {
  if (value < std::numeric_limits<std::int32_t>::min() ||
      value > std::numeric_limits<std::int32_t>::max()) {
    throw RunTimeError(kOverflow);
  }
  return static_cast<std::int32_t>(value);
}

}  // namespace

Currency Currency::fromDouble(double value) {
  constexpr double kLimit = 9223372036854775808.0;  // 2 to the power of 63
  const double scaled = value * static_cast<double>(kUnit);
  // Written so that a value that is no number fails too.
  if (!(scaled >= -kLimit && scaled < kLimit)) throw RunTimeError(kOverflow);
  // The product is itself rounded; what that lost decides what looks like a half.
  const double lost = std::fma(value, static_cast<double>(kUnit), -scaled);
  const double below = std::floor(scaled);
  const double part = scaled - below;
  auto result = static_cast<std::int64_t>(below);
  const bool half = part == 0.5;
  if (part > 0.5 || (half && (lost > 0 || (lost == 0 && result % 2 != 0)))) ++result;
  return fromTenThousandths(result);
}

std::int32_t Currency::toLong() const {
  return toInt32(divideHalfEven(value_, kUnit));
}

Currency Currency::rounded() const {
  return fromTenThousandths(divideHalfEven(value_, kUnit) * kUnit);
}

std::int32_t Currency::toScaled(std::int32_t scale) const {
  return toInt32(divideHalfEven(value_, kUnit / scale));
}

std::string Currency::text() const {
  return Decimal::fromTenThousandths(value_).text();
}

Currency& Currency::operator+=(Currency other) {
  if (__builtin_add_overflow(value_, other.value_, &value_)) throw RunTimeError(kOverflow);
  return *this;
}

Currency& Currency::operator-=(Currency other) {
  if (__builtin_sub_overflow(value_, other.value_, &value_)) throw RunTimeError(kOverflow);
  return *this;
}

}  // namespace dg
