#include <algorithm>
#include <array>
#include <cstdint>
#include <numeric>
#include <string>
#include <vector>

#include "tools/sample/families/families.h"
#include "tools/sample/names.h"
#include "tools/sample/random.h"
#include "tools/sample/record_writer.h"
#include "tools/sample/sample_world.h"
#include "tools/sample/store_builder.h"

namespace dg::sample {

namespace {

constexpr int kCountermenPerScale = 12;
constexpr int kMostCountermen = 900;
constexpr std::int32_t kHighestByteNumber = 250;  // shop jobs hold a mechanic's number in a byte
constexpr std::int32_t kForeignNumber = 990;      // an index entry whose record says otherwise

/// How a counterman's day went. The first ones go through all kinds, so that every store has each.
enum class Day { kAway, kRefundsNegative, kPaymentsNegative, kLarge, kUsual };
constexpr std::size_t kDayKinds = 5;

/// The numbers that fit a byte come first, in random order.
std::vector<std::int32_t> numbers(Random& random, int count) {
  std::vector<std::int32_t> low(kHighestByteNumber);
  std::iota(low.begin(), low.end(), 1);
  std::vector<std::int32_t> high(kForeignNumber - kHighestByteNumber - 1);
  std::iota(high.begin(), high.end(), kHighestByteNumber + 1);
  random.shuffle(low);
  random.shuffle(high);
  low.insert(low.end(), high.begin(), high.end());
  low.resize(static_cast<std::size_t>(count));
  return low;
}

/// Positions of today's money fields: cash, charges, refunds, credit memos, sales and cost of
/// merchandise and labor, discounts, payments, taxes, payment discounts, adjustments.
constexpr std::array kTodaysMoney = {38, 42, 46, 50, 54, 58, 62, 66, 70, 74, 78, 82, 86};
constexpr int kRefunds = 46;
constexpr int kPayments = 74;
constexpr int kDepositsToday = 333;

void putDay(RecordWriter& record, Random& random, Day day) {
  if (day == Day::kAway) return;
  const std::int32_t most = day == Day::kLarge ? 90'000'000 : 400'000;
  record.integer(30, 'L', random.between(1, 90)).integer(34, 'L', random.between(1, 600));
  for (const int position : kTodaysMoney) {
    std::int32_t cents = random.between(0, most);
    const bool negative = (position == kRefunds && day == Day::kRefundsNegative) ||
                          (position == kPayments && day == Day::kPaymentsNegative);
    if (negative) cents = -1 - cents;
    record.integer(position, 'L', cents);
  }
  record.integer(kDepositsToday, 'L', random.between(0, most / 4));
}

/// Totals of the month, the year and what a mechanic billed and worked.
void putTotals(RecordWriter& record, Random& random) {
  for (int position = 90; position <= 186; position += 4)
    record.integer(position, 'L', random.between(0, 9'000'000));
  for (int position = 205; position <= 329; position += 4)
    record.integer(position, 'L', random.between(0, 2'000'000));
  for (int position = 341; position <= 389; position += 4)
    record.integer(position, 'L', random.between(0, 300'000));
}

std::string countermanRecord(Random& random, const SampleOptions& options,
                             const SampleCounterman& man, Day day, int length) {
  RecordWriter record(length);
  record.integer(1, 'J', 1)
      .integer(3, 'C', man.number)
      .packed(5, 2, man.name.substr(0, 1) + std::to_string(man.number % 10))
      .packed(7, 20, man.name)
      .date(27, 'D', options.asOf.plusDays(-random.between(100, 6'000)));
  putDay(record, random, day);
  putTotals(record, random);
  record.integer(190, 'C', random.between(0, 20))
      .integer(192, 'C', random.between(0, 200))
      .integer(194, 'C', random.between(0, 2'000))
      .integer(196, 'B', random.between(0, 60))
      .integer(197, 'B', random.between(0, 60));
  const std::int32_t number198 = random.between(0, 9'999);
  record.integer(198, 'C', random.chance(30) ? number198 + 10'000 : number198).raw(393, 8, "");
  return record.bytes();
}

}  // namespace

void addCountermen(StoreBuilder& builder, Random& random, const SampleOptions& options,
                   SampleWorld& world) {
  ExtendedRecordFile records = builder.extended("MANL", "EMANL");
  IndexFile& byNumber = builder.index("MANI");
  const int count = std::min(options.scale * kCountermenPerScale, kMostCountermen);
  for (const std::int32_t number : numbers(random, count)) {
    const std::size_t place = world.countermen.size();
    if (place % 7 == 3) records.addFreed();
    SampleCounterman man{.number = number, .name = personName(random)};
    const Day day = place < kDayKinds   ? static_cast<Day>(place)
                    : random.chance(15) ? Day::kAway
                                        : Day::kUsual;
    man.record = records.add(countermanRecord(random, options, man, day, records.recordLength()));
    byNumber.add(integerKey('C', number, 2), man.record);
    world.countermen.push_back(std::move(man));
  }
  // A number that was given to somebody else: the record carries the new one, and does not count
  // a second time under the old.
  byNumber.add(integerKey('C', kForeignNumber, 2), world.countermen.back().record);
}

}  // namespace dg::sample
