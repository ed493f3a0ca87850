#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "engine/codec.h"
#include "platform/text.h"
#include "platform/values/run_time_error.h"
#include "records/field.h"
#include "records/record.h"

namespace dg {

/// Bytes of a text field: those there are, perhaps fewer than `width` or none.
inline std::string_view textField(std::string_view record, int position, int width) {
  return middle(record, static_cast<std::size_t>(position), static_cast<std::size_t>(width));
}

/// Overwrites `width` bytes at `position` with `text`, filled or cut; raises 5 when the position
/// lies beyond the record, and cuts at its end.
void putTextField(std::string& record, int position, int width, std::string_view text, char fill);

/// A part number with its dashes, and back: the bytes of a field of dashed text. See dashedText.
std::string readDashedText(std::string_view bytes, int digits);
void putDashedText(std::string& record, int position, int width, std::string number);

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
    case Encoding::kDashedText:
      std::get<std::string& (*)(R&)>(access)(self) =
          readDashedText(textField(record, field.position, field.width), field.scaleOrBit);
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
      if (field.unpackRule != nullptr)
        field.unpackRule(self, record, {field.position, field.width});
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
    case Encoding::kDashedText:
      putDashedText(record, field.position, field.width,
                    std::get<std::string& (*)(R&)>(access)(self));
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
      if (field.packRule != nullptr) field.packRule(self, record, {field.position, field.width});
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
