#include "views/operational/warranty.h"

#include "engine/codec.h"
#include "platform/text.h"
#include "platform/values/convert.h"
#include "platform/values/format.h"
#include "records/customers.h"
#include "records/digit_date.h"
#include "records/file_names.h"
#include "records/index_walk.h"
#include "records/read.h"
#include "shell/recap_sheet.h"
#include "shell/sort_grid.h"
#include "shell/splash.h"
#include "shell/trap.h"
#include "views/operational/line_cells.h"

namespace dg {

namespace {

constexpr std::string_view kTotalMask = "$#,###,###.00";
constexpr std::string_view kAmountMask = "$#####.00";
constexpr std::string_view kPhoneMask = "000-0000";
constexpr const char* kLineBreak = "\r\n";
constexpr std::string_view kRemark = "REM";

constexpr ColumnSpec kShopReference = {
    .name = "Shop Ref", .kind = ColumnKind::kNumber, .button = true};
constexpr ColumnSpec kInvoice = {.name = "Invoice #", .kind = ColumnKind::kNumber};
constexpr ColumnSpec kCustomer = {.name = "Cust #", .kind = ColumnKind::kNumber};
constexpr ColumnSpec kDateBilled = {.name = "Date Billed", .kind = ColumnKind::kDate};
constexpr ColumnSpec kDistributor = {
    .name = "Distributor", .caption = "Dist", .kind = ColumnKind::kNumber};
constexpr ColumnSpec kParts = {.name = "Parts", .kind = ColumnKind::kMoney};
constexpr ColumnSpec kLabor = {.name = "Labor", .kind = ColumnKind::kMoney};
constexpr ColumnSpec kDayNumber = {
    .name = "ndate", .kind = ColumnKind::kNumber, .hidden = true, .keyOf = "Date Billed"};

constexpr ColumnSpec kClaimColumns[] = {
    kShopReference, kInvoice,     kCustomer, {.name = "Name"}, {.name = "Brand/Type"},
    kDateBilled,    kDistributor, kParts,    kLabor,           kDayNumber,
};
constexpr ColumnSpec kSegmentColumns[] = {
    kShopReference,   {.name = "Req", .kind = ColumnKind::kNumber},
    kInvoice,         kCustomer,
    {.name = "Name"}, {.name = "Brand/Type"},
    kDateBilled,      kDistributor,
    kParts,           kLabor,
    kDayNumber,
};

// Made for claims without segments, and used for both: where the grid has the column "Req", a click
// sorts by the column to the right of the one that was clicked, from there on.
constexpr HeadSort kHeadSorts[] = {
    {"Shop Ref"}, {"Invoice #"},   {"Cust #"}, {"Name", true}, {"Brand/Type", true},
    {"ndate"},    {"Distributor"}, {"Parts"},  {"Labor"},
};

constexpr Place kSheet[] = {
    {.control = "lblTitle", .row = 0},
    {.control = "grdWarr", .row = 1},
};

constexpr Place kDetailSheet[] = {
    {.control = "Frame1", .row = 0, .column = 0},
    {.control = "lblCust", .row = 0, .column = 0, .frame = "Frame1"},
    {.control = "Frame2", .row = 0, .column = 1},
    {.control = "lblSn1", .row = 0, .column = 0, .frame = "Frame2"},
    {.control = "lblSn2", .row = 1, .column = 0, .frame = "Frame2"},
    {.control = "Frame3", .row = 0, .column = 2},
    {.control = "lblMisc", .row = 0, .column = 0, .frame = "Frame3"},
    {.control = "grdwd", .row = 1, .column = 0, .columnSpan = 3},
};

std::string text(const std::string& member) {
  return std::string(shown(member));
}

}  // namespace

frmWarrDetail::frmWarrDetail(const std::string& shopReference)
    : Form("frmWarrDetail", "Warranty Detail ...   Shop reference : " + shopReference),
      lblCust(addFramed<Label>("Frame1", "Customer", "lblCust")),
      lblSn1(addFramed<Label>("Frame2", "Serial Numbers", "lblSn1")),
      lblSn2(add<Label>("lblSn2")),
      lblMisc(addFramed<Label>("Frame3", "Remarks", "lblMisc")),
      grdwd(add<Grid>("grdwd", kLineColumns)) {
  setSheet(kDetailSheet);
}

void frmWarrDetail::showLines(std::int32_t number) {
  clsWarrDetail detail;
  detail.ShopRef(number);
  detail.GetDetail();
  if (detail.DetailError()) markIncomplete();
  for (const DisplayLine& line : *detail.DetailReturn()) {
    grdwd.AddNew();
    setLineCode(grdwd, line);
    if (lineText(line, 0) != kRemark) setLineValues(grdwd, line);
    grdwd.Update();
  }
  grdwd.MoveFirst();
}

BilledWarranties::BilledWarranties(const std::string& form, std::span<const ColumnSpec> columns)
    : View(form, "Billed Warranty Jobs"),
      grdWarr(addTitled<Grid>("lblTitle", "Billed Warranty Jobs", "grdWarr", columns)) {
  sortOnHeads(grdWarr, kHeadSorts);
  grdWarr.onRowClick = [this](int row) { grdWarr_BtnClick(row); };
  setSheet(kSheet);
}

void BilledWarranties::Form_Load() {
  // Both forms of the view log the same words.
  trapView(
      *this, "Error in frmWarranty.form load routine ", [this] { loadClaims(); },
      [] { markRecapError(Figure::kWarranties); });
}

void BilledWarranties::loadClaims() {
  showProgress("Loading Billed Warranties...");
  grdWarr.RemoveAll();
  grdWarr.Refresh();
  double parts = 0;
  double labor = 0;
  forEachBilledClaim(showsSegments(), [&](const BilledClaim& billed) {
    grdWarr.AddNew();
    addClaim(billed);
    grdWarr.Update();
    parts += billed.detail.WarrPartTotal();
    labor += billed.detail.WarrLabTotal();
  });
  grdWarr.MoveFirst();
  writeRecap(Figure::kWarranties, Format((parts + labor) / 100, kTotalMask));
}

/// A claim whose lines could not be read shows so in its own row.
void BilledWarranties::addClaim(const BilledClaim& billed) {
  const auto& [claim, reference, billedDigits, detail] = billed;
  grdWarr.set("Shop Ref", reference.shopReference);
  if (showsSegments()) grdWarr.set("Req", reference.segment);
  grdWarr.set("Invoice #", claim.Billed_Inv_No);
  grdWarr.set("Cust #", claim.Cust_No);
  if (detail.DetailError()) {
    markIncomplete();
    grdWarr.set("Name", std::string("Error in warranty detail"));
    grdWarr.set("Brand/Type", std::string());
  } else {
    grdWarr.set("Name", claimCustomer(claim, showsSegments()));
    grdWarr.set("Brand/Type", text(claim.Repair_Brand) + " - " + text(claim.Repair_Equip_Desc));
  }
  grdWarr.set("Date Billed", claim.Date_Billed);
  grdWarr.set("ndate", digitDateDay(billedDigits));
  grdWarr.set("Distributor", claim.Distributor);
  if (detail.DetailError()) {
    grdWarr.set("Parts", std::string());
    grdWarr.set("Labor", std::string());
  } else {
    grdWarr.set("Parts", Format(detail.WarrPartTotal() / 100, kAmountMask));
    grdWarr.set("Labor", Format(detail.WarrLabTotal() / 100, kAmountMask));
  }
}

void BilledWarranties::grdWarr_BtnClick(int row) {
  frmWarrDetail window(grdWarr.CellValue("Shop Ref", row));
  const std::int32_t number = numberOfRow(row);
  clsWarranty claim;
  claim.Unpack(
      readRecord(files::kWarranties, findOrNext(files::kWarrantyIndex, integerKey('L', number))));
  window.lblCust.setCaption(customerText(claim));
  window.lblSn1.setCaption(text(claim.Serial_1));
  window.lblSn2.setCaption(text(claim.Serial_2));
  window.lblMisc.setCaption(text(claim.Soldby_Name) + kLineBreak + text(claim.Soldby_Address));
  window.showLines(number);
  window.ShowModal();
}

frmWarranty::frmWarranty() : BilledWarranties("frmWarranty", kClaimColumns) {}

std::int32_t frmWarranty::numberOfRow(int row) const {
  return CLng(grdWarr.CellValue("Shop Ref", row));
}

std::string frmWarranty::customerText(const clsWarranty& claim) const {
  return std::to_string(claim.Cust_No) + kLineBreak + text(claim.Cust_Name) + kLineBreak +
         std::to_string(claim.Cust_AC) + "-" + Format(claim.Cust_Phone, kPhoneMask);
}

frmWarSeg::frmWarSeg() : BilledWarranties("frmWarSeg", kSegmentColumns) {}

std::int32_t frmWarSeg::numberOfRow(int row) const {
  return CLng(grdWarr.CellValue("Shop Ref", row) + grdWarr.CellValue("Req", row));
}

std::string frmWarSeg::customerText(const clsWarranty& claim) const {
  return std::to_string(claim.Cust_No) + kLineBreak + text(GetCustomerName(claim.Cust_No));
}

}  // namespace dg
