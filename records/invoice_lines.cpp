#include "records/invoice_lines.h"

#include "records/file_names.h"
#include "records/invoice_history_detail.h"

namespace dg {

namespace {

// The tag is the shop builder's: readers of the log know these words for both.
constexpr LineFormat kFormat = {.file = files::kInvoices,
                                .tag = "clsShopDetail",
                                .codes = kInvoiceCodes,
                                .hasRequest = false,
                                .remarkClears = true};

}  // namespace

clsInvDetail::clsInvDetail() : LineBuilder(kFormat) {}

void clsInvDetail::GetDetail() {
  runTrapped("GetDetail", [this] {
    // Nothing reads this line's members, but decoding it sets the table that the lines need.
    clsInvoiceHistoryDetail first;
    first.Unpack(PageRecord::read(files::kInvoices, invoiceRec_).bytes());
    BuildPage(invoiceRec_);
    BuildDetail();
  });
}

}  // namespace dg
