// Page chains of any bytes through the three builders.

#include "engine/codec.h"
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

std::string entry(const char* name) {
  std::string bytes(name);
  bytes.resize(32, '\0');
  dg::Pack('C', bytes, kRecordLength, 14);
  bytes[15] = 'L';
  dg::Pack('L', bytes, kLastRecord, 17);
  return bytes;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  dg::fuzz::FuzzInput input(data, size);
  const std::int32_t record = static_cast<std::int32_t>(input.number(1) % (kLastRecord + 2));
  dg::fuzz::FuzzStore store;
  const std::string directory = entry(dg::files::kInvoices) + entry(dg::files::kWarranties);
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
