#include "views/operational/shop_detail.h"

#include "records/catalogue.h"

namespace dg {

namespace {

constexpr DetailFormat::Code kCodes[] = {
    {"500", DetailTotal::kLabor},
    {"502", DetailTotal::kFreight},
    {"550", DetailTotal::kMisc},
};

constexpr DetailFormat kFormat = {.file = files::kInvoices,
                                  .tag = "clsShopDetail",
                                  .codes = kCodes,
                                  .hasRequest = true,
                                  .remarkClears = false};

}  // namespace

clsShopDetail::clsShopDetail() : DetailBuilder(kFormat) {}

void clsShopDetail::GetDetail() {
  runTrapped("GetDetail", [this] {
    ShopJob_ = clsShop();
    ShopJob_.Unpack(PageRecord::read(files::kInvoices, shopRec_).bytes());
    BuildPage(shopRec_);
    BuildDetail();
  });
}

}  // namespace dg
