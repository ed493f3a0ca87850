#include "records/open/orders.h"

#include <algorithm>
#include <string_view>

#include "platform/values/date.h"
#include "records/control_file.h"
#include "records/customer_lookup.h"
#include "records/digit_date.h"
#include "records/file_names.h"
#include "records/index_walk.h"
#include "records/open/open_work.h"
#include "records/order_pages.h"

namespace dg {

namespace {

/// The blocks of the control file that hold the saved invoices' slots. The second range belongs to
/// stores that mark themselves with "Y"; the mark is never set, so it is always the first.
struct SavedBlocks {
  std::string_view mark;
  control_file::Blocks blocks;
};
constexpr SavedBlocks kSavedBlocks[] = {{"", control_file::kSavedInvoices}, {"Y", {701, 764}}};
constexpr std::string_view kStoreMark;

bool isAllNul(std::string_view bytes) {
  return std::ranges::all_of(bytes, [](char byte) { return byte == '\0'; });
}

/// Calls `visit` with the record number of each used slot of the saved invoices' table.
void forEachSavedInvoice(const std::function<void(std::int32_t record)>& visit) {
  using namespace control_file;
  const Blocks range = std::ranges::find(kSavedBlocks, kStoreMark, &SavedBlocks::mark)->blocks;
  for (std::int32_t number = range.first; number <= range.last; ++number) {
    const std::string block = readControlBlock(number);
    for (std::int32_t group = 0; group < kSavedGroups; ++group) {
      const NumberField first = savedSlot(group, 0);
      if (isAllNul(bytesOf({first.position, kSavedPerGroup * first.width()}, block))) continue;
      for (std::int32_t slot = 0; slot < kSavedPerGroup; ++slot) {
        const NumberField field = savedSlot(group, slot);
        if (isAllNul(bytesOf({field.position, field.width()}, block))) continue;
        visit(Unpack(field, block));
      }
    }
  }
}

Date dateOf(std::int32_t digits) {
  const auto date = Date::parse(digitDateText(digits));
  return date ? *date : kEmptyDate;
}

OpenWork workOf(const OpenOrder& open, OpenRow row) {
  return {.what = std::to_string(open.order.Invoice_Number),
          .who = customerName(open.order.Account),
          .amount = open.order.Sub_Total,
          .date = dateOf(open.dateDigits),
          .row = std::move(row)};
}

void visitOrder(clsInvoiceHistory& order, std::int32_t record, const VisitOrder& visit,
                OpenWorkReport& report, bool saved) {
  const PageRecord named = PageRecord::read(files::kInvoices, record);
  const PageRecord first = firstPage(named);
  const OpenOrder open{
      .order = order, .named = named, .record = record, .dateDigits = first.link()};
  order.Unpack(first.bytes());
  visit(open);
  report.add([&] {
    OpenRow row{.view = "frmOpenSales", .grid = "grdTickets", .first = {}, .second = {}};
    row.first = {"Ticket No.", std::to_string(order.Invoice_Number)};
    if (saved) {
      row.grid = "grdSaved";
      row.first = {"Recno", std::to_string(record)};
    }
    return workOf(open, std::move(row));
  });
}

}  // namespace

void forEachOpenOrder(const VisitOrder& ticket, const std::function<void()>& between,
                      const VisitOrder& saved) {
  OpenWorkReport report(OpenFamily::kOrders);
  clsInvoiceHistory order;
  for (IndexWalk walk(files::kTicketIndex, std::string()); !walk.atEnd(); walk.next())
    visitOrder(order, walk.record(), ticket, report, false);
  between();
  forEachSavedInvoice([&](std::int32_t record) { visitOrder(order, record, saved, report, true); });
  report.end();
}

}  // namespace dg
