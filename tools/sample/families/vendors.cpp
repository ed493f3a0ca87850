#include <algorithm>
#include <cstdint>
#include <numeric>
#include <vector>

#include "tools/sample/families/families.h"
#include "tools/sample/names.h"
#include "tools/sample/random.h"
#include "tools/sample/record_writer.h"
#include "tools/sample/sample_world.h"
#include "tools/sample/store_builder.h"

namespace dg::sample {

namespace {

constexpr int kVendorsPerScale = 30;
constexpr int kMostVendors = 900;  // some numbers stay free, for documents of unknown vendors
constexpr std::int32_t kHighestVendor = 999;

/// Vendor numbers in order, the lowest and the highest always among them.
std::vector<std::int32_t> vendorNumbers(Random& random, int count) {
  std::vector<std::int32_t> numbers(kHighestVendor - 2);
  std::iota(numbers.begin(), numbers.end(), 2);
  random.shuffle(numbers);
  numbers.resize(static_cast<std::size_t>(count) - 2);
  numbers.push_back(1);
  numbers.push_back(kHighestVendor);
  std::sort(numbers.begin(), numbers.end());
  return numbers;
}

}  // namespace

void addVendors(StoreBuilder& builder, Random& random, const SampleOptions& options,
                SampleWorld& world) {
  RecordFile& records = builder.records("VNDRL");
  IndexFile& byNumber = builder.index("VNDRI");
  world.vendors = vendorNumbers(random, std::min(options.scale * kVendorsPerScale, kMostVendors));
  std::vector<std::int32_t> inOrderOfEntry = world.vendors;
  random.shuffle(inOrderOfEntry);
  for (const std::int32_t vendor : inOrderOfEntry) {
    if (random.chance(10)) records.addFreed();
    const std::int32_t record = records.add(RecordWriter(records.recordLength())
                                                .integer(1, 'J', 1)
                                                .integer(3, 'D', vendor)
                                                .packed(6, 20, companyName(random))
                                                .packed(26, 20, streetAddress(random))
                                                .bytes());
    byNumber.add(integerKey('L', vendor, 4), record);
  }
}

}  // namespace dg::sample
