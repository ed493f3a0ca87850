#include <array>
#include <cstdint>

#include "tools/sample/families/families.h"
#include "tools/sample/families/vendor_documents.h"

namespace dg::sample {

namespace {

/// The first orders go through all of these. A status that begins with the digit 2 is an open order
/// when the name begins with "V", one that begins with 6 is open in any case; no other is.
constexpr DocumentEntry kEntries[] = {
    {"V", 20},  {"V", 2},  {"V", 29},  {"V", 200}, {"V", 255}, {"V", 25}, {"V", 6},
    {"V", 60},  {"V", 69}, {"X", 6},   {"X", 64},  {"X", 20},  {"X", 2},  {"V", 0},
    {"V", 1},   {"V", 3},  {"V", 12},  {"V", 30},  {"V", 59},  {"V", 70}, {"V", 100},
    {"V", 199}, {"S", 68}, {"S", 210}, {"V", 21},  {"V", 26},
};
constexpr std::array<std::int32_t, 8> kUsualStatuses = {20, 20, 20, 21, 22, 24, 60, 10};

constexpr DocumentFamily kOrders{.index = "PUTBI",
                                 .perScale = 60,
                                 .first = kEntries,
                                 .letters = "V",
                                 .usualStatuses = kUsualStatuses,
                                 .purgedEach = 20,
                                 .purgedPlace = 8};

}  // namespace

void addPurchaseOrders(StoreBuilder& builder, Random& random, const SampleOptions& options,
                       SampleWorld& world) {
  addDocuments(kOrders, builder, random, options, world);
}

}  // namespace dg::sample
