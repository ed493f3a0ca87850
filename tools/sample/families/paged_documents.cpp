#include "tools/sample/families/paged_documents.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <string_view>

#include "tools/sample/names.h"
#include "tools/sample/random.h"
#include "tools/sample/sample_world.h"

namespace dg::sample {

namespace {

constexpr int kLineWidth = 44;
constexpr int kLinesPosition = 161;
constexpr int kRemarkWidth = 24;  // bytes; what lies behind stays empty on a remark
constexpr std::string_view kRemark = "REM";

// Codes of the lines that are no parts.
constexpr std::string_view kLabor = "500";
constexpr std::string_view kFreight = "502";
constexpr std::string_view kMiscellaneous = "550";

/// Quantities in tenths: whole pieces, returns, hours and less than a whole one.
constexpr std::array<std::int32_t, 14> kQuantities = {10, 10, 10,  20,  20,  30, 40,
                                                      50, 60, 120, -10, -15, 25, 9};
constexpr std::array<std::int32_t, 8> kHours = {5, 7, 10, 12, 15, 20, 25, 40};
constexpr std::int32_t kOne = 10;
/// Parts dearer than this go one at a time.
constexpr std::int32_t kDear = 100'000;
constexpr std::int32_t kHighestCost = 4'000'000;
constexpr std::int32_t kLinesPerPage = 19;

constexpr std::array<std::string_view, 6> kDashMasks = {"", "", "3", "4", "36", "27"};
constexpr std::array<std::string_view, 8> kRemarks = {
    "CUSTOMER WAITING",        "CALL BEFORE 3.00 PM",     "CHECK 1/2 IN. HOSE",
    "SERIAL PLATE IS MISSING", "PARTS WILL BE PICKED UP", "BLADES SHARP, NO CHARGE",
    "LEFT KEY AT THE COUNTER", "UNIT WAS HERE IN SPRING"};
constexpr std::array<std::string_view, 4> kCharges = {"SHOP SUPPLIES", "WASTE OIL FEE",
                                                      "PICK UP AND DELIVERY", "CLEANING"};

struct Item {
  std::string_view code;
  std::string part;
  std::string_view mask;
  std::string description;
  std::int32_t tenths = kOne;
  std::int32_t cost = 0;  // hundredths
};

/// The item at a price above its cost, or now and then as a credit.
PageLine pricedLine(Random& random, const SampleWorld& world, const Item& item) {
  const std::int32_t cost = std::min(item.cost, kHighestCost);
  std::int32_t net = cost * random.between(11, 19) / 10;
  if (random.chance(4)) net = -net;
  const std::int32_t mechanic = random.pick(world.countermen).number;
  const std::string bytes = RecordWriter(kLineWidth)
                                .packed(1, 2, item.code)
                                .packed(3, 12, item.part)
                                .packed(15, 2, item.mask)
                                .packed(17, 14, item.description)
                                .integer(31, 'J', item.tenths)
                                .integer(33, 'K', net)
                                .integer(36, 'D', cost)
                                .raw(41, 1, "")
                                .integer(42, 'B', byteNumber(mechanic))
                                .bytes();
  return {.bytes = bytes, .amount = std::int64_t{net} * item.tenths};
}

PageLine partLine(Random& random, const SampleWorld& world) {
  const SamplePart& part = random.pick(world.parts);
  Item item;
  item.code = part.lineCode;
  item.part = part.number;
  item.cost = part.cost;
  item.mask = random.pick(kDashMasks);
  item.description = partDescription(random);
  if (part.cost < kDear) item.tenths = random.pick(kQuantities);
  return pricedLine(random, world, item);
}

PageLine laborLine(Random& random, const SampleWorld& world) {
  Item item;
  item.code = kLabor;
  item.part = "L" + std::to_string(random.between(100, 999));
  item.description = laborDescription(random);
  item.tenths = random.pick(kHours);
  item.cost = random.between(1'800, 4'500);
  return pricedLine(random, world, item);
}

PageLine chargeLine(Random& random, const SampleWorld& world, std::string_view code,
                    std::string_view description) {
  Item item;
  item.code = code;
  item.description = description;
  item.cost = random.between(0, 6'000);
  return pricedLine(random, world, item);
}

PageLine remarkLine(Random& random) {
  RecordWriter line(kLineWidth);
  line.packed(1, 2, kRemark).packed(3, kRemarkWidth, random.pick(kRemarks));
  return {.bytes = line.bytes()};
}

PageLine pageLine(Random& random, const SampleWorld& world) {
  const std::int32_t kind = random.between(1, 100);
  if (kind <= 20) return laborLine(random, world);
  if (kind <= 26) return chargeLine(random, world, kFreight, "FREIGHT IN");
  if (kind <= 32) return chargeLine(random, world, kMiscellaneous, random.pick(kCharges));
  if (kind <= 47) return remarkLine(random);
  return partLine(random, world);
}

/// The order in which a walk meets the pages: mostly from the last one down, else in any order. It
/// always ends at page 1.
std::vector<std::size_t> walkOrder(Random& random, std::size_t pages) {
  std::vector<std::size_t> order(pages);
  std::iota(order.rbegin(), order.rend(), std::size_t{0});
  if (!random.chance(30)) return order;
  order.pop_back();
  random.shuffle(order);
  order.push_back(0);
  return order;
}

void putPage(RecordWriter& record, const DocumentPage& page, std::int32_t link) {
  record.integer(110, 'K', link)
      .integer(115, 'B', page.number)
      .integer(146, 'B', static_cast<std::int64_t>(page.lines.size()));
  int position = kLinesPosition;
  for (const PageLine& line : page.lines) {
    record.raw(position, kLineWidth, line.bytes);
    position += kLineWidth;
  }
}

}  // namespace

std::int32_t accountFor(Random& random, const SampleWorld& world) {
  constexpr std::int32_t kRemovedAccount = 999'990;
  return random.chance(4) ? kRemovedAccount : random.pick(world.customers).account;
}

std::int32_t byteNumber(std::int32_t number) {
  constexpr std::int32_t kHighest = 255;
  return number <= kHighest ? number : 0;
}

PagedDocument makePagedDocument(Random& random, const SampleWorld& world, int pages) {
  PagedDocument document;
  for (int number = 1; number <= pages; ++number) {
    DocumentPage page;
    page.number = number;
    const std::int32_t lines = random.chance(5) ? 0 : random.between(1, kLinesPerPage);
    for (std::int32_t i = 0; i < lines; ++i)
      page.lines.push_back(pageLine(random, world));
    document.pages.push_back(std::move(page));
  }
  document.order = walkOrder(random, document.pages.size());
  return document;
}

std::int32_t PagedDocument::subTotal() const {
  std::int64_t thousandths = 0;
  for (const DocumentPage& page : pages) {
    for (const PageLine& line : page.lines)
      thousandths += line.amount;
  }
  return static_cast<std::int32_t>((thousandths + (thousandths < 0 ? -5 : 5)) / 10);
}

std::int32_t writePagedDocument(ScatteredRecords& records, Random& random,
                                const PagedDocument& document, std::int32_t lastLink,
                                const PutHeader& putHeader) {
  const std::int32_t first = records.take();
  std::int32_t current = first;
  for (std::size_t step = 0; step < document.order.size(); ++step) {
    const DocumentPage& page = document.pages[document.order[step]];
    const bool last = step + 1 == document.order.size();
    const std::int32_t next = last ? 0 : records.take();
    // Readers take the absolute value: some links are negative.
    const std::int32_t link = last ? lastLink : random.chance(10) ? -next : next;
    RecordWriter record(records.file().recordLength());
    putHeader(record, page);
    putPage(record, page, link);
    records.file().replace(current, record.bytes());
    current = next;
  }
  return first;
}

}  // namespace dg::sample
