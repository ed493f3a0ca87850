#include <array>
#include <cstdint>

#include "tools/sample/families/families.h"
#include "tools/sample/families/vendor_documents.h"

namespace dg::sample {

namespace {

/// The first returns go through all of these. Only "R" with exactly 20 is pending.
constexpr DocumentEntry kEntries[] = {
    {"RT", 20}, {"VR", 20}, {"RT", 2}, {"RT", 200}, {"RT", 20}, {"RT", 21}, {"RT", 6}, {"RT", 0},
};
constexpr std::array<std::int32_t, 5> kUsualStatuses = {20, 20, 20, 20, 30};

constexpr DocumentFamily kReturns{.index = "RTTBI",
                                  .perScale = 20,
                                  .first = kEntries,
                                  .letters = "RT",
                                  .usualStatuses = kUsualStatuses,
                                  .purgedEach = 17,
                                  .purgedPlace = 12};

}  // namespace

void addReturns(StoreBuilder& builder, Random& random, const SampleOptions& options,
                SampleWorld& world) {
  addDocuments(kReturns, builder, random, options, world);
}

}  // namespace dg::sample
