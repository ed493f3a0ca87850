#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "tools/sample/families/families.h"
#include "tools/sample/families/vendor_documents.h"
#include "tools/sample/random.h"
#include "tools/sample/sample_world.h"
#include "tools/sample/store_builder.h"

namespace dg::sample {

namespace {

constexpr int kOrdersPerScale = 60;

/// An entry of the index: the letter of the order's name and its status.
struct Entry {
  std::string_view letters;
  std::int32_t status;
};
/// The first orders go through all of these. A status that begins with the digit 2 is an open order
/// when the name begins with "V", one that begins with 6 is open in any case; no other is.
constexpr Entry kEntries[] = {
    {"V", 20},  {"V", 2},  {"V", 29},  {"V", 200}, {"V", 255}, {"V", 25}, {"V", 6},
    {"V", 60},  {"V", 69}, {"X", 6},   {"X", 64},  {"X", 20},  {"X", 2},  {"V", 0},
    {"V", 1},   {"V", 3},  {"V", 12},  {"V", 30},  {"V", 59},  {"V", 70}, {"V", 100},
    {"V", 199}, {"S", 68}, {"S", 210}, {"V", 21},  {"V", 26},
};
constexpr std::array<std::int32_t, 8> kUsualStatuses = {20, 20, 20, 21, 22, 24, 60, 10};

Entry entryFor(Random& random, std::size_t place) {
  if (place < std::size(kEntries)) return kEntries[place];
  return {.letters = "V", .status = random.pick(kUsualStatuses)};
}

}  // namespace

void addPurchaseOrders(StoreBuilder& builder, Random& random, const SampleOptions& options,
                       SampleWorld& world) {
  IndexFile& byName = builder.index("PUTBI");
  const auto count =
      static_cast<std::size_t>(std::min(options.scale * kOrdersPerScale, kMostDocuments));
  for (std::size_t place = 0; place < count; ++place) {
    const Entry entry = entryFor(random, place);
    const std::string name = documentName(entry.letters, place + 1);
    byName.add(vendorDocumentKey(name, entry.status), static_cast<std::int32_t>(place) + 1);
    const VendorDocumentData order = makeVendorDocument(random, options, world, name, place);
    // An order that was purged while its entry stayed.
    const bool purged = place % 20 == 8;
    if (!purged) builder.addFile(name, order.bytes());
  }
}

}  // namespace dg::sample
