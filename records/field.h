#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "engine/layout.h"
#include "platform/values/currency.h"
#include "platform/values/date.h"

namespace dg {

/// A record class as data: one constexpr table of fields in the order in which they are read, which
/// reads like the format's own description. Unpack and Pack are one loop each over it.
///
///     constexpr Field<clsExample> kFields[] = {
///         integer(3, 'C', DG_MEMBER(Line)),
///         packedText(5, 2, DG_MEMBER(Alpha_Line)),
///         dashedText(5, 14, DG_MEMBER(Part_w_Dash)),
///         scaled(75, 'L', 100, DG_MEMBER(Cost_of_Mdse)),
///         wholeCurrency(81, 'C', DG_MEMBER(EstimateAmount)),
///         date(205, 'J', DG_MEMBER(Seas_Date_Last_Gen)),
///         bit(92, 'B', 0, DG_MEMBER(Part_Sales_Trackng)),
///         integer(120, 'B', DG_ELEMENT(CallStatus, 0)),
///         bounded(integer(285, 'C', DG_MEMBER(Area_Code_2)), 999),
///         maskHead(kDashHead),
///         rule(141, 3, &unpackShipTo, &packShipTo, DG_MEMBER(ShipTo)),
///         member(DG_MEMBER(RecordNumber)),
///     };
///
/// Positions count from 1, widths are in bytes. Inside a class template argument `Self` names the
/// class: the macros need it in scope.
enum class Encoding : std::uint8_t {
  kInteger,     ///< opcode; a 32-bit member, or currency at a scale
  kRawText,     ///< the bytes as they are
  kPackedText,  ///< three characters in two bytes
  kDashedText,  ///< packed text and behind it the places of its dashes
  kDate,        ///< date opcode
  kBit,         ///< one bit of an integer field, 0 or 1 in a 16-bit member
  kMaskHead,    ///< no field: sets the head of the packed-text table for what follows
  kCharacter,   ///< one character of a packed text, by its place from 0
  kRule,        ///< a step of the class's own at this place in the order
  kMember,      ///< no field: a member that the record does not hold
};

/// The heads that the packed-text table has had: texts behind the one show "/", behind the other
/// "-".
inline constexpr std::string_view kSlashHead = " ,/.";
inline constexpr std::string_view kDashHead = " ,-.";

/// How a table reaches a member of an instance.
template <class R>
using Accessor =
    std::variant<std::monostate, std::int32_t& (*)(R&), std::int16_t& (*)(R&), Currency& (*)(R&),
                 std::string& (*)(R&), Date& (*)(R&), std::vector<std::string>& (*)(R&)>;

template <class R>
struct NamedMember {
  std::string_view name;
  int element = -1;  ///< index in an array member, -1 for a plain one
  Accessor<R> access;
};

/// A class's own way with the bytes of a field.
template <class R>
using UnpackRule = void (*)(R& self, const std::string& record, TextField field);
template <class R>
using PackRule = void (*)(const R& self, std::string& record, TextField field);

template <class R>
struct Field {
  Encoding encoding = Encoding::kMember;
  char opcode = ' ';
  bool reads = true;
  bool writes = true;
  int position = 0;
  int width = 0;
  int scaleOrBit = 1;         ///< or the place of a character, or where a dash mask stands
  std::int32_t highest = -1;  ///< a number above it, or below 0, reads as 0; none while negative
  NamedMember<R> member = {};
  std::string_view head = {};
  UnpackRule<R> unpackRule = nullptr;
  PackRule<R> packRule = nullptr;
};

namespace record_table {

/// Ends the compilation of a table whose kind of field does not fit its member.
template <class T, class R>
constexpr void require(const NamedMember<R>& member) {
  if (!std::holds_alternative<T& (*)(R&)>(member.access)) throw "a member of another type";
}

template <class Pointer>
struct MemberOf;
template <class R, class T>
struct MemberOf<T R::*> {
  using Class = R;
  using Type = T;
};

template <class Function>
struct StepOf;
template <class R>
struct StepOf<void (*)(R&)> {
  using Class = R;
};

template <auto Pointer>
constexpr auto plain(std::string_view name) {
  using Class = typename MemberOf<decltype(Pointer)>::Class;
  using Type = typename MemberOf<decltype(Pointer)>::Type;
  return NamedMember<Class>{
      name, -1, static_cast<Type& (*)(Class&)>([](Class& self) -> Type& { return self.*Pointer; })};
}

template <auto Pointer, std::size_t Index>
constexpr auto element(std::string_view name) {
  using Class = typename MemberOf<decltype(Pointer)>::Class;
  using Type = typename MemberOf<decltype(Pointer)>::Type::value_type;
  return NamedMember<Class>{
      name, static_cast<int>(Index),
      static_cast<Type& (*)(Class&)>([](Class& self) -> Type& { return (self.*Pointer)[Index]; })};
}

}  // namespace record_table

#define DG_MEMBER(name) ::dg::record_table::plain<&Self::name>(#name)
#define DG_ELEMENT(name, index) ::dg::record_table::element<&Self::name, index>(#name)

/// An integer field into a 32-bit member.
template <class R>
constexpr Field<R> integer(int position, char opcode, NamedMember<R> member) {
  record_table::require<std::int32_t, R>(member);
  return {.encoding = Encoding::kInteger,
          .opcode = opcode,
          .position = position,
          .width = opcodeWidth(opcode),
          .member = member};
}
template <class R>
constexpr Field<R> integer(NumberField field, NamedMember<R> member) {
  return integer(field.position, field.opcode, member);
}
/// An integer field divided by `scale` (10 or 100) into a currency member.
template <class R>
constexpr Field<R> scaled(int position, char opcode, int scale, NamedMember<R> member) {
  record_table::require<Currency, R>(member);
  return {.encoding = Encoding::kInteger,
          .opcode = opcode,
          .position = position,
          .width = opcodeWidth(opcode),
          .scaleOrBit = scale,
          .member = member};
}
template <class R>
constexpr Field<R> scaled(NumberField field, int scale, NamedMember<R> member) {
  return scaled(field.position, field.opcode, scale, member);
}
/// An integer field into a currency member as it stands.
template <class R>
constexpr Field<R> wholeCurrency(int position, char opcode, NamedMember<R> member) {
  return scaled(position, opcode, 1, member);
}
template <class R>
constexpr Field<R> rawText(int position, int width, NamedMember<R> member) {
  return {.encoding = Encoding::kRawText, .position = position, .width = width, .member = member};
}
template <class R>
constexpr Field<R> packedText(int position, int width, NamedMember<R> member) {
  return {
      .encoding = Encoding::kPackedText, .position = position, .width = width, .member = member};
}
template <class R>
constexpr Field<R> packedText(TextField field, NamedMember<R> member) {
  return packedText(field.position, field.width, member);
}
/// A part number in packed text whose last characters are its dash mask, shown with its dashes. In
/// front of the mask stand `digits` characters, or all but the last three where that is 0: the two
/// differ where the record ends within the field.
template <class R>
constexpr Field<R> dashedText(int position, int width, NamedMember<R> member, int digits = 0) {
  return {.encoding = Encoding::kDashedText,
          .position = position,
          .width = width,
          .scaleOrBit = digits,
          .member = member};
}
template <class R>
constexpr Field<R> date(int position, char opcode, NamedMember<R> member) {
  return {.encoding = Encoding::kDate,
          .opcode = opcode,
          .position = position,
          .width = opcode == 'C' || opcode == 'J' ? 2 : 3,
          .member = member};
}
template <class R>
constexpr Field<R> bit(int position, char opcode, int bitNumber, NamedMember<R> member) {
  return {.encoding = Encoding::kBit,
          .opcode = opcode,
          .position = position,
          .width = opcodeWidth(opcode),
          .scaleOrBit = bitNumber,
          .member = member};
}
/// Sets the packed-text table's head for the fields behind it, and for all later decodes.
template <class R>
constexpr Field<R> maskHead(std::string_view head) {
  return {.encoding = Encoding::kMaskHead, .head = head};
}
/// One character of the text that the bytes from `position` on decode to; `width` as far as they
/// are decoded. Nothing of it is written.
template <class R>
constexpr Field<R> character(int position, int width, int place, NamedMember<R> member) {
  return {.encoding = Encoding::kCharacter,
          .writes = false,
          .position = position,
          .width = width,
          .scaleOrBit = place,
          .member = member};
}
/// A step of the class's own over so many bytes; either half may be empty. `member` names what it
/// fills, for display.
template <class R>
constexpr Field<R> rule(int position, int width, UnpackRule<R> unpack, PackRule<R> pack,
                        NamedMember<R> member = {}) {
  return {.encoding = Encoding::kRule,
          .position = position,
          .width = width,
          .member = member,
          .unpackRule = unpack,
          .packRule = pack};
}
/// A step that looks at members only.
template <auto Step>
constexpr auto step() {
  using R = typename record_table::StepOf<decltype(Step)>::Class;
  return Field<R>{.encoding = Encoding::kRule,
                  .unpackRule = [](R& self, const std::string&, TextField) { Step(self); }};
}
/// An integer field of which a number above `highest`, or below 0, reads as 0.
template <class R>
constexpr Field<R> bounded(Field<R> field, std::int32_t highest) {
  field.highest = highest;
  return field;
}
/// A member that stands in the class and not in the record.
template <class R>
constexpr Field<R> member(NamedMember<R> named) {
  return {.encoding = Encoding::kMember, .member = named};
}

/// The field in one direction only, where a class writes other bytes than it reads.
template <class R>
constexpr Field<R> readOnly(Field<R> field) {
  field.writes = false;
  return field;
}
template <class R>
constexpr Field<R> writeOnly(Field<R> field) {
  field.reads = false;
  return field;
}

}  // namespace dg
