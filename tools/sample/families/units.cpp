#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tools/sample/families/families.h"
#include "tools/sample/families/paged_documents.h"
#include "tools/sample/families/scattered_records.h"
#include "tools/sample/names.h"
#include "tools/sample/random.h"
#include "tools/sample/record_writer.h"
#include "tools/sample/sample_world.h"
#include "tools/sample/store_builder.h"

namespace dg::sample {

namespace {

constexpr std::size_t kUnitsPerScale = 150;
constexpr char kUnitLine = 'U';
constexpr int kUnitNumberWidth = 8;
constexpr int kMostLedgerEntries = 6;

/// What a unit's ledger says. The units go through these: most have a chain, sold or not.
enum class Ledger { kChain, kSold, kNone, kSoldWithoutChain };
constexpr std::array kLedgers = {
    Ledger::kChain,           Ledger::kChain, Ledger::kSold, Ledger::kChain, Ledger::kNone,
    Ledger::kChain,           Ledger::kChain, Ledger::kSold, Ledger::kChain, Ledger::kChain,
    Ledger::kSoldWithoutChain};

constexpr std::array<std::string_view, 7> kEntryTexts = {
    "PURCHASE",      "FREIGHT IN",     "SET UP LABOR",    "ACCESSORIES",
    "DEALER CREDIT", "REBATE ACCRUED", "PRICE ADJUSTMENT"};
constexpr std::array<std::string_view, 8> kColors = {"RED",   "GREEN", "BLUE", "BLACK",
                                                     "ORNGE", "WHITE", "GREY", "YELLO"};
constexpr std::string_view kPrefixes = "BMTRW";

struct Unit {
  std::int32_t line = 0;
  std::string number;
  Ledger ledger = Ledger::kChain;
};

bool isSold(const Unit& unit) {
  return unit.ledger == Ledger::kSold || unit.ledger == Ledger::kSoldWithoutChain;
}

/// A letter and the running number, so that no two units are called the same.
std::string unitNumber(Random& random, std::size_t place) {
  std::string digits = std::to_string(place + 1);
  digits.insert(0, 6 - std::min<std::size_t>(digits.size(), 6), '0');
  return random.pick(kPrefixes) + digits;
}

/// Writes a unit's chain; returns its first record. The first entry is the purchase, the others
/// add to it or take from it.
std::int32_t addLedgerChain(ScatteredRecords& records, Random& random, const SampleOptions& options,
                            const Unit& unit) {
  const std::int32_t first = records.take();
  std::int32_t current = first;
  for (int left = random.between(1, kMostLedgerEntries); left > 0; --left) {
    const std::int32_t next = left > 1 ? records.take() : 0;
    const bool purchase = current == first;
    const std::int32_t amount =
        purchase ? random.between(20'000, 4'000'000) : random.between(-60'000, 90'000);
    const std::string bytes =
        RecordWriter(records.file().recordLength())
            .integer(1, 'J', 1)
            .integer(3, 'C', unit.line)
            .raw(5, kUnitNumberWidth, unit.number)
            .date(13, 'J', options.asOf.plusDays(-random.between(1, 700)))
            .raw(15, 2, "PJ")
            .integer(17, 'C', random.between(1, 999))
            .raw(19, 30, purchase ? kEntryTexts.front() : random.pick(kEntryTexts))
            .integer(57, 'L', amount)
            .integer(61, 'L', next)
            .bytes();
    records.file().replace(current, bytes);
    current = next;
  }
  return first;
}

void putDescription(RecordWriter& record, Random& random, const SampleOptions& options) {
  record.packed(5, 12, partNumber(random, random.between(5, 14)))
      .packed(28, 14, machineName(random))
      .raw(42, 15, makeName(random))
      .packed(57, 12, partNumber(random, random.between(8, 17)))
      .raw(69, 5, partNumber(random, 3))
      .integer(74, 'C', options.asOf.year() - random.between(0, 6))
      .raw(76, 4, partNumber(random, 2))
      .raw(80, 2, random.chance(50) ? "G" : "D")
      .raw(82, 12, partNumber(random, random.between(6, 12)))
      .raw(94, 2, random.chance(20) ? "4" : "2")
      .raw(96, 5, random.pick(kColors))
      .integer(101, 'D', random.chance(60) ? 0 : random.between(1, 90'000))
      .raw(105, 1, "N")
      .raw(106, 6, "LOT" + std::to_string(random.between(1, 9)))
      .integer(112, 'L', random.between(0, 99'999))
      .integer(116, 'L', random.between(0, 9'999))
      .raw(120, 12, partNumber(random, random.between(4, 12)))
      .raw(132, 12, random.chance(30) ? partNumber(random, 6) : "");
}

std::string unitRecord(Random& random, const SampleOptions& options, const SampleWorld& world,
                       const Unit& unit, std::int32_t ledgerChain, int length) {
  RecordWriter record(length);
  record.integer(1, 'J', 1).integer(3, 'C', unit.line).raw(20, kUnitNumberWidth, unit.number);
  putDescription(record, random, options);
  const Date received = options.asOf.plusDays(-random.between(200, 900));
  const std::int32_t list = random.between(60'000, 6'000'000);
  record.raw(104, 1, isSold(unit) ? "S" : "A")
      .date(147, 'J', received)
      .integer(155, 'L', list)
      .integer(159, 'L', list / 10 * 11)
      .packed(177, 6, "")
      .integer(184, 'L', random.between(1'200, 1'299))
      .integer(196, 'C', unit.line)
      .raw(198, 8, "")
      .raw(211, 9, "")
      .raw(220, 9, "");
  if (isSold(unit)) {
    record.integer(144, 'D', accountFor(random, world))
        .date(149, 'J', received.plusDays(random.between(1, 190)))
        .integer(151, 'L', random.between(1'000, 90'000))
        .integer(163, 'L', list / 100 * random.between(85, 105))
        .integer(210, 'B', byteNumber(random.pick(world.countermen).number));
  }
  return record.integer(505, 'L', ledgerChain).bytes();
}

/// The lines that may hold units. The last one holds none: it has just been set up.
std::vector<std::int32_t> unitLines(const SampleWorld& world) {
  std::vector<std::int32_t> numbers;
  for (const SampleLine& line : world.lines) {
    if (line.type == kUnitLine) numbers.push_back(line.number);
  }
  if (numbers.size() > 1) numbers.pop_back();
  return numbers;
}

}  // namespace

void addUnits(StoreBuilder& builder, Random& random, const SampleOptions& options,
              SampleWorld& world) {
  RecordFile& records = builder.records("UNITL");
  ScatteredRecords ledger(builder.records("LUNITL"), random);
  IndexFile& byLine = builder.index("LUNITI");
  IndexFile& byNumber = builder.index("UNITI");
  const std::vector<std::int32_t> lines = unitLines(world);
  const std::size_t count = static_cast<std::size_t>(options.scale) * kUnitsPerScale;
  for (std::size_t place = 0; place < count; ++place) {
    if (place % 23 == 9) records.addFreed();
    const Unit unit{.line = random.pick(lines),
                    .number = unitNumber(random, place),
                    .ledger = kLedgers[place % kLedgers.size()]};
    const bool hasChain = unit.ledger == Ledger::kChain || unit.ledger == Ledger::kSold;
    const std::int32_t chain = hasChain ? addLedgerChain(ledger, random, options, unit) : 0;
    const std::int32_t record =
        records.add(unitRecord(random, options, world, unit, chain, records.recordLength()));
    constexpr int kLineWidth = 2;
    const std::string number =
        RecordWriter(kUnitNumberWidth).raw(1, kUnitNumberWidth, unit.number).bytes();
    byLine.add(integerKey('C', unit.line, kLineWidth) + number, record);
    byNumber.add(number, record);
  }
}

}  // namespace dg::sample
