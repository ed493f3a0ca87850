#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/values/date.h"
#include "platform/values/variant.h"

namespace dg {

/// Bytes of an integer field by its opcode (B, C, D, I, J, K, L), 0 for any other letter.
/// The letter counts as it is; the public operations upper-case theirs first.
constexpr int opcodeWidth(char opcode) {
  switch (opcode) {
    case 'B':
    case 'I':
      return 1;
    case 'C':
    case 'J':
      return 2;
    case 'D':
    case 'K':
      return 3;
    case 'L':
      return 4;
    default:
      return 0;
  }
}

/// Reads a field's value; false, and `value` as it was, when the field lies beyond the end of
/// `data`. Positions count from 1. The opcode must be one of the seven.
bool tryUnpack(char opcode, std::string_view data, std::int32_t position, std::int32_t& value);
/// The same as an optional. Inline: loads decode millions of fields, and an optional that crosses a
/// call goes through memory.
inline std::optional<std::int32_t> tryUnpack(char opcode, std::string_view data,
                                             std::int32_t position) {
  std::int32_t value = 0;
  if (!tryUnpack(opcode, data, position, value)) return std::nullopt;
  return value;
}

// The codec's public operations, as cBusinessBasic offers them; see there.
std::int32_t Unpack(std::string& OpCode, std::string_view Data, std::int32_t Position);
void Pack(std::string& OpCode, std::string& Data, std::int32_t Value, std::int32_t Position);
Date UnPackDate(std::string_view OpCode, std::string_view Data, std::int32_t Position);
void PackDate(std::string_view OpCode, std::string& Data, std::int32_t Position, Date Value);
std::string Ucm(std::string& Text);
std::string Crm(std::string& Text);
void Stma(const Variant& Code, Variant& A1, Variant& A2, Variant& A3, Variant& A4, Variant& A5);

// The same with the opcode as a letter, for callers that hold constants.
std::int32_t Unpack(char OpCode, std::string_view Data, std::int32_t Position);
void Pack(char OpCode, std::string& Data, std::int32_t Value, std::int32_t Position);

/// Decodes packed text under the table in force, leaving the source alone.
std::string unpackText(std::string_view packed);
/// The same in place of what `text` holds: a record that is read again and again keeps its memory.
void unpackText(std::string_view packed, std::string& text);
/// Encodes text under the table in force, leaving the source alone: two bytes for each three
/// characters begun.
std::string packText(std::string_view text);

/// Overwrites the head of the table: the first four characters (Stma code 10). A text of another
/// length changes nothing.
void setMaskHead(std::string_view head);

}  // namespace dg
