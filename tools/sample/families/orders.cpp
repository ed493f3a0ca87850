#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tools/sample/families/families.h"
#include "tools/sample/families/paged_documents.h"
#include "tools/sample/names.h"
#include "tools/sample/random.h"
#include "tools/sample/record_writer.h"
#include "tools/sample/sample_world.h"
#include "tools/sample/store_builder.h"

namespace dg::sample {

namespace {

constexpr int kTicketsPerScale = 40;
constexpr int kSavedPerScale = 30;
constexpr std::int32_t kMostSaved = 2'500;  // the table has 3,100 slots
constexpr int kMostPages = 3;
constexpr std::int32_t kFirstTicket = 1'200;

/// Record types that the orders go through. Those of the second layout hold no ticket number, and
/// readers show that of an order before: the first ticket must be of the other layout.
constexpr std::array<std::int32_t, 12> kTypes = {19, 1, 80, 3, 13, 2, 81, 17, 99, 1, 80, 19};
constexpr std::int32_t kFirstSecondLayoutType = 80;
constexpr std::int32_t kLastSecondLayoutType = 81;

constexpr std::int32_t kSameAccount = -1;

bool isSecondLayout(std::int32_t type) {
  return type >= kFirstSecondLayoutType && type <= kLastSecondLayoutType;
}

std::string purchaseOrder(Random& random) {
  if (random.chance(40)) return {};
  const std::string number = std::to_string(random.between(100, 99'999));
  return random.chance(50) ? "PO" + number : number;
}

/// An account to ship to: none, the order's own, or another customer's.
std::int32_t shipTo(Random& random, const SampleWorld& world, std::int32_t own) {
  const std::int32_t kind = random.between(1, 10);
  if (kind <= 6) return 0;
  return kind <= 8 ? own : accountFor(random, world);
}

void putSale(RecordWriter& record, Random& random, const SampleWorld& world, Date date,
             std::int32_t ticket) {
  const std::int32_t hour = random.between(8, 17);
  record.integer(3, 'D', accountFor(random, world))
      .date(48, 'J', date)
      .integer(50, 'C', hour * 100 + random.between(0, 59))
      .integer(54, 'B', random.between(1, 40))
      .integer(58, 'K', random.chance(15) ? random.between(500, 20'000) : 0)
      .packed(86, 20, random.chance(30) ? personName(random) : "")
      .integer(106, 'L', ticket)
      .packed(117, 6, purchaseOrder(random))
      .integer(141, 'K', shipTo(random, world, kSameAccount));
  for (const int flag : {1, 2, 4}) {
    if (random.chance(15)) record.bit(116, 'B', flag);
  }
}

void putOrder(RecordWriter& record, Random& random, const SampleWorld& world, Date date) {
  const std::int32_t account = accountFor(random, world);
  record.integer(3, 'L', account)
      .integer(7, 'D', shipTo(random, world, account))
      .integer(14, 'D', random.between(0, 30'000))
      .packed(27, 10, makeName(random))
      .packed(37, 14, machineName(random))
      .packed(51, 12, partNumber(random, random.between(6, 14)))
      .packed(87, 6, purchaseOrder(random))
      .date(95, 'J', date)
      .raw(99, 1, "O")
      .integer(157, 'B', random.between(1, 40));
}

/// What both layouts have at the same places.
void putCommon(RecordWriter& record, Random& random, const SampleWorld& world,
               std::int32_t subTotal) {
  record.integer(113, 'B', byteNumber(random.pick(world.countermen).number))
      .integer(114, 'B', byteNumber(random.pick(world.countermen).number))
      .integer(123, 'B', random.between(1, 24))
      .integer(124, 'B', random.between(0, 6))
      .integer(125, 'L', subTotal)
      .integer(135, 'C', 650)
      .integer(145, 'B', random.between(1, 5))
      .raw(147, 2, "RT")
      .integer(149, 'B', 1)
      .integer(156, 'B', random.between(0, 4));
}

/// An order of one to three pages, whose header stands on page 1. Returns the record that a walk
/// over its pages starts at.
std::int32_t addOrder(ScatteredRecords& records, Random& random, const SampleOptions& options,
                      const SampleWorld& world, std::size_t place, std::int32_t ticket) {
  const std::int32_t type = kTypes[place % kTypes.size()];
  const int pages = static_cast<int>(place / kTypes.size() % kMostPages) + 1;
  const PagedDocument document = makePagedDocument(random, world, pages);
  const Date date = options.asOf.plusDays(-random.between(0, 90));
  // On page 1 the link field holds the date's digits.
  const std::int32_t digits = (date.month() * 100 + date.day()) * 100 + date.year() % 100;
  return writePagedDocument(records, random, document, digits,
                            [&](RecordWriter& record, const DocumentPage& page) {
                              record.integer(1, 'J', type);
                              if (page.number != 1) return;
                              if (isSecondLayout(type)) {
                                putOrder(record, random, world, date);
                              } else {
                                putSale(record, random, world, date, ticket);
                              }
                              putCommon(record, random, world, document.subTotal());
                            });
}

}  // namespace

void addOrders(StoreBuilder& builder, Random& random, const SampleOptions& options,
               SampleWorld& world) {
  ScatteredRecords records(builder.records("INVOL"), random);
  IndexFile& byTicket = builder.index("TICKI");
  std::int32_t ticket = kFirstTicket;
  const auto tickets = static_cast<std::size_t>(options.scale) * kTicketsPerScale;
  for (std::size_t place = 0; place < tickets; ++place) {
    ticket += random.between(1, 200);
    const std::int32_t record = addOrder(records, random, options, world, place, ticket);
    byTicket.add(integerKey('L', ticket, 4), record);
  }
  const std::int32_t saved = std::min(options.scale * kSavedPerScale, kMostSaved);
  for (std::int32_t i = 0; i < saved; ++i) {
    const std::int32_t record =
        addOrder(records, random, options, world, static_cast<std::size_t>(i), 0);
    builder.controlFile().addSavedInvoice(random, record);
  }
}

}  // namespace dg::sample
