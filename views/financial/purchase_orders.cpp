#include "views/financial/purchase_orders.h"

#include "engine/codec.h"
#include "platform/values/format.h"
#include "records/file_names.h"
#include "records/index_walk.h"
#include "shell/recap_sheet.h"
#include "shell/sort_grid.h"
#include "shell/splash.h"
#include "shell/trap.h"
#include "views/financial/purchase_order_detail.h"

namespace dg {

namespace {

constexpr std::string_view kTotalMask = "$#,###,###.00";
constexpr std::string_view kOrderMask = "$###,###.00";
constexpr std::string_view kVendorMask = "######.00";

constexpr ColumnSpec kColumns[] = {
    {.name = "PO Number"},
    {.name = "Vendor #", .kind = ColumnKind::kNumber},
    {.name = "Vendor Name"},
    {.name = "Date", .kind = ColumnKind::kDate},
    {.name = "Total", .kind = ColumnKind::kMoney},
    {.name = "ndate",
     .caption = "jdate",
     .kind = ColumnKind::kNumber,
     .hidden = true,
     .keyOf = "Date"},
};

constexpr HeadSort kHeadSorts[] = {
    {"PO Number", true}, {"Vendor #"}, {"Vendor Name", true}, {"ndate"}, {"Total"},
};

constexpr Place kSheet[] = {
    {.control = "Label1", .row = 0, .columnSpan = 5},
    {.control = "grdPO", .row = 1, .columnSpan = 5},
    {.control = "cmdVtot", .row = 2, .column = 0},
    {.control = "lblTotalWord", .row = 2, .column = 1},
    {.control = "lblPoTotal", .row = 2, .column = 2, .under = "Total"},
    {.control = "lblLoading", .row = 2, .column = 3},
    {.control = "pb1", .row = 2, .column = 4},
};

constexpr ColumnSpec kVendorColumns[] = {
    {.name = "Vendor", .kind = ColumnKind::kNumber},
    {.name = "Name"},
    {.name = "Total", .kind = ColumnKind::kMoney},
};

constexpr Place kVendorSheet[] = {
    {.control = "lblTitle", .row = 0, .columnSpan = 2},
    {.control = "grdVtot", .row = 1, .columnSpan = 2},
    {.control = "lblTotalWord", .row = 2, .column = 0},
    {.control = "Label1", .row = 2, .column = 1, .under = "Total"},
};

}  // namespace

frmVtotal::frmVtotal()
    : Form("frmVtotal", "Vendor Totals"),
      grdVtot(addTitled<Grid>("lblTitle", "Vendor Totals", "grdVtot", kVendorColumns)),
      Label1(add<Label>("Label1")) {
  add<Label>("lblTotalWord", "Total :", LabelRole::kCaption);
  setSheet(kVendorSheet);
}

frmPo::frmPo()
    : View("frmPo", "Purchase Orders"),
      grdPO(addTitled<Grid>("Label1", "Purchase Orders", "grdPO", kColumns)),
      lblPoTotal(add<Label>("lblPoTotal")),
      cmdVtot(add<Button>("cmdVtot", "&Vendor Totals")),
      pb1(add<ProgressBar>("pb1")),
      lblLoading(add<Label>("lblLoading", "Loading...", LabelRole::kNote)) {
  pb1.setVisible(false);
  lblLoading.setVisible(false);
  sortOnHeads(grdPO, kHeadSorts);
  grdPO.onHeadClick = [this](int column) {
    if (static_cast<std::size_t>(column) < std::size(kHeadSorts)) {
      sortByHead(grdPO, column, kHeadSorts);
    }
  };
  grdPO.onRowClick = [this](int row) { ShowPODetail(grdPO.CellValue(0, row), row); };
  cmdVtot.onClick = [this] { cmdVtot_Click(); };
  add<Label>("lblTotalWord", "Total :", LabelRole::kCaption);
  setSheet(kSheet);
}

void frmPo::Form_Load() {
  showProgress("Loading Purchase Orders...");
  trapView(
      *this, "Error in frmPO GetPO routine ", [this] { GetPO(); },
      [] { markRecapError(Figure::kPurchaseOrders); });
}

void frmPo::GetPO() {
  grdPO.RemoveAll();
  grdPO.Refresh();
  Currency total;
  forEachPurchaseOrder([&](const OpenDocument& open) { addOrder(open, total); });
  grdPO.MoveFirst();
  writeRecap(Figure::kPurchaseOrders, Format(total, kTotalMask));
  lblPoTotal.setCaption(Format(total, kTotalMask));
}

void frmPo::addOrder(const OpenDocument& open, Currency& total) {
  const VendorDocumentHeader& header = open.header;
  grdPO.AddNew();
  grdPO.set("PO Number", header.number);
  grdPO.set("Vendor #", header.vendor);
  grdPO.set("Vendor Name", open.vendor);
  grdPO.set("Date", header.date);
  grdPO.set("ndate", header.dayNumber());
  const Currency amount = open.total();
  grdPO.set("Total", Format(amount, kOrderMask));
  VendorTotal& vendor = vendorTotal(header.vendor);
  vendor.name = open.vendor;
  vendor.sum += amount;
  total += amount;
  grdPO.Update();
}

/// Vendors 1 to 999 have a total; any other number ends the load.
frmPo::VendorTotal& frmPo::vendorTotal(std::int32_t vendor) {
  if (vendor < 1 || vendor > static_cast<std::int32_t>(kMaxVendor)) {
    throw RunTimeError(kSubscriptOutOfRange);
  }
  return VendorTotals_[static_cast<std::size_t>(vendor) - 1];
}

void frmPo::ShowPODetail(const std::string& name, int bookmark) {
  pb1.setVisible(true);
  lblLoading.setVisible(true);
  lblLoading.Refresh();
  pb1.setValue(0);
  frmPODetail detail;
  detail.appendCaption("      PO # : " + name);
  {
    std::optional<VendorDocument> document;
    suppressErrors([&] { document = VendorDocument::open(name); });
    // Without the document there is no window, and the bar stays up.
    if (!document) return;
    const std::int32_t lines = document->lastRecord() - VendorDocument::kTotalRecord;
    const double step = lines != 0 ? 100.0 / lines : 0;
    const StatementRunner ignoringErrors = [&](const std::function<void()>& statement) {
      if (!suppressErrors(statement)) detail.markIncomplete();
    };
    fillDocumentDetail(detail, *document, grdPO, bookmark, ignoringErrors, [&] {
      if (pb1.value() > 99) pb1.setValue(99);
      pb1.setValue(pb1.value() + step);
    });
  }
  detail.ShowModal();
  pb1.setVisible(false);
  lblLoading.setVisible(false);
}

void frmPo::cmdVtot_Click() {
  frmVtotal totals;
  grdPO.MoveFirst();
  Currency grand;
  for (std::size_t i = 0; i < VendorTotals_.size(); ++i) {
    const VendorTotal& vendor = VendorTotals_[i];
    if (vendor.sum == Currency()) continue;
    totals.grdVtot.AddNew();
    totals.grdVtot.set("Vendor", static_cast<std::int32_t>(i + 1));
    totals.grdVtot.set("Name", vendor.name);
    totals.grdVtot.set("Total", Format(vendor.sum, kVendorMask));
    grand += vendor.sum;
    totals.grdVtot.Update();
  }
  totals.Label1.setCaption(Format(grand, kTotalMask));
  totals.grdVtot.MoveFirst();
  totals.ShowModal();
}

}  // namespace dg
