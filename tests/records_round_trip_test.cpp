#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <variant>
#include <vector>

#include "engine/business_basic.h"
#include "engine/codec.h"
#include "engine/state.h"
#include "records/file_names.h"
#include "tests/support/program_run.h"
#include "tools/sample/random.h"
#include "tools/sample/sample_store.h"

namespace dg {
namespace {

using sample::Random;

/// Longer than the last field of any class.
constexpr std::size_t kLongest = 600;

/// A class, and a record type where its layout goes by one.
struct Layout {
  const RecordClass* record;
  std::optional<std::int32_t> type;
};

std::vector<Layout> layouts() {
  const std::map<std::string_view, std::vector<std::int32_t>> types = {
      {"clsClock", {1, 2, 9}}, {"clsInvoiceHistory", {1, 2, 80, 81, 50}}};
  std::vector<Layout> result;
  for (const RecordClass& record : recordClasses()) {
    const auto known = types.find(record.name);
    if (known == types.end()) {
      result.push_back({&record, std::nullopt});
      continue;
    }
    for (const std::int32_t type : known->second)
      result.push_back({&record, type});
  }
  return result;
}

/// Every two bytes of these make three characters; 255 is the highest of any.
constexpr int kHighestTextByte = 63999 / 256;

/// Random bytes that are a record of the layout.
std::string randomRecord(Random& random, const Layout& layout, int highestByte) {
  std::string bytes;
  for (std::size_t i = 0; i < kLongest; ++i)
    bytes += static_cast<char>(random.between(0, highestByte));
  if (layout.type) Pack('J', bytes, *layout.type, 1);
  return bytes;
}

/// Members that writing and reading back does not keep, each for the reason told at its class.
const std::map<std::string_view, std::set<std::string_view>> kNotKept = {
    // Written as MMDDYY, read as YYMMDD.
    {"clsCustomers", {"Date_of_Last_Close"}},
    // The month's values are written into the year's place; the flag and the commodity codes are
    // not written.
    {"clsLines", {"YTD_Sales", "YTD_Cost", "ReCalculateMax", "Commodities"}},
    // Blanks inside a part number become dashes; the substitute's mask lies far beyond its field.
    {"clsParts", {"Part_Number", "Part_w_Dash", "Sub_Part_w_Dash"}},
    {"clsInvoiceHistoryDetail", {"Part_Number", "Part_w_Dash", "Comment"}},
    // Only the last digit of the transaction type that the flag is read from is written; the other
    // is written long or short by this record's type, and read by that of the record before.
    {"clsInvoiceHistory", {"SaleFlag", "Field151"}},
};

bool isKept(const Layout& layout, const MemberValue& member) {
  const auto known = kNotKept.find(layout.record->name);
  return known == kNotKept.end() || !known->second.contains(member.name);
}

using Scalars = std::vector<MemberValue::Scalar>;

Scalars scalars(const MemberValue& member) {
  if (const auto* several = std::get_if<Scalars>(&member.value)) return *several;
  return {std::get<MemberValue::Scalar>(member.value)};
}

/// Whether a value comes back as it was. Dates do when month and day have two digits, as the MMDDYY
/// form needs them; texts when their bytes were all characters.
bool isExact(const MemberValue::Scalar& value, bool texts) {
  if (std::holds_alternative<std::string>(value)) return texts;
  const Date* date = std::get_if<Date>(&value);
  return date == nullptr || (date->month() >= 10 && date->day() >= 10);
}

TEST(RecordRoundTrip, WhatAClassWritesItReadsBack) {
  Random random(3, "round trip");
  for (const Layout& layout : layouts()) {
    for (int round = 0; round < 40; ++round) {
      const bool texts = round % 2 == 0;
      const int highestByte = texts ? kHighestTextByte : 255;
      MaskTable = kDefaultMaskTable;
      const auto first = layout.record->make();
      first->Unpack(randomRecord(random, layout, highestByte));
      // What stood in the record before must not show through.
      std::string written = randomRecord(random, layout, highestByte);
      MaskTable = kDefaultMaskTable;
      first->Pack(written);
      MaskTable = kDefaultMaskTable;
      const auto second = layout.record->make();
      second->Unpack(written);
      const std::vector<MemberValue> before = first->members();
      const std::vector<MemberValue> after = second->members();
      ASSERT_EQ(before.size(), after.size());
      for (std::size_t i = 0; i < before.size(); ++i) {
        if (!isKept(layout, before[i])) continue;
        const Scalars was = scalars(before[i]);
        const Scalars is = scalars(after[i]);
        ASSERT_EQ(was.size(), is.size());
        for (std::size_t element = 0; element < was.size(); ++element) {
          if (!isExact(was[element], texts)) continue;
          ASSERT_EQ(was[element], is[element]) << layout.record->name << "." << before[i].name
                                               << " of type " << layout.type.value_or(-1);
        }
      }
    }
  }
  MaskTable = kDefaultMaskTable;
}

/// Positions, first and last, at which a class writes other bytes than it read.
using Differences = std::vector<std::pair<int, int>>;

}  // namespace
}  // namespace dg
