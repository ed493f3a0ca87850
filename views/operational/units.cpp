#include "views/operational/units.h"

#include <string_view>

#include "engine/business_basic.h"
#include "engine/state.h"
#include "platform/values/convert.h"
#include "platform/values/format.h"
#include "records/control_file.h"
#include "records/file_names.h"
#include "records/index_walk.h"
#include "records/open/unsold_units.h"
#include "records/read.h"
#include "shell/recap_sheet.h"
#include "shell/sort_grid.h"
#include "shell/splash.h"
#include "shell/trap.h"

namespace dg {

namespace {

constexpr std::string_view kTotalMask = "$###,###,###.00";
constexpr std::string_view kAmountMask = "###,###,###.00";
constexpr std::string_view kMeterMask = "######0.0";

constexpr ColumnSpec kColumns[] = {
    {.name = "Line", .kind = ColumnKind::kNumber, .button = true},
    {.name = "Name"},
    {.name = "Total", .kind = ColumnKind::kMoney},
};
constexpr ColumnSpec kDetailColumns[] = {
    {.name = "Model"},
    {.name = "Unit", .button = true},
    {.name = "Make"},
    {.name = "Description"},
    {.name = "Cost", .kind = ColumnKind::kMoney},
    {.name = "line", .kind = ColumnKind::kNumber, .hidden = true},
};
constexpr ColumnSpec kInfoColumns[] = {
    {.name = "Col1", .caption = " "},
    {.name = "Col2", .caption = " "},
};

constexpr HeadSort kHeadSorts[] = {{"Line"}, {"Name", true}, {"Total"}};

constexpr Place kSheet[] = {
    {.control = "lblTitle", .row = 0},
    {.control = "grdUnits", .row = 1},
    {.control = "lblFpTot", .row = 2, .under = "Total"},
};
constexpr Place kDetailSheet[] = {
    {.control = "Label1", .row = 0},
    {.control = "grdUnitDtl", .row = 1},
};
constexpr Place kInfoSheet[] = {
    {.control = "grdUnitinfo", .row = 0},
};

/// The rows of the information window above its spacing row, and below it.
struct InfoRow {
  std::string_view caption;
  Variant (*value)(const clsUnits&);
};

template <auto Member>
Variant value(const clsUnits& unit) {
  return unit.*Member;
}
Variant meter(const clsUnits& unit) {
  return Format(unit.Meter_Reading, kMeterMask);
}
Variant dateSold(const clsUnits& unit) {
  return unit.Date_Sold == kEmptyDate ? Variant(std::string()) : Variant(unit.Date_Sold);
}

constexpr InfoRow kUnitRows[] = {
    {"Serial Number (VID)", &value<&clsUnits::Unit_Serial_Number>},
    {"Manufacturer ID", &value<&clsUnits::Manufacturers_Identificati>},
    {"Model Year", &value<&clsUnits::Model_Year>},
    {"Series #", &value<&clsUnits::Model_Series_Number>},
    {"Engine Type", &value<&clsUnits::Engine_Type>},
    {"Engine ID #", &value<&clsUnits::Engine_ID_Number>},
    {"Drive Type 2/4", &value<&clsUnits::Drive_type_2wd_4wd>},
    {"Color", &value<&clsUnits::Unit_Color>},
    {"Meter", &meter},
    {"Status", &value<&clsUnits::Unit_Status_A_R_S_U>},
    {"Unit Type", &value<&clsUnits::User_Defined_Unit_Type>},
    {"Location", &value<&clsUnits::Location_of_Unit>},
};
/// Under the user's own captions.
constexpr Variant (*kCustomValues[])(const clsUnits&) = {
    &value<&clsUnits::User_Defined_Alpha_1>,
    &value<&clsUnits::User_Defined_Alpha_2>,
    &value<&clsUnits::User_Defined_Numeric_1>,
    &value<&clsUnits::User_Defined_Numeric_2>,
};
constexpr InfoRow kSaleRows[] = {
    {"Sold To", &value<&clsUnits::Sold_To_Customer_Number>},
    {"Salesman", &value<&clsUnits::Selling_Salesman_Number>},
    {"Date IN", &value<&clsUnits::Date_Received_In>},
    {"Date Sold", &dateSold},
    {"Invoice #", &value<&clsUnits::Sold_Invoice_Number>},
    {"Dealer List", &value<&clsUnits::Dealers_List_Price>},
    {"Suggested List", &value<&clsUnits::Suggested_LIst_Price>},
    {"Sold For", &value<&clsUnits::Amount_Sold_For>},
};

std::string captionBlock() {
  const cBusinessBasic& engine = sharedEngine();
  const auto control = engine.OpenFile(files::kControlFile);
  const std::string block = readBlock(control, control_file::kUnitCaptionBlock);
  engine.CloseFile(control);
  return block;
}

void fillInformation(frmUnitInfo& info, const clsUnits& unit, const std::string& captions) {
  for (const InfoRow& row : kUnitRows)
    info.AddUnitRow(row.value(unit), std::string(row.caption));
  for (std::size_t i = 0; i < std::size(kCustomValues); ++i) {
    const auto caption = bytesOf(control_file::kUnitCaptions[i], captions);
    info.AddUnitRow(kCustomValues[i](unit), std::string(caption));
  }
  info.AddUnitRow(std::string(), std::string());
  for (const InfoRow& row : kSaleRows)
    info.AddUnitRow(row.value(unit), std::string(row.caption));
  info.grdUnitinfo.MoveFirst();
}

}  // namespace

frmUnitInfo::frmUnitInfo(const std::string& unit)
    : Form("frmUnitInfo", "Unit : " + unit), grdUnitinfo(add<Grid>("grdUnitinfo", kInfoColumns)) {
  setSheet(kInfoSheet);
}

void frmUnitInfo::AddUnitRow(const Variant& value, const std::string& caption) {
  grdUnitinfo.AddNew();
  grdUnitinfo.set("Col1", caption);
  grdUnitinfo.set("Col2", value);
  grdUnitinfo.Update();
}

frmUnitDtl::frmUnitDtl()
    : Form("frmUnitDtl", "Unit Detail"),
      Label1(add<Label>("Label1", "", LabelRole::kTitle)),
      grdUnitDtl(add<Grid>("grdUnitDtl", kDetailColumns)) {
  grdUnitDtl.onRowClick = [this](int row) { grdUnitDtl_BtnClick(row); };
  setSheet(kDetailSheet);
}

void frmUnitDtl::grdUnitDtl_BtnClick(int row) {
  showUnit(grdUnitDtl.CellValue("Unit", row));
}

void showUnit(const std::string& number) {
  frmUnitInfo info(number);
  clsUnits unit;
  unit.Unpack(readRecord(files::kUnits, findOrNext(files::kUnitIndex, number)));
  fillInformation(info, unit, captionBlock());
  info.ShowModal();
}

frmUnits::frmUnits()
    : View("frmUnits", "Units"),
      grdUnits(addTitled<Grid>("lblTitle", "Units", "grdUnits", kColumns)),
      lblFpTot(add<Label>("lblFpTot")) {
  sortOnHeads(grdUnits, kHeadSorts);
  grdUnits.onRowClick = [this](int row) { grdUnits_BtnClick(row); };
  setSheet(kSheet);
}

void frmUnits::Form_Load() {
  showProgress("Loading Unit Data...");
  trapView(
      *this, "Error in frmUnits GetUnitData routine ", [this] { GetUnitData(); },
      [] { markRecapError(Figure::kUnits); });
}

void frmUnits::GetUnitData() {
  Currency grand;
  forEachUnitLine([&](std::int32_t line, const std::string& name, Currency total) {
    addLine(line, name, total);
    grand += total;
  });
  grdUnits.MoveFirst();
  const std::string text = Format(grand, kTotalMask);
  writeRecap(Figure::kUnits, text);
  lblFpTot.setCaption("Total  : " + text);
}

void frmUnits::addLine(std::int32_t line, const std::string& name, Currency total) {
  grdUnits.AddNew();
  grdUnits.set("Line", line);
  grdUnits.set("Name", name);
  grdUnits.set("Total", Format(total, kAmountMask));
  grdUnits.Update();
}

void frmUnits::grdUnits_BtnClick(int row) {
  const std::string line = grdUnits.CellValue("Line", row);
  const std::string name = grdUnits.CellValue("Name", row);
  frmUnitDtl detail;
  detail.Label1.setCaption("Line  " + line + " - " + name);
  Grid& grid = detail.grdUnitDtl;
  grid.RemoveAll();
  forEachUnsoldUnit(CLng(line), [&grid](const clsUnits& unit, Currency cost) {
    grid.AddNew();
    grid.set("Model", unit.Model_Number);
    grid.set("Unit", unit.Unit_Number);
    grid.set("Make", unit.Make_or_Manufacturer);
    grid.set("Description", unit.Model_Description);
    grid.set("Cost", Format(cost, kAmountMask));
    grid.set("line", unit.Line);
    grid.Update();
  });
  detail.ShowModal();
}

}  // namespace dg
