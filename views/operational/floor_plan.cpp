#include "views/operational/floor_plan.h"

#include <string_view>

#include "engine/business_basic.h"
#include "engine/walk_guard.h"
#include "platform/text.h"
#include "platform/values/convert.h"
#include "platform/values/format.h"
#include "records/file_names.h"
#include "records/floor_plan.h"
#include "records/open/floor_plan_entries.h"
#include "records/parts.h"
#include "records/read.h"
#include "shell/recap_sheet.h"
#include "shell/sort_grid.h"
#include "shell/splash.h"
#include "shell/trap.h"

namespace dg {

namespace {

constexpr std::string_view kTotalMask = "$###,###,###.00";
constexpr std::string_view kAmountMask = "###,###,###.00";

constexpr std::string_view kHasExtents = "Yes";
constexpr std::string_view kTextLine = "REM";

constexpr ColumnSpec kColumns[] = {
    {.name = "Line", .kind = ColumnKind::kNumber, .button = true},
    {.name = "Name"},
    {.name = "Cost", .kind = ColumnKind::kMoney},
    {.name = "Extents", .kind = ColumnKind::kMoney},
    {.name = "Total", .kind = ColumnKind::kMoney},
};
// The table is one column out of step with the grid from "Extents" on: the last two columns have no
// sort, and the last two entries no column.
constexpr HeadSort kHeadSorts[] = {
    {"Line"}, {"Name", true}, {"Cost"}, {}, {}, {"Extents"}, {"Total"},
};

constexpr ColumnSpec kDetailColumns[] = {
    {.name = "Model"},
    {.name = "Serial Number"},
    {.name = "Ext", .button = true},
    {.name = "Date Sold", .kind = ColumnKind::kDate},
    {.name = "Cust #", .kind = ColumnKind::kNumber},
    {.name = "Invoice", .kind = ColumnKind::kNumber},
    {.name = "Amount", .kind = ColumnKind::kMoney},
    {.name = "Date In", .kind = ColumnKind::kDate},
    {.name = "Date Due", .kind = ColumnKind::kDate},
    {.name = "Ref 1"},
    {.name = "Ref 2"},
    {.name = "Date Paid", .kind = ColumnKind::kDate},
    {.name = "Pmt #"},
    {.name = "Cost", .kind = ColumnKind::kMoney},
    {.name = "Extptr", .kind = ColumnKind::kNumber, .hidden = true},
};
constexpr HeadSort kDetailSorts[] = {
    {"Model", true},    {"Serial Number", true},
    {"Ext", true},      {"Date Sold", true},
    {"Cust #"},         {"Invoice", true},
    {"Amount"},         {"Date In", true},
    {"Date Due", true}, {"Ref 1", true},
    {"Ref 2", true},    {"Date Paid", true},
    {"Pmt #", true},    {"Cost"},
};

constexpr ColumnSpec kExtentColumns[] = {
    {.name = "Line", .kind = ColumnKind::kNumber},
    {.name = "Part Number"},
    {.name = "Description"},
    {.name = "Quantity", .kind = ColumnKind::kNumber},
    {.name = "Cost", .kind = ColumnKind::kMoney},
    {.name = "Net", .kind = ColumnKind::kMoney},
};

constexpr Place kSheet[] = {
    {.control = "lblTitle", .row = 0},
    {.control = "grdFp", .row = 1},
    {.control = "lblFpTot", .row = 2, .under = "Total"},
};
constexpr Place kDetailSheet[] = {
    {.control = "Label1", .row = 0},
    {.control = "grdFpdtl", .row = 1},
};
constexpr Place kExtentSheet[] = {
    {.control = "grdfpx", .row = 0},
};

Variant dateOrEmpty(Date date) {
  return date == kEmptyDate ? Variant(std::string()) : Variant(date);
}

void addEntry(Grid& grid, const clsFloorPlan& entry, Currency cost) {
  grid.AddNew();
  grid.set("Ext", std::string(entry.ExtentChain != 0 ? kHasExtents : "No"));
  grid.set("Model", entry.Part_Number);
  grid.set("Serial Number", entry.Serial_Number);
  grid.set("Ref 1", entry.Reference_1);
  grid.set("Ref 2", entry.Reference_2);
  grid.set("Date In", dateOrEmpty(entry.Date_Received));
  grid.set("Date Due", dateOrEmpty(entry.Date_Due));
  grid.set("Date Paid", dateOrEmpty(entry.Date_Paid));
  grid.set("Date Sold", dateOrEmpty(entry.Date_Sold));
  grid.set("Pmt #", entry.Payment_Reference);
  grid.set("Cost", Format(cost, kAmountMask));
  grid.set("Cust #", entry.Account);
  grid.set("Invoice", entry.Customer_Invoice);
  grid.set("Amount", Format(entry.Sold_For_Price, kAmountMask));
  grid.set("Extptr", entry.ExtentChain);
  grid.Update();
}

void addExtent(Grid& grid, const clsFloorPlanExtent& extent) {
  grid.AddNew();
  grid.set("Line", extent.Line);
  grid.set("Part Number", extent.PartNumber);
  grid.set("Description", extent.Line == kTextLine
                              ? extent.LongText
                              : GetPartDescription(extent.Line, extent.PartNumber));
  grid.set("Quantity", extent.Quantity);
  grid.set("Cost", Format(extent.Cost, kAmountMask));
  grid.set("Net", Format(extent.Net, kAmountMask));
  grid.Update();
}

}  // namespace

frmFpx::frmFpx() : Form("frmFpx", "Extents"), grdfpx(add<Grid>("grdfpx", kExtentColumns)) {
  setSheet(kExtentSheet);
}

frmFpdtl::frmFpdtl()
    : Form("frmFpdtl", "Floor Plan Detail"),
      Label1(add<Label>("Label1", "", LabelRole::kTitle)),
      grdFpdtl(add<Grid>("grdFpdtl", kDetailColumns)) {
  sortOnHeads(grdFpdtl, kDetailSorts);
  grdFpdtl.rowOpens = [this](int row) { return grdFpdtl.CellValue("Ext", row) == kHasExtents; };
  grdFpdtl.onRowClick = [this](int row) { grdFpdtl_BtnClick(row); };
  setSheet(kDetailSheet);
}

void frmFpdtl::grdFpdtl_BtnClick(int row) {
  if (grdFpdtl.CellValue("Ext", row) != kHasExtents) return;
  std::int32_t record = CLng(grdFpdtl.CellValue("Extptr", row));
  frmFpx extents;
  extents.setCaption("Extents...     Model " + grdFpdtl.CellValue("Model", row) + " - " +
                     grdFpdtl.CellValue("Serial Number", row));
  const auto file = LogicalFileArgument(files::kFloorPlanExtents).resolve();
  WalkGuard guard(*file);
  clsFloorPlanExtent extent;
  for (; record != 0; record = extent.ExtentNext) {
    guard.step(record);
    extent.Unpack(readRecord(file, record));
    addExtent(extents.grdfpx, extent);
  }
  extents.ShowModal();
}

frmFp::frmFp()
    : View("frmFp", "Floor Plan"),
      grdFp(addTitled<Grid>("lblTitle", "Floor Plan", "grdFp", kColumns)),
      lblFpTot(add<Label>("lblFpTot")) {
  sortOnHeads(grdFp, kHeadSorts);
  grdFp.onRowClick = [this](int row) { grdFp_BtnClick(row); };
  setSheet(kSheet);
}

void frmFp::Form_Load() {
  showProgress("Loading Floor Plan Data...");
  trapView(
      *this, "Error in frmFp GetFpData routine ", [this] { GetFpData(); },
      [] { markRecapError(Figure::kFloorPlan); });
}

void frmFp::GetFpData() {
  Currency grand;
  forEachFloorPlanLine([&](std::int32_t line, const std::string& name, Currency cost) {
    if (cost != Currency()) addLine(line, name, cost);
    grand += cost;
  });
  const std::string text = Format(grand, kTotalMask);
  writeRecap(Figure::kFloorPlan, text);
  lblFpTot.setCaption("Total  : " + text);
  grdFp.MoveFirst();
}

/// Adds the row of a line that has anything on the floor.
void frmFp::addLine(std::int32_t line, const std::string& name, Currency sum) {
  // Nothing adds to the extents: the column shows none in every row, and the total is the cost.
  const Currency extents;
  grdFp.AddNew();
  grdFp.set("Line", line);
  grdFp.set("Name", name);
  grdFp.set("Cost", Format(sum, kAmountMask));
  grdFp.set("Extents", Format(extents, kAmountMask));
  grdFp.set("Total", Format(sum + extents, kAmountMask));
  grdFp.Update();
}

void frmFp::grdFp_BtnClick(int row) {
  const std::string line = grdFp.CellValue("Line", row);
  frmFpdtl detail;
  detail.Label1.setCaption("Line  " + line + " - " + grdFp.CellValue("Name", row));
  forEachOpenEntry(CLng(line), [&detail](const clsFloorPlan& entry, Currency cost) {
    addEntry(detail.grdFpdtl, entry, cost);
  });
  detail.ShowModal();
}

}  // namespace dg
