#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "engine/codec.h"
#include "platform/text.h"

namespace dg {

// Layouts of what no record class covers: each stands once, as a table of these in the header of
// what it describes, and readers, views and checkers name its fields. docs/formats.md is compared
// with them.

/// An integer field: its opcode, and where it begins. Positions count from 1.
struct NumberField {
  char opcode = ' ';
  std::int32_t position = 0;

  constexpr std::int32_t width() const { return opcodeWidth(opcode); }
  /// The same field so many bytes further on: an element of a list, or a part of a larger layout.
  constexpr NumberField behind(std::int32_t bytes) const { return {opcode, position + bytes}; }
};

/// A field of text, raw or packed.
struct TextField {
  std::int32_t position = 0;
  std::int32_t width = 0;

  constexpr TextField behind(std::int32_t bytes) const { return {position + bytes, width}; }
};

/// A number; raises 31 where the field lies beyond the end of `data`.
inline std::int32_t Unpack(NumberField field, std::string_view data) {
  return Unpack(field.opcode, data, field.position);
}
inline void Pack(NumberField field, std::string& data, std::int32_t value) {
  Pack(field.opcode, data, value, field.position);
}

/// The bytes there are of a text, as they stand: perhaps fewer than its width, or none.
inline std::string_view bytesOf(TextField field, std::string_view data) {
  return middle(data, static_cast<std::size_t>(field.position),
                static_cast<std::size_t>(field.width));
}

}  // namespace dg
