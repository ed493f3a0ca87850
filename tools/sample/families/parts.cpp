#include <algorithm>
#include <array>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>

#include "tools/sample/families/families.h"
#include "tools/sample/families/part_key.h"
#include "tools/sample/names.h"
#include "tools/sample/random.h"
#include "tools/sample/record_writer.h"
#include "tools/sample/sample_world.h"
#include "tools/sample/store_builder.h"

namespace dg::sample {

namespace {

constexpr int kPartsPerScale = 500;
constexpr int kShortestNumber = 5;
constexpr int kLongestNumber = 12;
/// Where dashes stand in a finished part number, as one to three characters of the mask.
constexpr std::array<std::string_view, 7> kDashMasks = {"3", "4", "36", "47", "27", "369", "5"};

/// Costs. The first parts go through all kinds, so that every store has each.
enum class Cost { kNone, kCents, kDear, kUsual };
constexpr std::size_t kCostKinds = 4;

std::int32_t cost(Random& random, std::size_t place) {
  Cost kind = Cost::kUsual;
  if (place < kCostKinds) {
    kind = static_cast<Cost>(place);
  } else if (random.chance(8)) {
    kind = Cost::kNone;
  }
  switch (kind) {
    case Cost::kNone:
      return 0;
    case Cost::kCents:
      return random.between(1, 99);
    case Cost::kDear:
      return random.between(1'000'000, 8'000'000);
    default:
      return random.between(100, 40'000);
  }
}

/// A number of the line's that no part has yet; short numbers run out in a large store.
std::string freeNumber(Random& random, std::string_view lineCode, std::set<std::string>& taken) {
  for (;;) {
    std::string number = partNumber(random, random.between(kShortestNumber, kLongestNumber));
    if (taken.insert(partKey(lineCode, number)).second) return number;
  }
}

/// Six one-character codes: commodity, unit of measure, return flag, two popularities, order code.
std::string codes(Random& random) {
  std::string text;
  for (const std::string_view choices : {"ABCDE ", "EPB", "YN", "ABCD", "ABCD", " X"})
    text += random.pick(choices);
  return text;
}

/// A mask whose last dash still stands before a character of the number.
std::string_view dashMask(Random& random, std::string_view number) {
  const std::string_view mask = random.pick(kDashMasks);
  const auto lastPlace = static_cast<std::size_t>(mask.back() - '0');
  return lastPlace < number.size() + mask.size() ? mask : "3";
}

/// What stands on the shelf, is on order and is owed to customers.
void putQuantities(RecordWriter& record, Random& random) {
  const std::int32_t onHand = random.chance(5) ? -random.between(1, 40) : random.between(0, 400);
  record.integer(36, 'K', onHand * 10)
      .integer(39, 'C', random.chance(20) ? random.between(1, 50) : 0)
      .integer(41, 'C', random.chance(10) ? random.between(1, 9) : 0);
}

void putPrices(RecordWriter& record, Random& random, std::int32_t cost) {
  constexpr int kLevels = 6;  // the list price and five levels below it
  std::int32_t percent = random.between(160, 200);
  for (int level = 0; level < kLevels; ++level) {
    const auto price = static_cast<std::int32_t>(
        std::min<std::int64_t>(std::int64_t{cost} * percent / 100, 8'388'607));
    record.integer(43 + 3 * level, 'K', price);
    percent -= 10;
  }
  record.integer(61, 'K', cost).integer(158, 'K', cost);
}

/// Demand of the months back, and what was sold in the month and the year.
void putDemand(RecordWriter& record, Random& random) {
  for (int position = 101; position <= 127; position += 2)
    record.integer(position, 'J', random.chance(40) ? random.between(1, 30) : 0);
  for (int position = 195; position <= 241; position += 2)
    record.integer(position, 'J', random.chance(30) ? random.between(1, 30) : 0);
  const std::int32_t sold = random.between(0, 60);
  record.integer(76, 'J', sold / 12)
      .integer(82, 'J', sold)
      .integer(163, 'L', sold * 120)
      .integer(167, 'L', sold * 80)
      .integer(171, 'L', sold * 1'440)
      .integer(175, 'L', sold * 960);
}

std::string partRecord(Random& random, const SampleOptions& options, const SamplePart& part,
                       std::string_view dashes, std::string_view substitute, int length) {
  RecordWriter record(length);
  record.integer(1, 'J', 1)
      .raw(3, kPartKeyWidth, partKey(part.lineCode, part.number))
      .packed(17, 2, dashes)
      .packed(19, 2, "EA")
      .packed(21, 4, codes(random))
      .integer(25, 'J', random.between(1, 12))
      .integer(29, 'C', random.between(0, 6))
      .integer(33, 'C', random.between(0, 40))
      .raw(35, 1, "A");
  putQuantities(record, random);
  putPrices(record, random, part.cost);
  record.date(70, 'R', options.asOf.plusDays(-random.between(0, 900)))
      .date(73, 'R', options.asOf.plusDays(-random.between(0, 400)))
      .date(98, 'R', options.asOf.plusDays(-random.between(400, 3'000)));
  putDemand(record, random);
  for (const int flag : {2, 3, 5, 7}) {
    if (random.chance(10)) record.bit(88, 'B', flag);
  }
  for (const int flag : {1, 3, 4, 5}) {
    if (random.chance(10)) record.bit(89, 'B', flag);
  }
  record.raw(95, 3, partNumber(random, 3)).packed(129, 10, substitute);
  if (!substitute.empty()) record.packed(139, 2, dashMask(random, substitute));
  record.packed(179, 14, partDescription(random))
      .integer(267, 'C', random.between(0, 30))
      .integer(269, 'C', random.between(0, 20))
      .date(274, 'J', options.asOf.plusDays(-random.between(0, 700)))
      .date(277, 'J', options.asOf.plusDays(-random.between(0, 300)))
      .raw(281, 1, "S")
      .integer(283, 'C', random.between(0, 24))
      .raw(285, 1, "1");
  return record.bytes();
}

}  // namespace

std::string partKey(std::string_view lineCode, std::string_view number) {
  return RecordWriter(kPartKeyWidth).packed(1, 2, lineCode).packed(3, 12, number).bytes();
}

void addParts(StoreBuilder& builder, Random& random, const SampleOptions& options,
              SampleWorld& world) {
  ExtendedRecordFile records = builder.extended("PARTL", "EPARTL");
  IndexFile& byNumber = builder.index("PARTI");
  std::set<std::string> taken;
  const auto count = static_cast<std::size_t>(options.scale) * kPartsPerScale;
  world.parts.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    if (i % 41 == 7) records.addFreed();
    SamplePart part{.lineCode = random.pick(world.lines).alpha, .number = {}};
    part.number = freeNumber(random, part.lineCode, taken);
    part.cost = cost(random, i);
    const std::string_view dashes = random.chance(30) ? dashMask(random, part.number) : "";
    const bool replaced = !world.parts.empty() && random.chance(15);
    const std::string substitute = replaced ? random.pick(world.parts).number : "";
    part.record =
        records.add(partRecord(random, options, part, dashes, substitute, records.recordLength()));
    byNumber.add(partKey(part.lineCode, part.number), part.record);
    world.parts.push_back(std::move(part));
  }
  // The description of a floor plan's extra line is looked up in PARTI and then read from the floor
  // plan file, by the part's record number: that file must reach as far.
  builder.records("FPLNL").reserve(builder.records("PARTL").highUsed());
}

}  // namespace dg::sample
