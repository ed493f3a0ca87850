#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "engine/layout.h"
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

/// A field's number; 0 where the bytes end before it. Callers have the bytes.
inline std::int32_t numberOf(NumberField field, std::string_view bytes) {
  return tryUnpack(field.opcode, bytes, field.position).value_or(0);
}

/// Places count bytes from 0, positions in records and blocks count from 1.
constexpr std::int64_t within(NumberField field) {
  return field.position - 1;
}

}  // namespace dg::check
