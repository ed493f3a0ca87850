#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "engine/codec.h"
#include "platform/text.h"
#include "platform/values/run_time_error.h"
#include "records/record.h"

namespace dg {

/// A record class as data: one constexpr table of fields in the order in which they are read, which
/// reads like the format's own description. Unpack and Pack are one loop each over it.
///
///     constexpr Field<clsExample> kFields[] = {
///         integer(3, 'C', DG_MEMBER(Line)),
///         packedText(5, 2, DG_MEMBER(Alpha_Line)),
///         scaled(75, 'L', 100, DG_MEMBER(Cost_of_Mdse)),
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

template <class R>
struct Field {
  Encoding encoding = Encoding::kMember;
  int position = 0;
  int width = 0;
  char opcode = ' ';
  int scaleOrBit = 1;         ///< or the place of a character
  std::int32_t highest = -1;  ///< a number above it, or below 0, reads as 0; none while negative
  NamedMember<R> member = {};
  std::string_view head = {};
  bool reads = true;
  bool writes = true;
  void (*unpackRule)(R& self, const std::string& record) = nullptr;
  void (*packRule)(const R& self, std::string& record) = nullptr;
};

namespace record_table {

template <class Pointer>
struct MemberOf;
template <class R, class T>
struct MemberOf<T R::*> {
  using Class = R;
  using Type = T;
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

/// An integer field into a 32-bit member, or into a currency member as it stands.
template <class R>
constexpr Field<R> integer(int position, char opcode, NamedMember<R> member) {
  return {.encoding = Encoding::kInteger,
          .position = position,
          .width = opcodeWidth(opcode),
          .opcode = opcode,
          .member = member};
}
/// An integer field divided by `scale` (10 or 100) into a currency member.
template <class R>
constexpr Field<R> scaled(int position, char opcode, int scale, NamedMember<R> member) {
  return {.encoding = Encoding::kInteger,
          .position = position,
          .width = opcodeWidth(opcode),
          .opcode = opcode,
          .scaleOrBit = scale,
          .member = member};
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
constexpr Field<R> date(int position, char opcode, NamedMember<R> member) {
  return {.encoding = Encoding::kDate,
          .position = position,
          .width = opcode == 'C' || opcode == 'J' ? 2 : 3,
          .opcode = opcode,
          .member = member};
}
template <class R>
constexpr Field<R> bit(int position, char opcode, int bitNumber, NamedMember<R> member) {
  return {.encoding = Encoding::kBit,
          .position = position,
          .width = opcodeWidth(opcode),
          .opcode = opcode,
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
          .position = position,
          .width = width,
          .scaleOrBit = place,
          .member = member,
          .writes = false};
}
/// A step of the class's own over the bytes from `position` on; either half may be empty. `member`
/// names what it fills, for display.
template <class R>
constexpr Field<R> rule(int position, int width, void (*unpack)(R&, const std::string&),
                        void (*pack)(const R&, std::string&), NamedMember<R> member = {}) {
  return {.encoding = Encoding::kRule,
          .position = position,
          .width = width,
          .member = member,
          .unpackRule = unpack,
          .packRule = pack};
}
/// A step that looks at members only.
template <class R>
constexpr Field<R> step(void (*unpack)(R&, const std::string&)) {
  return {.encoding = Encoding::kRule, .unpackRule = unpack};
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

/// Bytes of a text field: those there are, perhaps fewer than `width` or none.
inline std::string_view textField(std::string_view record, int position, int width) {
  return middle(record, static_cast<std::size_t>(position), static_cast<std::size_t>(width));
}

/// Overwrites `width` bytes at `position` with `text`, filled or cut; raises 5 when the position
/// lies beyond the record, and cuts at its end.
void putTextField(std::string& record, int position, int width, std::string_view text, char fill);

/// Reads one field; a number beyond the record's end leaves its member alone. Raises what the codec
/// raises.
template <class R>
void unpackField(const Field<R>& field, R& self, const std::string& record) {
  if (!field.reads) return;
  const auto& access = field.member.access;
  switch (field.encoding) {
    case Encoding::kInteger: {
      // Asked and not raised: a record whose extension is missing lacks dozens of fields.
      auto value = tryUnpack(field.opcode, record, field.position);
      if (!value) break;
      if (field.highest >= 0 && (*value < 0 || *value > field.highest)) value = 0;
      if (const auto* whole = std::get_if<std::int32_t& (*)(R&)>(&access)) {
        (*whole)(self) = *value;
      } else {
        std::get<Currency& (*)(R&)>(access)(self) = Currency::fromScaled(*value, field.scaleOrBit);
      }
      break;
    }
    case Encoding::kRawText:
      std::get<std::string& (*)(R&)>(access)(self) = textField(record, field.position, field.width);
      break;
    case Encoding::kPackedText:
      unpackText(textField(record, field.position, field.width),
                 std::get<std::string& (*)(R&)>(access)(self));
      break;
    case Encoding::kDate:
      std::get<Date& (*)(R&)>(access)(self) =
          UnPackDate(std::string_view(&field.opcode, 1), record, field.position);
      break;
    case Encoding::kBit:
      if (const auto value = tryUnpack(field.opcode, record, field.position)) {
        std::get<std::int16_t& (*)(R&)>(access)(self) =
            static_cast<std::int16_t>((*value >> field.scaleOrBit) & 1);
      }
      break;
    case Encoding::kCharacter: {
      const std::string text = unpackText(textField(record, field.position, field.width));
      const auto place = static_cast<std::size_t>(field.scaleOrBit) + 1;
      std::get<std::string& (*)(R&)>(access)(self) = std::string(middle(text, place, 1));
      break;
    }
    case Encoding::kMaskHead:
      setMaskHead(field.head);
      break;
    case Encoding::kRule:
      if (field.unpackRule != nullptr) field.unpackRule(self, record);
      break;
    case Encoding::kMember:
      break;
  }
}

/// Writes one field. Raises what the codec raises.
template <class R>
void packField(const Field<R>& field, const R& constSelf, std::string& record) {
  if (!field.writes) return;
  R& self = const_cast<R&>(constSelf);  // the accessors serve both directions
  const auto& access = field.member.access;
  switch (field.encoding) {
    case Encoding::kInteger: {
      const auto* whole = std::get_if<std::int32_t& (*)(R&)>(&access);
      const std::int32_t value =
          whole != nullptr ? (*whole)(self)
                           : std::get<Currency& (*)(R&)>(access)(self).toScaled(field.scaleOrBit);
      Pack(field.opcode, record, value, field.position);
      break;
    }
    case Encoding::kRawText:
      putTextField(record, field.position, field.width,
                   std::get<std::string& (*)(R&)>(access)(self), ' ');
      break;
    case Encoding::kPackedText:
      putTextField(record, field.position, field.width,
                   packText(std::get<std::string& (*)(R&)>(access)(self)), '\0');
      break;
    case Encoding::kDate:
      PackDate(std::string_view(&field.opcode, 1), record, field.position,
               std::get<Date& (*)(R&)>(access)(self));
      break;
    case Encoding::kBit: {
      // Bits that no member owns survive: only this one is cleared and set.
      const std::int32_t mask = 1 << field.scaleOrBit;
      const std::int32_t others = Unpack(field.opcode, record, field.position) & ~mask;
      const std::int32_t own = std::get<std::int16_t& (*)(R&)>(access)(self) * mask;
      Pack(field.opcode, record, others + own, field.position);
      break;
    }
    case Encoding::kMaskHead:
      setMaskHead(field.head);
      break;
    case Encoding::kRule:
      if (field.packRule != nullptr) field.packRule(self, record);
      break;
    case Encoding::kCharacter:
    case Encoding::kMember:
      break;
  }
}

/// Reads all fields of a table in order; an error in one leaves its member alone.
template <class R>
void unpackFields(std::span<const Field<R>> fields, R& self, const std::string& record) {
  for (const Field<R>& field : fields) {
    try {
      unpackField(field, self, record);
    } catch (const RunTimeError&) {  // NOLINT(bugprone-empty-catch): the class never reports
    }
  }
}

/// Writes all fields of a table in order; an error in one leaves its bytes alone.
template <class R>
void packFields(std::span<const Field<R>> fields, const R& self, std::string& record) {
  for (const Field<R>& field : fields) {
    try {
      packField(field, self, record);
    } catch (const RunTimeError&) {  // NOLINT(bugprone-empty-catch): the class never reports
    }
  }
}

/// Appends the table's members with their values; a member met before is not repeated, the elements
/// of an array become one entry.
template <class R>
void appendMembers(std::span<const Field<R>> fields, const R& constSelf,
                   std::vector<MemberValue>& members) {
  R& self = const_cast<R&>(constSelf);
  for (const Field<R>& field : fields) {
    if (field.member.name.empty()) continue;
    const auto value = std::visit(
        [&self](
            auto access) -> std::variant<MemberValue::Scalar, std::vector<MemberValue::Scalar>> {
          using Getter = decltype(access);
          if constexpr (std::is_same_v<Getter, std::monostate>) {
            return MemberValue::Scalar{};
          } else if constexpr (std::is_same_v<Getter, std::int16_t& (*)(R&)>) {
            return MemberValue::Scalar{std::int32_t{access(self)}};
          } else if constexpr (std::is_same_v<Getter, std::vector<std::string>& (*)(R&)>) {
            const std::vector<std::string>& texts = access(self);
            return std::vector<MemberValue::Scalar>(texts.begin(), texts.end());
          } else {
            return MemberValue::Scalar{access(self)};
          }
        },
        field.member.access);
    MemberValue* known = nullptr;
    for (MemberValue& candidate : members) {
      if (candidate.name == field.member.name) known = &candidate;
    }
    if (field.member.element < 0) {
      if (known == nullptr) members.push_back({std::string(field.member.name), value});
      continue;
    }
    if (known == nullptr) {
      members.push_back({std::string(field.member.name), std::vector<MemberValue::Scalar>{}});
      known = &members.back();
    }
    auto& elements = std::get<std::vector<MemberValue::Scalar>>(known->value);
    const auto index = static_cast<std::size_t>(field.member.element);
    if (elements.size() <= index) elements.resize(index + 1);
    elements[index] = std::get<MemberValue::Scalar>(value);
  }
}

/// The form of a field as docs/records.md tells it.
std::string formText(Encoding encoding, char opcode, int scaleOrBit);

/// Appends the rows of a table that have a place in the record.
template <class R>
void appendPlaces(std::span<const Field<R>> fields, std::string_view layout,
                  std::vector<FieldPlace>& places) {
  for (const Field<R>& field : fields) {
    if (field.position == 0) continue;
    std::string member(field.member.name);
    if (field.member.element >= 0) member += "(" + std::to_string(field.member.element) + ")";
    const bool isRule = field.encoding == Encoding::kRule;
    places.push_back({.layout = std::string(layout),
                      .position = field.position,
                      .width = field.width,
                      .form = formText(field.encoding, field.opcode, field.scaleOrBit),
                      .member = std::move(member),
                      .reads = isRule ? field.unpackRule != nullptr : field.reads,
                      .writes = isRule ? field.packRule != nullptr : field.writes});
  }
}

/// A record class whose whole format is one table: derive as `class clsX : public
/// TableRecord<clsX>` and define `static std::span<const Field<clsX>> fields()`.
template <class R>
class TableRecord : public Record {
 public:
  void Unpack(const std::string& record) override {
    unpackFields<R>(R::fields(), static_cast<R&>(*this), record);
  }
  void Pack(std::string& record) const override {
    packFields<R>(R::fields(), static_cast<const R&>(*this), record);
  }
  std::vector<MemberValue> members() const override {
    std::vector<MemberValue> result;
    appendMembers<R>(R::fields(), static_cast<const R&>(*this), result);
    return result;
  }
  std::vector<FieldPlace> places() const override {
    std::vector<FieldPlace> result;
    appendPlaces<R>(R::fields(), "", result);
    return result;
  }
};

}  // namespace dg
