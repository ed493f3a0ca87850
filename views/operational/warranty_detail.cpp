#include "views/operational/warranty_detail.h"

#include "records/catalogue.h"
#include "records/index_walk.h"
#include "records/warranty.h"

namespace dg {

namespace {

constexpr DetailFormat::Code kCodes[] = {
    {"500", DetailTotal::kLabor},
};

constexpr DetailFormat kFormat = {.file = files::kWarranties,
                                  .tag = "clsWarrDetail",
                                  .codes = kCodes,
                                  .hasRequest = false,
                                  .remarkClears = false};

}  // namespace

clsWarrDetail::clsWarrDetail() : DetailBuilder(kFormat) {}

void clsWarrDetail::GetDetail() {
  runTrapped("GetDetail", [this] {
    clearError();
    clearLines();
    const IndexWalk found(files::kWarrantyIndex, integerKey('L', shopRef_));
    std::int32_t record = found.record();
    clsWarranty claim;
    claim.Unpack(PageRecord::read(files::kWarranties, record).bytes());
    BuildPage(record);
    BuildDetail();
  });
}

}  // namespace dg
