#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tools/sample/families/families.h"
#include "tools/sample/families/paged_documents.h"
#include "tools/sample/families/part_key.h"
#include "tools/sample/families/scattered_records.h"
#include "tools/sample/names.h"
#include "tools/sample/random.h"
#include "tools/sample/record_writer.h"
#include "tools/sample/sample_world.h"
#include "tools/sample/store_builder.h"

namespace dg::sample {

namespace {

constexpr std::size_t kEntriesPerScale = 120;
constexpr std::size_t kMostLines = 25;
constexpr int kMostExtents = 5;
constexpr int kKeyWidth = 6;

/// Where an entry stands and what gives its cost. The entries go through all of these.
enum class Kind {
  kOpen,
  kSold,
  kSoldNotInvoiced,
  kInvoicedNotSold,
  kCostOfPart,   ///< no cost of its own: the part's counts
  kCostUnknown,  ///< no cost of its own, and a serial number that hides the part
};
constexpr std::array kKinds = {Kind::kOpen,
                               Kind::kOpen,
                               Kind::kSold,
                               Kind::kCostOfPart,
                               Kind::kOpen,
                               Kind::kOpen,
                               Kind::kCostUnknown,
                               Kind::kSold,
                               Kind::kOpen,
                               Kind::kOpen,
                               Kind::kSoldNotInvoiced,
                               Kind::kOpen,
                               Kind::kInvoicedNotSold};

constexpr std::array<std::string_view, 5> kRemarks = {
    "DEMO UNIT 1/2 PRICE", "SHOW ROOM FLOOR", "FRONT LOT, ROW 3", "WITH TRAILER", "KEYS IN OFFICE"};

/// Writes the extra lines of an entry: accessories and remarks. Returns the first record.
std::int32_t addExtents(ScatteredRecords& records, Random& random, const SampleWorld& world) {
  const std::int32_t first = records.take();
  std::int32_t current = first;
  for (int left = random.between(1, kMostExtents); left > 0; --left) {
    const std::int32_t next = left > 1 ? records.take() : 0;
    RecordWriter record(records.file().recordLength());
    record.integer(1, 'C', 1).integer(29, 'D', next);
    if (random.chance(30)) {
      record.packed(3, 2, "REM").packed(5, 24, random.pick(kRemarks));
    } else {
      const SamplePart& part = random.pick(world.parts);
      const bool known = random.chance(85);
      const std::int32_t cost = random.between(100, 90'000);
      record.packed(3, 2, part.lineCode)
          .packed(5, 12, known ? part.number : "NOPART")
          .integer(17, 'J', random.chance(10) ? -1 : random.between(1, 4))
          .integer(19, 'D', cost)
          .integer(22, 'D', cost / 10 * random.between(11, 16));
    }
    records.file().replace(current, record.bytes());
    current = next;
  }
  return first;
}

/// Sale of an entry that has left the floor, in full or in part.
void putSale(RecordWriter& record, Random& random, const SampleWorld& world, Date date, Kind kind) {
  const bool sold = kind == Kind::kSold || kind == Kind::kSoldNotInvoiced;
  const bool invoiced = kind == Kind::kSold || kind == Kind::kInvoicedNotSold;
  if (sold) record.date(41, 'J', date).integer(54, 'K', random.between(100'000, 6'000'000));
  if (invoiced)
    record.integer(57, 'D', accountFor(random, world)).integer(60, 'L', random.between(1, 90'000));
}

/// A part whose own cost is known, for an entry that has none.
const SamplePart& partWithCost(Random& random, const SampleWorld& world) {
  const SamplePart* part = &random.pick(world.parts);
  while (part->cost == 0)
    part = &random.pick(world.parts);
  return *part;
}

std::string entryRecord(Random& random, const SampleWorld& world, std::int32_t line, Kind kind,
                        Date received, std::int32_t extents, int length) {
  const SamplePart& part = partWithCost(random, world);
  RecordWriter record(length);
  record.integer(1, 'J', 1)
      .integer(3, 'C', line)
      .raw(5, kPartKeyWidth, partKey(part.lineCode, part.number));
  // The part is looked up with two bytes of the serial number as the end of its key: it is found
  // where the serial number is still to come.
  if (kind != Kind::kCostOfPart) record.packed(17, 12, partNumber(random, random.between(8, 17)));
  const bool hasCost = kind != Kind::kCostOfPart && kind != Kind::kCostUnknown;
  record.packed(29, 6, "R" + std::to_string(random.between(1'000, 99'999)))
      .packed(35, 4, random.chance(40) ? partNumber(random, 5) : "")
      .date(39, 'J', received)
      .date(43, 'J', received.plusDays(180))
      .integer(51, 'K', hasCost ? random.between(50'000, 5'000'000) : 0);
  if (random.chance(20))
    record.date(45, 'J', received.plusDays(170)).packed(47, 4, partNumber(random, 6));
  putSale(record, random, world, received.plusDays(random.between(1, 100)), kind);
  if (random.chance(30)) record.date(64, 'J', received.plusDays(90));
  record.integer(76, 'C', random.between(0, 12)).integer(94, 'D', extents);
  // Where readers look up a part's description, this file's record of the part's number answers.
  record.packed(179, 14, machineName(random));
  return record.bytes();
}

/// The lines that have financed stock: those of the units and some others.
std::vector<std::int32_t> financedLines(const SampleWorld& world) {
  std::vector<std::int32_t> numbers;
  for (std::size_t i = 0; i < world.lines.size() && numbers.size() < kMostLines; ++i) {
    if (world.lines[i].type == 'U' || i % 7 == 2) numbers.push_back(world.lines[i].number);
  }
  return numbers;
}

}  // namespace

void addFloorPlan(StoreBuilder& builder, Random& random, const SampleOptions& options,
                  SampleWorld& world) {
  RecordFile& records = builder.records("FPLNL");
  ScatteredRecords extents(builder.records("FPEXL"), random);
  IndexFile& byLine = builder.index("FPLNI");
  const std::vector<std::int32_t> lines = financedLines(world);
  const std::size_t count = static_cast<std::size_t>(options.scale) * kEntriesPerScale;
  for (std::size_t place = 0; place < count; ++place) {
    if (place % 31 == 4) records.addFreed();
    const Kind kind = kKinds[place % kKinds.size()];
    const std::int32_t line = random.pick(lines);
    const Date received = options.asOf.plusDays(-random.between(100, 500));
    const std::int32_t chain = random.chance(45) ? addExtents(extents, random, world) : 0;
    const std::int32_t record = records.add(
        entryRecord(random, world, line, kind, received, chain, records.recordLength()));
    // Entries of one line and day share their key.
    byLine.add(RecordWriter(kKeyWidth).integer(1, 'C', line).date(3, 'J', received).bytes(),
               record);
  }
}

}  // namespace dg::sample
