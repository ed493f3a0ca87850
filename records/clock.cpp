#include "records/clock.h"

#include "records/record_table.h"

namespace dg {

namespace {

using Self = clsClock;

constexpr std::int32_t kTimeKind = 1;
constexpr std::int32_t kTextKind = 2;

constexpr Field<clsClock> kKindField[] = {
    integer(1, 'J', DG_MEMBER(Kind)),
};
// A row of the format is a line.
// clang-format off
constexpr Field<clsClock> kTimeFields[] = {
    integer(3, 'C', DG_MEMBER(Field3)),
    date(5, 'C', DG_MEMBER(enteredDate)),
    integer(7, 'C', DG_MEMBER(enteredTime)),
    date(9, 'C', DG_MEMBER(actualDate)),
    integer(11, 'C', DG_MEMBER(actualTime)),
    rawText(13, 1, DG_MEMBER(InOut)),
    integer(14, 'B', DG_MEMBER(bitsw)),
    integer(26, 'L', DG_MEMBER(reference)),
    integer(30, 'C', DG_MEMBER(segment)),
    integer(32, 'B', DG_MEMBER(Field32)),
};
// clang-format on
// A row of the format is a line.
// clang-format off
constexpr Field<clsClock> kTextFields[] = {
    integer(3, 'C', DG_MEMBER(Field3)),
    date(5, 'C', DG_MEMBER(enteredDate)),
    packedText(9, 2, DG_MEMBER(Text9)),
    packedText(11, 12, DG_MEMBER(Text11)),
    integer(23, 'C', DG_MEMBER(Field23)),
    integer(26, 'L', DG_MEMBER(reference)),
    integer(30, 'C', DG_MEMBER(segment)),
    integer(32, 'B', DG_MEMBER(Field32)),
};
// clang-format on

/// The layout of a kind; empty for any other.
std::span<const Field<clsClock>> layout(std::int32_t kind) {
  if (kind == kTimeKind) return kTimeFields;
  if (kind == kTextKind) return kTextFields;
  return {};
}

}  // namespace

void clsClock::Unpack(const std::string& record) {
  unpackFields<clsClock>(kKindField, *this, record);
  unpackFields<clsClock>(layout(Kind), *this, record);
}

void clsClock::Pack(std::string& record) const {
  packFields<clsClock>(kKindField, *this, record);
  packFields<clsClock>(layout(Kind), *this, record);
}

std::vector<MemberValue> clsClock::members() const {
  std::vector<MemberValue> result;
  appendMembers<clsClock>(kKindField, *this, result);
  appendMembers<clsClock>(kTimeFields, *this, result);
  appendMembers<clsClock>(kTextFields, *this, result);
  return result;
}

std::vector<FieldPlace> clsClock::places() const {
  std::vector<FieldPlace> result;
  appendPlaces<clsClock>(kKindField, "all", result);
  appendPlaces<clsClock>(kTimeFields, "kind 1", result);
  appendPlaces<clsClock>(kTextFields, "kind 2", result);
  return result;
}

}  // namespace dg
