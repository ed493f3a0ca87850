#include <array>
#include <cstdint>
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

constexpr int kCustomersPerScale = 300;
constexpr std::int32_t kFirstAccount = 1'000;
constexpr std::int32_t kLastAccount = 899'999;

/// Under this head names and addresses may hold dashes.
constexpr std::string_view kNameHead = " ,-.";
constexpr std::string_view kCashCode = "G";
constexpr std::array<std::string_view, 4> kSecondLines = {"SUITE 12", "BLDG B", "P.O. BOX 77",
                                                          "ATTN ACCOUNTS PAYABLE"};
constexpr std::array<std::string_view, 3> kContactRoles = {"", "OFFICE", "SHOP"};

/// Account numbers in random order, spread over the whole range.
std::vector<std::int32_t> accounts(Random& random, std::int32_t count) {
  const std::int32_t gap = (kLastAccount - kFirstAccount + 1) / count;
  std::vector<std::int32_t> numbers;
  for (std::int32_t i = 0; i < count; ++i)
    numbers.push_back(kFirstAccount + i * gap + random.between(0, gap - 1));
  random.shuffle(numbers);
  return numbers;
}

std::string customerName(Random& random) {
  if (random.chance(35)) return companyName(random);
  std::string name = personName(random);
  if (!random.chance(8)) return name;
  const std::string_view second = lastName(random);
  return name.insert(name.find(' '), "-" + std::string(second));
}

std::string townLine(Random& random) {
  std::string line(townName(random));
  line.append(" ").append(stateCode(random)).append(" ");
  return line + zipCode(random);
}

void putPhone(RecordWriter& record, int areaPosition, int numberPosition, Random& random) {
  const std::string number = phoneNumber(random);
  constexpr std::size_t kAreaDigits = 3;
  record.integer(areaPosition, 'C', std::stoi(number.substr(0, kAreaDigits)))
      .integer(numberPosition, 'L', std::stoi(number.substr(kAreaDigits)));
}

/// Sales and balances in hundredths. A few customers owe more than their limit, a few have money
/// to get back.
void putBalances(RecordWriter& record, Random& random) {
  for (const int position : {121, 125, 129, 137, 173, 177, 186, 190})
    record.integer(position, 'L', random.between(0, 900'000));
  for (const int position : {133, 141, 145})
    record.integer(position, 'L', random.chance(15) ? -random.between(0, 20'000) : 0);
  std::int32_t balance = random.chance(30) ? 0 : random.between(1, 300'000);
  if (random.chance(6)) balance = -balance / 4;
  const std::int32_t statement = random.chance(50) ? random.between(1, 250'000) : 0;
  record.integer(149, 'L', balance)
      .integer(153, 'L', statement / 2)
      .integer(157, 'L', statement / 4)
      .integer(161, 'L', statement / 8)
      .integer(165, 'L', statement / 16)
      .integer(169, 'L', statement);
}

std::string customerRecord(Random& random, const SampleOptions& options,
                           const SampleCustomer& customer, int length) {
  RecordWriter record(length);
  record.integer(1, 'J', 1)
      .integer(3, 'D', customer.account)
      .packed(6, 20, customer.name, kNameHead)
      .packed(26, 20, streetAddress(random), kNameHead)
      .packed(46, 20, random.chance(25) ? random.pick(kSecondLines) : "", kNameHead)
      .packed(66, 20, townLine(random), kNameHead);
  putPhone(record, 86, 88, random);
  const bool cash = random.chance(30);
  record.integer(94, 'B', random.between(1, 9))
      .integer(95, 'B', random.between(1, 20))
      .raw(96, 1, cash ? kCashCode : "C")
      .raw(97, 1, "T")
      .integer(98, 'B', 1)
      .raw(100, 1, random.chance(50) ? "O" : "B")
      .integer(103, 'L', cash ? 0 : random.between(1, 60) * 250)
      .integer(109, 'B', random.between(0, 5))
      .date(112, 'D', options.asOf.plusDays(-random.between(400, 9'000)))
      .date(115, 'D', options.asOf.plusDays(-random.between(0, 399)))
      .date(118, 'D', options.asOf.plusDays(-random.between(0, 399)));
  for (const int flag : {1, 2}) {
    if (random.chance(30)) record.bit(92, 'B', flag);
  }
  for (const int flag : {0, 2, 7}) {
    if (random.chance(20)) record.bit(185, 'B', flag);
  }
  putBalances(record, random);
  record.date(194, 'R', options.asOf.plusDays(-random.between(1, 60)))
      .packed(205, 12, random.chance(60) ? firstName(random) : "")
      .packed(217, 12, random.pick(kContactRoles))
      .raw(237, 5, "")
      .integer(273, 'L', random.between(0, 20'000));
  if (random.chance(40)) putPhone(record, 285, 201, random);
  if (random.chance(25)) putPhone(record, 287, 289, random);
  return record.bytes();
}

}  // namespace

void addCustomers(StoreBuilder& builder, Random& random, const SampleOptions& options,
                  SampleWorld& world) {
  ExtendedRecordFile records = builder.extended("CUSTL", "ECUSTL");
  IndexFile& byAccount = builder.index("CUSTI");
  for (const std::int32_t account : accounts(random, options.scale * kCustomersPerScale)) {
    if (world.customers.size() % 29 == 11) records.addFreed();
    SampleCustomer customer{.account = account, .name = customerName(random)};
    const std::int32_t record =
        records.add(customerRecord(random, options, customer, records.recordLength()));
    byAccount.add(integerKey('L', account, 4), record);
    world.customers.push_back(std::move(customer));
  }
}

}  // namespace dg::sample
