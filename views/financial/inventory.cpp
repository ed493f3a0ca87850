#include "views/financial/inventory.h"

#include "platform/values/checked.h"
#include "platform/values/format.h"
#include "records/control_file.h"
#include "records/lines.h"
#include "records/open/own_lines.h"
#include "shell/recap_sheet.h"
#include "shell/sort_grid.h"
#include "shell/splash.h"
#include "shell/trap.h"

namespace dg {

namespace {

constexpr std::string_view kTotalMask = "$#,###,###.00";
constexpr std::string_view kSalesMask = "$##,###,###.00";
constexpr std::string_view kTurnsMask = "####.00";
constexpr std::string_view kRateMask = "##.00";

/// The program keeps its lines in a table of this size; a store with more is an error.
constexpr int kMaxLines = 1000;

// "Peices" is the program's own spelling; users find the heading by it.
constexpr ColumnSpec kColumns[] = {
    {.name = "Line", .kind = ColumnKind::kNumber, .group = "Product Group"},
    {.name = "Alpha"},
    {.name = "Merchandise",
     .caption = "Investment",
     .kind = ColumnKind::kMoney,
     .mask = kCurrencyStyle},
    {.name = "Ytd", .kind = ColumnKind::kMoney, .group = "Sales"},
    {.name = "Mtd", .kind = ColumnKind::kMoney},
    {.name = "Est. Turns", .kind = ColumnKind::kNumber},
    {.name = "Ord/I",
     .caption = "Ord",
     .kind = ColumnKind::kNumber,
     .group = "Fill %  By Invoice Item"},
    {.name = "Shp/I", .caption = "Shp", .kind = ColumnKind::kNumber},
    {.name = "Fill %/I", .caption = "Fill %", .kind = ColumnKind::kNumber},
    {.name = "Ord/D",
     .caption = "Ord",
     .kind = ColumnKind::kNumber,
     .group = "Fill % By Dollars Ordered"},
    {.name = "Shp/D", .caption = "Shp", .kind = ColumnKind::kNumber},
    {.name = "Fill %/D", .caption = "Fill %", .kind = ColumnKind::kNumber},
    {.name = "Ord/P",
     .caption = "Ord",
     .kind = ColumnKind::kNumber,
     .group = "Fill % By Peices Ordered"},
    {.name = "Shp/P", .caption = "Shp", .kind = ColumnKind::kNumber},
    {.name = "Fill %/P", .caption = "Fill %", .kind = ColumnKind::kNumber},
};

constexpr HeadSort kHeadSorts[] = {
    {"Line"},       {"Alpha", true}, {"Investment"}, {"Ytd"},      {"Mtd"},
    {"Est. Turns"}, {"Ord/I"},       {"Shp/I"},      {"Fill %/I"}, {"Ord/D"},
    {"Shp/D"},      {"Fill %/D"},    {"Ord/P"},      {"Shp/P"},    {"Fill %/P"},
};

constexpr Place kSheet[] = {
    {.control = "Label1", .row = 0, .columnSpan = 3},
    {.control = "grdInvest", .row = 1, .columnSpan = 3},
    {.control = "lblinvtot(0)", .row = 2, .column = 0},
    {.control = "lblinvtot(1)", .row = 2, .column = 1},
    {.control = "lblinvtot(2)", .row = 2, .column = 2},
};

/// The three fill rates of a line: where each stands in the grid and what it is worked out from.
struct FillRate {
  std::string_view ordered, shipped, rate;
  std::int32_t clsLines::*orderedMember;
  std::int32_t clsLines::*shippedMember;
};
constexpr FillRate kFillRates[] = {
    {"Ord/I", "Shp/I", "Fill %/I", &clsLines::YTD_Items_Ordered, &clsLines::YTD_Items_Filled},
    {"Ord/D", "Shp/D", "Fill %/D", &clsLines::YTD_Dollars_Ord, &clsLines::YTD_Dollars_Filled},
    {"Ord/P", "Shp/P", "Fill %/P", &clsLines::YTD_Pieces_Ordered, &clsLines::YTD_Pieces_Filled},
};

void addFillRates(Grid& grid, const clsLines& line) {
  for (const FillRate& columns : kFillRates) {
    const std::int32_t ordered = line.*columns.orderedMember;
    const std::int32_t shipped = line.*columns.shippedMember;
    grid.set(columns.ordered, ordered);
    grid.set(columns.shipped, shipped);
    const double rate = ordered > 0 ? static_cast<double>(shipped) / ordered * 100 : 0;
    grid.set(columns.rate, Format(rate, kRateMask));
  }
}

}  // namespace

frmInv::frmInv()
    : View("frmInv", "Current Inventory"),
      grdInvest(addTitled<Grid>("Label1", "Current Inventory", "grdInvest", kColumns)),
      lblinvtot(addLabels<3>("lblinvtot")) {
  sortOnHeads(grdInvest, kHeadSorts);
  setSheet(kSheet);
}

void frmInv::Form_Load() {
  showProgress("Loading Inventory...");
  trapView(
      *this, "Error in frmInv GetLineData routine ", [this] { GetLineData(); },
      [] { markRecapError(Figure::kPartsInventory); });
}

void frmInv::GetLineData() {
  grdInvest.RemoveAll();
  grdInvest.Refresh();
  Currency merchandise;
  Currency year;
  Currency month;
  forEachListedLine([&](const clsLines& line, const std::string& record) {
    if (grdInvest.Rows() >= kMaxLines) throw RunTimeError(kSubscriptOutOfRange);
    grdInvest.AddNew();
    grdInvest.set("Line", line.Line);
    grdInvest.set("Alpha", line.Alpha_Line);
    grdInvest.set("Merchandise", line.Cost_of_Mdse);
    grdInvest.set("Ytd", Format(line.YTD_Sales, kSalesMask));
    grdInvest.set("Mtd", Format(line.MTD_Sales, kSalesMask));
    grdInvest.set("Est. Turns", Format(EstimatedTurns(record), kTurnsMask));
    addFillRates(grdInvest, line);
    grdInvest.Update();
    merchandise += line.Cost_of_Mdse;
    year += line.YTD_Sales;
    month += line.MTD_Sales;
  });
  grdInvest.MoveFirst();
  writeRecap(Figure::kPartsInventory, Format(merchandise, kTotalMask));
  lblinvtot[0]->setCaption("Investment Total : " + Format(merchandise, kTotalMask));
  lblinvtot[1]->setCaption("Sales YTD : " + Format(year, kTotalMask));
  lblinvtot[2]->setCaption("Sales MTD : " + Format(month, kTotalMask));
  for (const Label* total : lblinvtot)
    total->Refresh();
}

double EstimatedTurns(const std::string& record) {
  // The control file's block is not used further, but a store without a control file has no turns:
  // the failure to read it is this routine's.
  Unpack(control_file::kUnusedByte, readControlBlock(control_file::kFirstBlock));

  const std::int32_t cost =
      checkedAdd(Unpack(line_record::kYearCost, record), Unpack(line_record::kMonthCost, record));
  // 94 days, whatever the date: the figure has always been made so, and owners compare it.
  const double yearly = cost * 365.0 / 94.0;
  const std::int32_t merchandise = Unpack(line_record::kMerchandise, record);
  return merchandise != 0 ? yearly * 100 / merchandise / 100 : 0;
}

}  // namespace dg
