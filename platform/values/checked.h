#pragma once

#include <cstdint>

#include "platform/values/run_time_error.h"

namespace dg {

/// 32-bit arithmetic as the run-time does it: a result that does not fit raises error 6.
inline std::int32_t checkedAdd(std::int32_t a, std::int32_t b) {
  std::int32_t result = 0;
  if (__builtin_add_overflow(a, b, &result)) throw RunTimeError(kOverflow);
  return result;
}

inline std::int32_t checkedSubtract(std::int32_t a, std::int32_t b) {
  std::int32_t result = 0;
  if (__builtin_sub_overflow(a, b, &result)) throw RunTimeError(kOverflow);
  return result;
}

inline std::int32_t checkedMultiply(std::int32_t a, std::int32_t b) {
  std::int32_t result = 0;
  if (__builtin_mul_overflow(a, b, &result)) throw RunTimeError(kOverflow);
  return result;
}

/// The magnitude of a value; that of the lowest integer does not fit and raises error 6.
inline std::int32_t checkedAbs(std::int32_t value) {
  return value < 0 ? checkedSubtract(0, value) : value;
}

}  // namespace dg
