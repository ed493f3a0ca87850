#include "records/shop_lines.h"

#include "records/file_names.h"

namespace dg {

namespace {

constexpr LineFormat kFormat = {.file = files::kInvoices,
                                .tag = "clsShopDetail",
                                .codes = kInvoiceCodes,
                                .hasRequest = true,
                                .remarkClears = false};

}  // namespace

clsShopDetail::clsShopDetail() : LineBuilder(kFormat) {}

void clsShopDetail::GetDetail() {
  runTrapped("GetDetail", [this] {
    ShopJob_ = clsShop();
    ShopJob_.Unpack(PageRecord::read(files::kInvoices, shopRec_).bytes());
    BuildPage(shopRec_);
    BuildDetail();
  });
}

}  // namespace dg
