#pragma once

#include <cstdint>

namespace dg {

/// `value` divided by a positive divisor, halves to the even neighbour.
constexpr std::int64_t divideHalfEven(std::int64_t value, std::int64_t divisor) {
  const std::int64_t quotient = value / divisor;
  const std::int64_t remainder = value % divisor;
  const std::int64_t magnitude = remainder < 0 ? -remainder : remainder;
  const std::int64_t rest = divisor - magnitude;
  if (magnitude < rest || (magnitude == rest && quotient % 2 == 0)) return quotient;
  return value < 0 ? quotient - 1 : quotient + 1;
}

}  // namespace dg
