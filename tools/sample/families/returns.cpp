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

constexpr int kReturnsPerScale = 20;

/// An entry of the index: the letters of the return's name and its status.
struct Entry {
  std::string_view letters;
  std::int32_t status;
};
/// The first returns go through all of these. Only "R" with exactly 20 is pending.
constexpr Entry kEntries[] = {
    {"RT", 20}, {"VR", 20}, {"RT", 2}, {"RT", 200}, {"RT", 20}, {"RT", 21}, {"RT", 6}, {"RT", 0},
};
constexpr std::array<std::int32_t, 5> kUsualStatuses = {20, 20, 20, 20, 30};

Entry entryFor(Random& random, std::size_t place) {
  if (place < std::size(kEntries)) return kEntries[place];
  return {.letters = "RT", .status = random.pick(kUsualStatuses)};
}

}  // namespace

void addReturns(StoreBuilder& builder, Random& random, const SampleOptions& options,
                SampleWorld& world) {
  IndexFile& byName = builder.index("RTTBI");
  const auto count =
      static_cast<std::size_t>(std::min(options.scale * kReturnsPerScale, kMostDocuments));
  for (std::size_t place = 0; place < count; ++place) {
    const Entry entry = entryFor(random, place);
    const std::string name = documentName(entry.letters, place + 1);
    byName.add(vendorDocumentKey(name, entry.status), static_cast<std::int32_t>(place) + 1);
    const VendorDocumentData document = makeVendorDocument(random, options, world, name, place);
    const bool purged = place % 17 == 12;
    if (!purged) builder.addFile(name, document.bytes());
  }
}

}  // namespace dg::sample
