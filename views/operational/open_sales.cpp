#include "views/operational/open_sales.h"

#include <algorithm>
#include <functional>
#include <span>
#include <string_view>

#include "engine/business_basic.h"
#include "engine/codec.h"
#include "engine/state.h"
#include "platform/text.h"
#include "platform/values/convert.h"
#include "platform/values/format.h"
#include "records/file_names.h"
#include "records/index_walk.h"
#include "shell/recap_sheet.h"
#include "shell/sort_grid.h"
#include "shell/splash.h"
#include "shell/trap.h"
#include "views/digit_date.h"
#include "views/operational/customer_lookup.h"
#include "views/operational/open_sales_window.h"
#include "views/operational/order_pages.h"

namespace dg {

namespace {

constexpr std::string_view kRecapMask = "$#,###,###.00";
constexpr std::string_view kGridTotalMask = "$###,###.00";
constexpr std::string_view kSubTotalMask = "$##,###.00";

/// The blocks of the control file that hold the saved invoices' slots. The second range belongs to
/// stores that mark themselves with "Y"; the mark is never set, so it is always the first.
struct BlockRange {
  std::string_view mark;
  std::int32_t first, last;
};
constexpr BlockRange kSavedBlocks[] = {{"", 301, 325}, {"Y", 701, 764}};
constexpr std::string_view kStoreMark = "";

// Each block holds four groups of 31 four-byte slots.
constexpr std::int32_t kGroups = 4;
constexpr std::int32_t kGroupWidth = 128;
constexpr std::int32_t kGroupSlots = 5;
constexpr std::int32_t kSlots = 31;
constexpr std::int32_t kSlotWidth = 4;

constexpr ColumnSpec kColumns[] = {
    {.name = "Type"},
    {.name = "Ticket No.", .kind = ColumnKind::kNumber},
    {.name = "Date", .kind = ColumnKind::kDate},
    {.name = "Account", .caption = "Cust #", .kind = ColumnKind::kNumber},
    {.name = "Name"},
    {.name = "CM", .kind = ColumnKind::kNumber},
    {.name = "Items", .kind = ColumnKind::kNumber},
    {.name = "PO Number"},
    {.name = "Sub-Total", .kind = ColumnKind::kMoney},
    {.name = "ndate", .kind = ColumnKind::kNumber, .hidden = true},
    {.name = "Recno", .kind = ColumnKind::kNumber, .hidden = true},
};
/// Only saved invoices have the last column.
constexpr std::span<const ColumnSpec> kSavedColumns = kColumns;
constexpr std::span<const ColumnSpec> kTicketColumns = kSavedColumns.first(std::size(kColumns) - 1);

// The two grids differ in what they sort as text. Neither uses "ndate": a click on "Date" sorts by
// the date's text.
constexpr HeadSort kTicketSorts[] = {
    {"Type"}, {"Ticket No."}, {"Date"},      {"Account"},   {"Name", true},
    {"CM"},   {"Items"},      {"PO Number"}, {"Sub-Total"},
};
constexpr HeadSort kSavedSorts[] = {
    {"Type", true}, {"Ticket No.", true}, {"Date", true}, {"Account"}, {"Name", true}, {"CM"},
    {"Items"},      {"PO Number", true},  {"Sub-Total"},
};

constexpr Place kSheet[] = {
    {.control = "Label1", .row = 0},      {.control = "grdTickets", .row = 1},
    {.control = "lblPTtot(0)", .row = 2}, {.control = "Label2", .row = 3},
    {.control = "grdSaved", .row = 4},    {.control = "lblPTtot(1)", .row = 5},
};

/// Adds the row of an order. "Items" counts from the record that the index or slot names, over all
/// its pages; everything else comes from page 1. Returns the sub-total.
Currency addOrder(Grid& grid, clsInvoiceHistory& order, std::int32_t record,
                  const std::string& type) {
  const PageRecord named = PageRecord::read(files::kInvoices, record);
  const PageRecord first = firstPage(named);
  const std::int32_t date = first.link();
  order.Unpack(first.bytes());
  grid.AddNew();
  grid.set("Type", type);
  grid.set("Ticket No.", order.Invoice_Number);
  grid.set("Account", order.Account);
  grid.set("Name", customerName(order.Account));
  grid.set("CM", order.COUNTERMAN_Number);
  grid.set("PO Number", order.Purchase_Order_No);
  grid.set("Items", ItemCount(named));
  grid.set("Sub-Total", Format(order.Sub_Total, kSubTotalMask));
  grid.set("Date", digitDateText(date));
  grid.set("ndate", digitDateDay(date));
  return order.Sub_Total;
}

bool isAllNul(std::string_view bytes) {
  return std::ranges::all_of(bytes, [](char byte) { return byte == '\0'; });
}

/// Calls `visit` with the record number of each used slot of the saved invoices' table.
void forEachSavedInvoice(const std::function<void(std::int32_t record)>& visit) {
  const auto& range = *std::ranges::find(kSavedBlocks, kStoreMark, &BlockRange::mark);
  for (std::int32_t number = range.first; number <= range.last; ++number) {
    bool orb = true;
    const std::string block = sharedEngine().BlockReadFile(files::kControlFile, number, orb);
    for (std::int32_t group = 0; group < kGroups; ++group) {
      const std::int32_t start = group * kGroupWidth + kGroupSlots;
      if (isAllNul(middle(block, static_cast<std::size_t>(start), kSlots * kSlotWidth))) continue;
      for (std::int32_t slot = 0; slot < kSlots; ++slot) {
        const std::int32_t position = start + slot * kSlotWidth;
        if (isAllNul(middle(block, static_cast<std::size_t>(position), kSlotWidth))) continue;
        visit(Unpack('L', block, position));
      }
    }
  }
}

}  // namespace

frmOpenSales::frmOpenSales()
    : View("frmOpenSales", "Open Sales Orders"),
      grdTickets((add<Label>("Label1", "Pick Tickets", LabelRole::kTitle),
                  add<Grid>("grdTickets", kTicketColumns))),
      grdSaved((add<Label>("Label2", "Saved Invoices", LabelRole::kTitle),
                add<Grid>("grdSaved", kSavedColumns))),
      lblPTtot(addLabels<2>("lblPTtot")) {
  grdTickets.onHeadClick = [this](int column) { sortByHead(grdTickets, column, kTicketSorts); };
  grdSaved.onHeadClick = [this](int column) { sortByHead(grdSaved, column, kSavedSorts); };
  grdTickets.onRowClick = [this](int row) {
    ShowPickTicket(CLng(grdTickets.CellValue("Ticket No.", row)));
  };
  grdSaved.onRowClick = [this](int row) {
    ShowSavedInvoice(CLng(grdSaved.CellValue("Recno", row)));
  };
  setSheet(kSheet);
}

void frmOpenSales::Form_Load() {
  trapView(
      *this, "Error in frmOpenSales GetPTSData routine ", [this] { GetPTSData(); },
      [] { markRecapError(Figure::kOpenSales); });
}

void frmOpenSales::GetPTSData() {
  showProgress("Loading Open Sales Orders...");
  for (Grid* grid : {&grdTickets, &grdSaved}) {
    grid->RemoveAll();
    grid->Refresh();
  }
  // One instance for the whole load: a member that a layout does not fill keeps what an earlier
  // order left there.
  clsInvoiceHistory order;
  const Currency tickets = addPickTickets(order);
  const Currency saved = addSavedInvoices(order);
  lblPTtot[0]->setCaption("Total      " + Format(tickets, kGridTotalMask));
  lblPTtot[1]->setCaption("Total      " + Format(saved, kGridTotalMask));
  writeRecap(Figure::kOpenSales, Format(tickets + saved, kRecapMask));
}

Currency frmOpenSales::addPickTickets(clsInvoiceHistory& order) {
  Currency total;
  for (IndexWalk walk(files::kTicketIndex, std::string()); !walk.atEnd(); walk.next()) {
    total += addOrder(grdTickets, order, walk.record(), "P-Ticket");
    grdTickets.Update();
  }
  grdTickets.MoveFirst();
  return total;
}

Currency frmOpenSales::addSavedInvoices(clsInvoiceHistory& order) {
  Currency total;
  forEachSavedInvoice([&](std::int32_t record) {
    total += addOrder(grdSaved, order, record, "Saved Inv");
    grdSaved.set("Recno", record);
    grdSaved.Update();
  });
  grdSaved.MoveFirst();
  return total;
}

}  // namespace dg
