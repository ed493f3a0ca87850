#include "views/financial/sales.h"

#include <string>

#include "platform/values/format.h"
#include "records/countermen.h"
#include "records/file_names.h"
#include "records/index_walk.h"
#include "records/read.h"
#include "shell/recap_sheet.h"
#include "shell/sort_grid.h"
#include "shell/splash.h"
#include "shell/trap.h"

namespace dg {

namespace {

constexpr std::string_view kAmountMask = "#,###,###.00";
constexpr std::string_view kRecapMask = "$#,###,###.00";

// "ndate" and "GPR" are in both grids and nothing fills them.
constexpr ColumnSpec kSalesColumns[] = {
    {.name = "Man", .caption = "Man #", .kind = ColumnKind::kNumber},
    {.name = "Name"},
    {.name = "Invoices", .caption = "# Invoices", .kind = ColumnKind::kNumber},
    {.name = "Items", .caption = "Line Items", .kind = ColumnKind::kNumber},
    {.name = "mdse", .caption = "Mdse", .kind = ColumnKind::kMoney},
    {.name = "Labor", .kind = ColumnKind::kMoney},
    {.name = "Disc", .kind = ColumnKind::kMoney},
    {.name = "GPR", .kind = ColumnKind::kPercent},
    {.name = "ndate", .caption = "jdate", .hidden = true},
};
constexpr ColumnSpec kCashColumns[] = {
    {.name = "Man", .caption = "Man #", .kind = ColumnKind::kNumber},
    {.name = "Name"},
    {.name = "Cash", .caption = "Cash-Sales", .kind = ColumnKind::kMoney},
    {.name = "Refunds", .kind = ColumnKind::kMoney},
    {.name = "ROA", .kind = ColumnKind::kMoney},
    {.name = "Deposits", .kind = ColumnKind::kMoney},
    {.name = "Net", .kind = ColumnKind::kMoney},
    {.name = "GPR", .kind = ColumnKind::kPercent},
    {.name = "ndate", .caption = "jdate", .hidden = true},
};

// A click counts the columns on show; the hidden one stands behind them, so each head sorts itself.
constexpr HeadSort kSalesSorts[] = {
    {"Man"}, {"Name", true}, {"Invoices"}, {"Items"}, {"mdse"}, {"Labor"}, {"Disc"},
};
constexpr HeadSort kCashSorts[] = {
    {"Man"}, {"Name", true}, {"Cash"}, {"Refunds"}, {"ROA"}, {"Deposits"}, {"Net"},
};

constexpr Place kSheet[] = {
    {.control = "Label1", .row = 0},
    {.control = "grdSales", .row = 1},
    {.control = "lblSaleTot", .row = 2, .under = "mdse"},
    {.control = "Label2", .row = 3},
    {.control = "grdCash", .row = 4},
    {.control = "lblCashTot", .row = 5, .under = "Net"},
};

void setAmount(Grid& grid, std::string_view column, Currency amount) {
  grid.set(column, Format(amount, kAmountMask));
}

void addSalesRow(Grid& grid, const clsCounterman& man) {
  grid.AddNew();
  grid.set("Man", man.COUNTERMAN_Number);
  grid.set("Name", man.Name);
  grid.set("Invoices", man.Todays_Invoices);
  grid.set("Items", man.Todays_Line_Items);
  setAmount(grid, "mdse", man.Todays_Mdse_Sales);
  setAmount(grid, "Labor", man.Todays_Labor_Sales);
  setAmount(grid, "Disc", man.Todays_Discounts);
  grid.set("GPR", std::string());
  grid.Update();
}

/// Every part of the net counts by its absolute value: a negative refund lowers it like any other.
Currency netCash(const clsCounterman& man) {
  return man.Todays_Cash_Recvd.abs() + man.Deposits_In_Today.abs() - man.Todays_Refunds.abs() +
         man.Todays_Payments.abs();
}

void addCashRow(Grid& grid, const clsCounterman& man, Currency net) {
  grid.AddNew();
  grid.set("Man", man.COUNTERMAN_Number);
  grid.set("Name", man.Name);
  setAmount(grid, "Cash", man.Todays_Cash_Recvd);
  setAmount(grid, "Refunds", man.Todays_Refunds);
  setAmount(grid, "ROA", man.Todays_Payments.abs());
  setAmount(grid, "Deposits", man.Deposits_In_Today);
  setAmount(grid, "Net", net);
  grid.Update();
}

}  // namespace

frmSales::frmSales()
    : View("frmSales", "Todays Sales"),
      grdSales(addTitled<Grid>("Label1", "Todays Sales", "grdSales", kSalesColumns)),
      grdCash(addTitled<Grid>("Label2", "Cash", "grdCash", kCashColumns)),
      lblSaleTot(add<Label>("lblSaleTot")),
      lblCashTot(add<Label>("lblCashTot")) {
  sortOnHeads(grdSales, kSalesSorts);
  sortOnHeads(grdCash, kCashSorts);
  setSheet(kSheet);
}

void frmSales::Form_Load() {
  showProgress("Loading Todays Sales...");
  // A failure marks the sales; the cash keeps what it has.
  trapView(
      *this, "Error in frmSales GetSales routine ", [this] { GetSales(); },
      [] { markRecapError(Figure::kTodaysSales); });
}

void frmSales::GetSales() {
  grdSales.RemoveAll();
  grdCash.RemoveAll();
  Currency sales;
  Currency cash;
  clsCounterman man;
  for (IndexWalk walk(files::kCountermanIndex, integerKey('C', 1)); !walk.atEnd(); walk.next()) {
    const std::string record =
        readRecord(files::kCountermen, files::kCountermanExtension, walk.record());
    man.Unpack(record);
    // An index entry whose record belongs to another number does not count.
    if (walk.keyField('C', 1) != Unpack(counterman_record::kNumber, record)) continue;
    addSalesRow(grdSales, man);
    sales += man.Todays_Mdse_Sales;
    const Currency net = netCash(man);
    addCashRow(grdCash, man, net);
    cash += net;
  }
  grdSales.MoveFirst();
  grdCash.MoveFirst();
  writeRecap(Figure::kTodaysSales, Format(sales, kRecapMask));
  writeRecap(Figure::kTodaysCash, Format(cash, kRecapMask));
  lblSaleTot.setCaption("Sales Total  " + Format(sales, kAmountMask));
  lblCashTot.setCaption("Cash Total  " + Format(cash, kAmountMask));
}

}  // namespace dg
