#include <algorithm>
#include <array>
#include <cstdint>
#include <numeric>
#include <string>
#include <string_view>
#include <vector>

#include "tools/sample/families/families.h"
#include "tools/sample/names.h"
#include "tools/sample/random.h"
#include "tools/sample/record_writer.h"
#include "tools/sample/sample_world.h"
#include "tools/sample/store_builder.h"

namespace dg::sample {

namespace {

constexpr std::int32_t kFirstReserved = 1000;  // the scans end before the suite's own lines
constexpr std::array<std::int32_t, 3> kReservedLines = {1000, 1001, 9999};
constexpr int kLinesPerScale = 40;
constexpr int kMostLines = 900;
constexpr std::string_view kLetters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
constexpr std::string_view kCommodityCodes = "ABCDEFGHJKLMNPRSTUVWXYZ123456789";
/// The lines go through these types, so that the smallest store has a dozen unit lines; a line
/// without one of the three letters counts as parts.
constexpr std::string_view kTypes = "PURPPUPRPUPUPPURX UR";

/// Line numbers below the reserved ones, in random order; the highest is always among them.
std::vector<std::int32_t> lineNumbers(Random& random, int count) {
  std::vector<std::int32_t> numbers(kFirstReserved - 2);
  std::iota(numbers.begin(), numbers.end(), 1);
  random.shuffle(numbers);
  numbers.resize(static_cast<std::size_t>(count) - 1);
  numbers.push_back(kFirstReserved - 1);
  random.shuffle(numbers);
  return numbers;
}

/// All two-character line codes in random order.
std::vector<std::string> lineCodes(Random& random) {
  std::vector<std::string> codes;
  for (const char first : kLetters) {
    for (const char second : std::string_view("ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789"))
      codes.push_back({first, second});
  }
  random.shuffle(codes);
  return codes;
}

/// Kinds of stock and of a period's sales. The first lines go through all of them, so that every
/// store has each; later ones draw from a list in which the usual kind stands most often.
enum class Stock { kNone, kNegative, kLarge, kUsual };
enum class Sales { kNone, kReturns, kAtLoss, kUsual };
constexpr std::size_t kKinds = 4;
constexpr int kUsualPercent = 85;

template <class Kind>
Kind kindFor(Random& random, std::size_t line) {
  if (line < kKinds) return static_cast<Kind>(line);
  if (random.chance(kUsualPercent)) return Kind::kUsual;
  return static_cast<Kind>(random.below(kKinds));
}

/// The cost of what is in stock, in cents.
std::int32_t merchandise(Random& random, Stock kind) {
  switch (kind) {
    case Stock::kNone:
      return 0;
    case Stock::kNegative:
      return -random.between(1, 250'000);
    case Stock::kLarge:
      return random.between(100'000'000, 250'000'000);
    default:
      return random.between(25'000, 9'000'000);
  }
}

struct Period {
  std::int32_t count;
  std::int32_t sales;
  std::int32_t cost;
};

/// Sales of a period with their cost, in cents.
Period period(Random& random, Sales kind, std::int32_t most) {
  if (kind == Sales::kNone) return {0, 0, 0};
  std::int32_t sales = random.between(500, most);
  if (kind == Sales::kReturns) sales = -sales / 20;
  const std::int32_t costPercent =
      kind == Sales::kAtLoss ? random.between(101, 140) : random.between(55, 95);
  const auto cost = static_cast<std::int32_t>(std::int64_t{sales} * costPercent / 100);
  return {random.between(1, 400), sales, cost};
}

void putPeriod(RecordWriter& record, int position, const Period& period) {
  record.integer(position, 'L', period.count)
      .integer(position + 4, 'L', period.sales)
      .integer(position + 8, 'L', period.cost);
}

/// What was ordered, and the part of it that was filled.
void putFill(RecordWriter& record, int position, char opcode, int width, std::int32_t most,
             Random& random) {
  const std::int32_t ordered = random.chance(10) ? 0 : random.between(1, most);
  const std::int32_t filled = random.chance(15) ? ordered : random.between(0, ordered);
  record.integer(position, opcode, ordered).integer(position + width, opcode, filled);
}

void putPriceDefinitions(RecordWriter& record, Random& random) {
  for (int definition = 0; definition < 6; ++definition) {
    const int position = 51 + definition * 4;
    record.integer(position, 'B', definition + 1)
        .integer(position + 1, 'B', random.between(0, 3))
        .integer(position + 2, 'J', random.between(-400, 400));
  }
}

/// `place` counts the lines in the order in which they are made.
std::string lineRecord(Random& random, const SampleOptions& options, const SampleLine& line,
                       std::size_t place, std::string_view commodities, int length) {
  RecordWriter record(length);
  record.integer(1, 'J', 1)
      .integer(3, 'C', line.number)
      .packed(5, 2, line.alpha)
      .packed(7, 20, productLineName(random))
      .raw(27, 1, random.chance(50) ? "Y" : "N")
      .raw(28, 1, commodities.substr(0, 1))
      .raw(39, 6, "ANAN")
      .raw(45, 6, "PRIOR");
  putPriceDefinitions(record, random);
  const std::int32_t stock = merchandise(random, kindFor<Stock>(random, place));
  record.integer(75, 'L', stock).integer(79, 'L', stock / 50);
  putPeriod(record, 83, period(random, kindFor<Sales>(random, place), 1'500'000));
  putPeriod(record, 95, period(random, kindFor<Sales>(random, place), 15'000'000));
  putPeriod(record, 107, period(random, kindFor<Sales>(random, place), 18'000'000));
  record.integer(119, 'C', random.between(0, 60))
      .raw(121, 1, "Y")
      .integer(122, 'C', random.between(0, 15))
      .raw(124, 1, random.chance(30) ? "Y" : "N")
      .integer(125, 'C', random.between(0, 500))
      .packed(127, 2, line.alpha)
      .raw(142, 1, std::string_view(&line.type, 1))
      .integer(143, 'L', random.between(0, 9'999))
      .integer(147, 'B', 1)
      .integer(148, 'L', random.between(1, 900));
  putFill(record, 152, 'J', 2, 400, random);
  putFill(record, 156, 'K', 3, 3'000, random);
  putFill(record, 162, 'L', 4, 90'000, random);
  putFill(record, 170, 'K', 3, 90'000, random);
  putFill(record, 176, 'L', 4, 100'000, random);
  putFill(record, 184, 'L', 4, 2'000'000, random);
  record.integer(193, 'L', random.between(1, 900))
      .raw(203, 2, "AB")
      .date(205, 'J', options.asOf.plusDays(-random.between(0, 700)))
      .integer(207, 'L', stock)
      .integer(211, 'L', stock / 50)
      .integer(215, 'L', stock / 2)
      .integer(219, 'L', stock / 100);
  return record.bytes();
}

/// The line's commodity codes in order: none for most, else a few.
std::string commodityCodes(Random& random) {
  if (random.chance(55)) return " ";
  std::string codes(kCommodityCodes);
  random.shuffle(codes);
  codes.resize(static_cast<std::size_t>(random.between(1, 6)));
  std::sort(codes.begin(), codes.end());
  return codes;
}

}  // namespace

void addLines(StoreBuilder& builder, Random& random, const SampleOptions& options,
              SampleWorld& world) {
  ExtendedRecordFile records = builder.extended("LINEL", "ELINEL");
  IndexFile& byNumber = builder.index("LINEI");
  IndexFile& byCommodity = builder.index("COMODI");

  std::vector<std::int32_t> numbers =
      lineNumbers(random, std::min(options.scale * kLinesPerScale, kMostLines));
  numbers.insert(numbers.end(), kReservedLines.begin(), kReservedLines.end());
  const std::vector<std::string> codes = lineCodes(random);
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    if (i % 17 == 5) records.addFreed();
    SampleLine line{.number = numbers[i], .alpha = codes[i], .type = kTypes[i % kTypes.size()]};
    const std::string commodities = commodityCodes(random);
    line.record =
        records.add(lineRecord(random, options, line, i, commodities, records.recordLength()));
    byNumber.add(integerKey('C', line.number, 2), line.record);
    // The first code stands in the record and comes from there; the index holds the others.
    for (const char code : commodities.substr(1)) {
      byCommodity.add(RecordWriter(4).integer(1, 'C', line.number).raw(3, 1, {&code, 1}).bytes(),
                      line.record);
    }
    if (line.number < kFirstReserved) world.lines.push_back(line);
  }
  std::sort(world.lines.begin(), world.lines.end(),
            [](const SampleLine& a, const SampleLine& b) { return a.number < b.number; });
}

}  // namespace dg::sample
