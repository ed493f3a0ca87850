#include "tools/sample/sample_store.h"

#include <string_view>

#include "engine/state.h"
#include "platform/values/run_time_error.h"
#include "tools/sample/families/families.h"
#include "tools/sample/folder_swap.h"
#include "tools/sample/random.h"
#include "tools/sample/sample_world.h"
#include "tools/sample/store_builder.h"
#include "tools/sample/store_layout.h"

namespace dg {

namespace {

using namespace sample;

struct Family {
  std::string_view name;  // seeds its random stream
  FamilyFunction* add;
};

/// In the order in which they are made: a family reads what those before it left in the world.
constexpr Family kFamilies[] = {
    {"company", &addCompany},
    {"receivables", &addReceivables},
    {"lines", &addLines},
    {"parts", &addParts},
    {"countermen", &addCountermen},
    {"ledger", &addLedger},
    {"vendors", &addVendors},
    {"purchase orders", &addPurchaseOrders},
    {"returns", &addReturns},
    {"customers", &addCustomers},
    {"shop jobs", &addShopJobs},
    {"orders", &addOrders},
    {"warranty claims", &addWarrantyClaims},
    {"units", &addUnits},
    {"floor plan", &addFloorPlan},
};

constexpr int kGreatestScale = 1000;
constexpr int kMostStores = 99;

void requireUsable(const SampleOptions& options) {
  const bool usable = options.scale >= 1 && options.scale <= kGreatestScale &&
                      options.stores >= 1 && options.stores <= kMostStores &&
                      options.indexFill >= 1 && options.indexFill <= 100 &&
                      options.asOf.year() >= 1970 && options.asOf.year() <= 2099;
  if (!usable) throw RunTimeError(kInvalidProcedureCall);
}

/// Writing sets the engine's packed-text table; a caller's engine must not notice.
class MaskTableGuard {
 public:
  MaskTableGuard() : former_(MaskTable) { MaskTable = kDefaultMaskTable; }
  ~MaskTableGuard() { MaskTable = former_; }
  MaskTableGuard(const MaskTableGuard&) = delete;
  MaskTableGuard& operator=(const MaskTableGuard&) = delete;

 private:
  std::string former_;
};

void fill(StoreBuilder& builder, const SampleOptions& options) {
  SampleWorld world;
  for (const Family& family : kFamilies) {
    Random random(options.seed, family.name);
    family.add(builder, random, options, world);
  }
}

/// "LNK002" for store 2.
std::string directoryName(int number) {
  const std::string digits = std::to_string(number);
  return "LNK" + std::string(3 - digits.size(), '0') + digits;
}

}  // namespace

std::vector<SampleFile> composeSampleStore(const SampleOptions& options) {
  requireUsable(options);
  const MaskTableGuard guard;
  std::vector<OtherStore> others;
  for (int number = 2; number <= options.stores; ++number) {
    SampleOptions own = options;
    own.seed = options.seed + static_cast<std::uint64_t>(number) - 1;
    OtherStore other{.directory = directoryName(number), .files = {}};
    StoreBuilder builder(own);
    fill(builder, own);
    other.files = builder.finishOther(other.directory);
    others.push_back(std::move(other));
  }
  StoreBuilder builder(options);
  fill(builder, options);
  return builder.finish(std::move(others));
}

void writeSampleStore(const std::string& folder, const SampleOptions& options) {
  const std::vector<SampleFile> files = composeSampleStore(options);
  FolderSwap swap(folder);
  for (const SampleFile& file : files)
    swap.write(file.path, file.content);
  swap.commit();
}

}  // namespace dg
