#include "engine/codec.h"

#include <algorithm>
#include <array>

#include "engine/state.h"
#include "platform/text.h"
#include "platform/values/checked.h"
#include "platform/values/convert.h"
#include "platform/values/run_time_error.h"

namespace dg {

namespace {

/// Weights of the first and the second of three codes in a 16-bit value.
constexpr unsigned kFirstWeight = 1600;
constexpr unsigned kSecondWeight = 40;
/// Characters of the table that code 10 of Stma can change.
constexpr std::size_t kMaskHeadSize = 4;

std::string quoted(char opcode) {
  return {'"', opcode, '"'};
}

/// The opcode as a letter, upper-cased in the caller's text; NUL when it is no single letter.
char foldedLetter(std::string& opcode) {
  opcode = upperCase(opcode);
  return opcode.size() == 1 ? opcode.front() : '\0';
}

char folded(char opcode) {
  return opcode >= 'a' && opcode <= 'z' ? static_cast<char>(opcode - 'a' + 'A') : opcode;
}

bool isSigned(char opcode) {
  return opcode == 'I' || opcode == 'J' || opcode == 'K';
}

[[noreturn]] void raiseUnknown(const char* source, const std::string& opcode) {
  throw RunTimeError(100, source, "Unknown OpCode = \"" + opcode + "\"");
}

/// Whether a field lies within the data; raises 5 for one that begins before it.
bool lies(std::string_view data, std::int32_t position, int width) {
  if (std::int64_t{position} + width - 1 > static_cast<std::int64_t>(data.size())) return false;
  if (position < 1) throw RunTimeError(kInvalidProcedureCall);
  return true;
}

/// The four bytes from a place within the data on, the first one highest; NUL beyond the data.
std::uint32_t fourBytes(std::string_view data, std::size_t start) {
  const auto* bytes = reinterpret_cast<const unsigned char*>(data.data()) + start;
  const std::size_t there = data.size() - start;
  if (there >= 4) {
    return std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 |
           std::uint32_t{bytes[2]} << 8 | std::uint32_t{bytes[3]};
  }
  std::uint32_t bits = 0;
  for (std::size_t i = 0; i < 4; ++i)
    bits = bits << 8 | (i < there ? bytes[i] : 0U);
  return bits;
}

std::int32_t unpackKnown(char opcode, std::string_view data, std::int32_t position) {
  std::int32_t value = 0;
  if (!tryUnpack(opcode, data, position, value)) {
    throw RunTimeError(31, "UnPack",
                       "Invalid Subscript.  UnPack(" + quoted(opcode) + ", Data$, " +
                           std::to_string(position) +
                           ")   Len(Data$) = " + std::to_string(data.size()));
  }
  return value;
}

void packKnown(char opcode, std::string& data, std::int32_t value, std::int32_t position) {
  const int width = opcodeWidth(opcode);
  if (!lies(data, position, width)) {
    throw RunTimeError(31, "Pack",
                       "Invalid Subscript.  Pack " + quoted(opcode) + ", Data$, " +
                           std::to_string(position) +
                           "   Len(Data$) = " + std::to_string(data.size()));
  }
  auto bits = static_cast<std::uint32_t>(value);
  char* field = data.data() + (position - 1);
  for (int i = width - 1; i >= 0; --i) {
    field[i] = static_cast<char>(bits & 0xFF);
    bits >>= 8;
  }
}

/// A field for a step that swallows its errors: what cannot be read is 0.
std::int32_t unpackOrZero(char opcode, std::string_view data, std::int32_t position) {
  return position < 1 ? 0 : tryUnpack(opcode, data, position).value_or(0);
}

/// The date whose month, day and two-digit year are the digits of MMDDYY. Seven digits or more
/// give a month that no year has.
Date dateFromDigits(std::int32_t digits) {
  const int year = digits % 100;
  return Date::fromCalendar(year < 30 ? 2000 + year : 1900 + year, digits / 10000,
                            digits / 100 % 100)
      .value_or(kEmptyDate);
}

/// The suite's day number to a date: number 0 is the empty date, as is 1 by arithmetic.
Date dateFromDayNumber(std::int32_t number) {
  return number == 0 ? kEmptyDate : kDayZero.plusDays(number);
}

std::int32_t toLong(const Variant& value) {
  struct Converter {
    std::int32_t operator()(std::monostate) const { return 0; }
    std::int32_t operator()(std::int32_t whole) const { return whole; }
    std::int32_t operator()(double number) const { return CLng(number); }
    std::int32_t operator()(Currency amount) const { return amount.toLong(); }
    std::int32_t operator()(Date date) const {
      return CLng(date.days() + date.secondOfDay() / 86400.0);
    }
    std::int32_t operator()(const std::string& text) const { return CLng(text); }
  };
  return std::visit(Converter{}, value);
}

bool isZero(const Variant& value) {
  try {
    return toLong(value) == 0;
  } catch (const RunTimeError&) {
    return false;
  }
}

constexpr std::array<std::uint8_t, 256> tailCodes() {
  std::array<std::uint8_t, 256> codes{};
  for (std::size_t code = kMaskHeadSize; code < kDefaultMaskTable.size(); ++code) {
    codes[static_cast<unsigned char>(kDefaultMaskTable[code])] = static_cast<std::uint8_t>(code);
  }
  return codes;
}

/// Codes of the characters that no head changes; 0 for all others.
constexpr std::array<std::uint8_t, 256> kTailCodes = tailCodes();

/// The code of every character under the table in force. What the table lacks turns into a blank.
std::array<std::uint8_t, 256> maskCodes() {
  std::array<std::uint8_t, 256> codes = kTailCodes;
  // From the right: of a character that the table holds twice the first place counts.
  for (std::size_t code = kMaskHeadSize; code-- > 0;)
    codes[static_cast<unsigned char>(MaskTable[code])] = static_cast<std::uint8_t>(code);
  return codes;
}

}  // namespace

bool tryUnpack(char opcode, std::string_view data, std::int32_t position, std::int32_t& value) {
  const int width = opcodeWidth(opcode);
  if (!lies(data, position, width)) return false;
  // The field stands at the top; an arithmetic shift down fills with the sign.
  const std::uint32_t bits = fourBytes(data, static_cast<std::size_t>(position) - 1);
  const int unused = 32 - 8 * width;
  value = isSigned(opcode) ? static_cast<std::int32_t>(bits) >> unused
                           : static_cast<std::int32_t>(bits >> unused);
  return true;
}

std::int32_t Unpack(std::string& OpCode, std::string_view Data, std::int32_t Position) {
  const char opcode = foldedLetter(OpCode);
  if (opcodeWidth(opcode) == 0) raiseUnknown("UnPack", OpCode);
  return unpackKnown(opcode, Data, Position);
}

std::int32_t Unpack(char OpCode, std::string_view Data, std::int32_t Position) {
  const char opcode = folded(OpCode);
  if (opcodeWidth(opcode) == 0) raiseUnknown("UnPack", std::string(1, opcode));
  return unpackKnown(opcode, Data, Position);
}

void Pack(std::string& OpCode, std::string& Data, std::int32_t Value, std::int32_t Position) {
  const char opcode = foldedLetter(OpCode);
  if (opcodeWidth(opcode) == 0) raiseUnknown("Pack", OpCode);
  packKnown(opcode, Data, Value, Position);
}

void Pack(char OpCode, std::string& Data, std::int32_t Value, std::int32_t Position) {
  const char opcode = folded(OpCode);
  if (opcodeWidth(opcode) == 0) raiseUnknown("Pack", std::string(1, opcode));
  packKnown(opcode, Data, Value, Position);
}

Date UnPackDate(std::string_view OpCode, std::string_view Data, std::int32_t Position) {
  if (OpCode.size() != 1) return kEmptyDate;
  switch (OpCode.front()) {
    case 'C':
    case 'J':
      return dateFromDayNumber(unpackOrZero('C', Data, Position));
    case 'D':
    case 'K':
      return dateFromDigits(unpackOrZero('D', Data, Position));
    case 'R': {
      const std::int32_t digits = unpackOrZero('D', Data, Position);
      return dateFromDigits(digits % 10000 * 100 + digits / 10000);
    }
    default:
      return kEmptyDate;
  }
}

void PackDate(std::string_view OpCode, std::string& Data, std::int32_t Position, Date Value) {
  if (OpCode.size() != 1) return;
  switch (OpCode.front()) {
    case 'C':
    case 'J': {
      const Date stored = Value == kEmptyDate ? kDayZero : Value;
      Pack('C', Data, checkedSubtract(stored.days(), kDayZero.days()), Position);
      break;
    }
    case 'D':
    case 'K': {
      // The digits of the short form, which has no leading zeros: 1/5/99 is stored as 1599 and
      // does not read back. The suite's own programs store it so.
      std::string digits = Value.shortDateText();
      std::erase(digits, '/');
      Pack('D', Data, CLng(digits), Position);
      break;
    }
    case 'R':
      Pack('D', Data, Value.year() % 100 * 10000 + Value.month() * 100 + Value.day(), Position);
      break;
    default:
      break;
  }
}

std::string Ucm(std::string& Text) {
  if (Text.size() % 2 != 0) Text.push_back('\0');
  return unpackText(Text);
}

std::string Crm(std::string& Text) {
  while (Text.size() % 3 != 0)
    Text.push_back(' ');
  return packText(Text);
}

std::string unpackText(std::string_view packed) {
  std::string text;
  unpackText(packed, text);
  return text;
}

void unpackText(std::string_view packed, std::string& text) {
  const char* const table = MaskTable.data();
  text.resize((packed.size() + 1) / 2 * 3);
  char* out = text.data();
  for (std::size_t i = 0; i < packed.size(); i += 2) {
    const unsigned high = static_cast<unsigned char>(packed[i]);
    const unsigned low = i + 1 < packed.size() ? static_cast<unsigned char>(packed[i + 1]) : 0U;
    const unsigned value = high << 8 | low;
    const unsigned firstTwo = value / kSecondWeight;
    // Values from 64000 on have the first code 40, which the table does not hold.
    const unsigned first = value / kFirstWeight;
    if (first < kMaskTableSize) *out++ = table[first];
    *out++ = table[firstTwo - first * kMaskTableSize];
    *out++ = table[value - firstTwo * kSecondWeight];
  }
  text.resize(static_cast<std::size_t>(out - text.data()));
}

std::string packText(std::string_view text) {
  const std::array<std::uint8_t, 256> codes = maskCodes();
  const auto code = [&](std::size_t at) -> unsigned {
    return at < text.size() ? codes[static_cast<unsigned char>(text[at])] : 0U;
  };
  std::string packed((text.size() + 2) / 3 * 2, '\0');
  char* out = packed.data();
  for (std::size_t i = 0; i < text.size(); i += 3) {
    const unsigned value = code(i) * kFirstWeight + code(i + 1) * kSecondWeight + code(i + 2);
    *out++ = static_cast<char>(value >> 8);
    *out++ = static_cast<char>(value & 0xFF);
  }
  return packed;
}

void setMaskHead(std::string_view head) {
  if (head.size() != kMaskHeadSize) return;
  std::copy(head.begin(), head.end(), MaskTable.begin());
}

void Stma(const Variant& Code, Variant& A1, Variant& A2, Variant& A3, Variant& A4, Variant& A5) {
  switch (toLong(Code)) {
    case 10:
      if (isZero(A1)) setMaskHead(toText(A2));
      break;
    case 11: {
      const Date date = dateFromDayNumber(toLong(A1));
      A5 = date;
      A2 = date.month();
      A3 = date.day();
      A4 = date.year() % 100;
      break;
    }
    case 12: {
      if (toLong(A2) == 1 && toLong(A3) == 1 && toLong(A4) == 68) {
        A1 = 0;
        break;
      }
      const Date date = Date::fromText(toText(A2) + "/" + toText(A3) + "/" + toText(A4));
      A1 = checkedSubtract(date.days(), kDayZero.days());
      break;
    }
    default:
      break;
  }
}

}  // namespace dg
