#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "engine/codec.h"
#include "tools/check/logical_view.h"

namespace dg::check {

/// A number in a sentence.
inline std::string text(std::int64_t number) {
  return std::to_string(number);
}

/// "1 record", "2 records".
inline std::string counted(std::int64_t number, std::string_view noun) {
  return text(number) + " " + std::string(noun) + (number == 1 ? "" : "s");
}

/// A field at a 1-based position; 0 where the bytes end before it. Callers have the bytes.
inline std::int32_t field(char opcode, std::string_view bytes, std::int32_t position) {
  return tryUnpack(opcode, bytes, position).value_or(0);
}

/// Places count bytes from 0, positions in records and blocks count from 1.
constexpr std::int64_t within(std::int32_t position) {
  return position - 1;
}

}  // namespace dg::check
