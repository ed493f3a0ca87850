#include "views/operational/open_sales.h"

#include <span>
#include <string_view>

#include "engine/business_basic.h"
#include "engine/codec.h"
#include "engine/state.h"
#include "platform/text.h"
#include "platform/values/convert.h"
#include "platform/values/format.h"
#include "records/customer_lookup.h"
#include "records/digit_date.h"
#include "records/file_names.h"
#include "records/open/orders.h"
#include "records/order_pages.h"
#include "shell/recap_sheet.h"
#include "shell/sort_grid.h"
#include "shell/splash.h"
#include "shell/trap.h"
#include "views/operational/open_sales_window.h"

namespace dg {

namespace {

constexpr std::string_view kRecapMask = "$#,###,###.00";
constexpr std::string_view kGridTotalMask = "$###,###.00";
constexpr std::string_view kSubTotalMask = "$##,###.00";

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
    {.control = "Label1", .row = 0},
    {.control = "grdTickets", .row = 1},
    {.control = "lblPTtot(0)", .row = 2, .under = "Sub-Total"},
    {.control = "Label2", .row = 3},
    {.control = "grdSaved", .row = 4},
    {.control = "lblPTtot(1)", .row = 5, .under = "Sub-Total"},
};

/// Adds the row of an order. "Items" counts from the record that the index or slot names, over all
/// its pages; everything else comes from page 1. Returns the sub-total.
Currency addOrder(Grid& grid, const OpenOrder& open, const std::string& type) {
  const clsInvoiceHistory& order = open.order;
  grid.AddNew();
  grid.set("Type", type);
  grid.set("Ticket No.", order.Invoice_Number);
  grid.set("Account", order.Account);
  grid.set("Name", customerName(order.Account));
  grid.set("CM", order.COUNTERMAN_Number);
  grid.set("PO Number", order.Purchase_Order_No);
  grid.set("Items", ItemCount(open.named));
  grid.set("Sub-Total", Format(order.Sub_Total, kSubTotalMask));
  grid.set("Date", digitDateText(open.dateDigits));
  grid.set("ndate", digitDateDay(open.dateDigits));
  return order.Sub_Total;
}

}  // namespace

frmOpenSales::frmOpenSales()
    : View("frmOpenSales", "Open Sales Orders"),
      grdTickets(addTitled<Grid>("Label1", "Pick Tickets", "grdTickets", kTicketColumns)),
      grdSaved(addTitled<Grid>("Label2", "Saved Invoices", "grdSaved", kSavedColumns)),
      lblPTtot(addLabels<2>("lblPTtot")) {
  sortOnHeads(grdTickets, kTicketSorts);
  sortOnHeads(grdSaved, kSavedSorts);
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
  Currency tickets;
  Currency saved;
  forEachOpenOrder(
      [&](const OpenOrder& open) {
        tickets += addOrder(grdTickets, open, "P-Ticket");
        grdTickets.Update();
      },
      [this] { grdTickets.MoveFirst(); },
      [&](const OpenOrder& open) {
        saved += addOrder(grdSaved, open, "Saved Inv");
        grdSaved.set("Recno", open.record);
        grdSaved.Update();
      });
  grdSaved.MoveFirst();
  lblPTtot[0]->setCaption("Total      " + Format(tickets, kGridTotalMask));
  lblPTtot[1]->setCaption("Total      " + Format(saved, kGridTotalMask));
  writeRecap(Figure::kOpenSales, Format(tickets + saved, kRecapMask));
}

}  // namespace dg
