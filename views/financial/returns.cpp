#include "views/financial/returns.h"

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
constexpr std::string_view kReturnMask = "$###,###.00";

constexpr ColumnSpec kColumns[] = {
    {.name = "PO Number", .caption = "Return Number"},
    {.name = "Vendor #", .kind = ColumnKind::kNumber},
    {.name = "Vendor Name"},
    {.name = "Date", .kind = ColumnKind::kDate},
    {.name = "Total", .kind = ColumnKind::kMoney},
    {.name = "ndate", .kind = ColumnKind::kNumber, .hidden = true, .keyOf = "Date"},
};

// "Date" sorts by "ndate", which nothing fills here: with two rows or more the sort ends in a type
// mismatch, and the rows stay as they were.
constexpr HeadSort kHeadSorts[] = {
    {"Return Number", true}, {"Vendor #"}, {"Vendor Name", true}, {"ndate"}, {"Total"},
};

constexpr Place kSheet[] = {
    {.control = "Label1", .row = 0, .columnSpan = 2},
    {.control = "Label2", .row = 1, .columnSpan = 2},
    {.control = "grdReturn", .row = 2, .columnSpan = 2},
    {.control = "lblTotalWord", .row = 3, .column = 0},
    {.control = "lblRetTotal", .row = 3, .column = 1, .under = "Total"},
};

}  // namespace

frmReturn::frmReturn()
    : View("frmReturn", "Returns"),
      grdReturn(addTitled<Grid>("Label1", "Returns", "grdReturn", kColumns)),
      lblRetTotal(add<Label>("lblRetTotal")) {
  add<Label>("Label2", "Click on Blue headers to sort grid by that column", LabelRole::kHint);
  sortOnHeads(grdReturn, kHeadSorts);
  grdReturn.onRowClick = [this](int row) { ShowReturnDetail(grdReturn.CellValue(0, row), row); };
  add<Label>("lblTotalWord", "Total :", LabelRole::kCaption);
  setSheet(kSheet);
}

void frmReturn::Form_Load() {
  showProgress("Loading Returns...");
  trapView(
      *this, "Error in frmReturn GetReturn routine ", [this] { GetReturn(); },
      [] { markRecapError(Figure::kReturns); });
}

void frmReturn::GetReturn() {
  grdReturn.RemoveAll();
  grdReturn.Refresh();
  Currency total;
  forEachReturn([&](const OpenDocument& open) { addReturn(open, total); });
  grdReturn.MoveFirst();
  writeRecap(Figure::kReturns, Format(total, kTotalMask));
  lblRetTotal.setCaption(Format(total, kTotalMask));
}

void frmReturn::addReturn(const OpenDocument& open, Currency& total) {
  const VendorDocumentHeader& header = open.header;
  grdReturn.AddNew();
  grdReturn.set("PO Number", header.number);
  grdReturn.set("Vendor #", header.vendor);
  grdReturn.set("Vendor Name", open.vendor);
  grdReturn.set("Date", header.date);
  const Currency amount = open.total();
  grdReturn.set("Total", Format(amount, kReturnMask));
  total += amount;
  grdReturn.Update();
}

/// Traps nothing: an error goes to the click that called it.
void frmReturn::ShowReturnDetail(const std::string& name, int bookmark) {
  frmPODetail detail;
  detail.setCaption("Return Order Detail");
  detail.appendCaption("      Return # : " + name);
  detail.Frame3.setCaption("Return Comments");
  {
    const std::optional<VendorDocument> document = VendorDocument::open(name);
    if (!document) return;
    const StatementRunner plain = [](const std::function<void()>& statement) { statement(); };
    fillDocumentDetail(detail, *document, grdReturn, bookmark, plain, [] {});
  }
  detail.ShowModal();
}

}  // namespace dg
