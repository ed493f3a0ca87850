// Page chains of any bytes through the three builders.

#include "engine/open_file.h"
#include "fuzz/fuzz_input.h"
#include "fuzz/fuzz_store.h"
#include "records/file_names.h"
#include "records/invoice_lines.h"
#include "records/order_pages.h"
#include "records/shop_lines.h"
#include "records/warranty_lines.h"

namespace {

constexpr std::int32_t kRecordLength = 512;
constexpr std::int32_t kLastRecord = 32;

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  dg::fuzz::FuzzInput input(data, size);
  const std::int32_t record = static_cast<std::int32_t>(input.number(1) % (kLastRecord + 2));
  dg::fuzz::FuzzStore store;
  std::string directory;
  for (const char* name : {dg::files::kInvoices, dg::files::kWarranties})
    directory += dg::fuzz::directoryEntry(name, 'L', kRecordLength, kLastRecord);
  if (!store.openEngine(dg::fuzz::storeOf(directory, input.rest()))) return 0;

  dg::clsShopDetail shop;
  shop.ShopRec(record);
  shop.GetDetail();
  dg::clsInvDetail invoice;
  invoice.InvoiceRec(record);
  invoice.GetDetail();
  dg::clsWarrDetail warranty;
  warranty.ShopRef(record);
  warranty.GetDetail();
  try {
    const dg::PageRecord page = dg::PageRecord::read(dg::files::kInvoices, record);
    dg::ItemCount(page);
    dg::firstPage(page);
  } catch (const dg::RunTimeError&) {  // NOLINT(bugprone-empty-catch): errors are answers here
  }
  return 0;
}
