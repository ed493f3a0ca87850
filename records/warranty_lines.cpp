#include "records/warranty_lines.h"

#include "records/file_names.h"
#include "records/index_walk.h"
#include "records/warranty.h"

namespace dg {

namespace {

constexpr LineFormat::Code kCodes[] = {
    {"500", LineTotal::kLabor},
};

constexpr LineFormat kFormat = {.file = files::kWarranties,
                                .tag = "clsWarrDetail",
                                .codes = kCodes,
                                .hasRequest = false,
                                .remarkClears = false};

}  // namespace

clsWarrDetail::clsWarrDetail() : LineBuilder(kFormat) {}

void clsWarrDetail::GetDetail() {
  runTrapped("GetDetail", [this] {
    clearError();
    clearLines();
    std::int32_t record = findOrNext(files::kWarrantyIndex, integerKey('L', shopRef_));
    clsWarranty claim;
    claim.Unpack(PageRecord::read(files::kWarranties, record).bytes());
    BuildPage(record);
    BuildDetail();
  });
}

}  // namespace dg
