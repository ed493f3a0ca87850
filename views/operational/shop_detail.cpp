#include "views/operational/shop_detail.h"

#include "records/catalogue.h"

namespace dg {

namespace {

constexpr DetailFormat kFormat = {.file = files::kInvoices,
                                  .tag = "clsShopDetail",
                                  .codes = kInvoiceCodes,
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
