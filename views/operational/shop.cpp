#include "views/operational/shop.h"

#include <string_view>

#include "platform/values/convert.h"
#include "platform/values/format.h"
#include "records/control_file.h"
#include "records/customer_lookup.h"
#include "records/open/shop_jobs.h"
#include "shell/main_window.h"
#include "shell/options.h"
#include "shell/recap_sheet.h"
#include "shell/sort_grid.h"
#include "shell/splash.h"
#include "shell/trap.h"
#include "views/operational/shop_job_window.h"

namespace dg {

namespace {

constexpr std::string_view kTotalMask = "$#,###,###.00";
constexpr std::string_view kSubTotalMask = "$##,###.00";

constexpr std::string_view kBilled = "B";
constexpr std::string_view kComplete = "C";

constexpr ColumnSpec kColumns[] = {
    {.name = "Job #", .kind = ColumnKind::kNumber, .button = true},
    {.name = "Status", .caption = "Status - Cat"},
    {.name = "Shop Ref #", .kind = ColumnKind::kNumber},
    {.name = "Request", .kind = ColumnKind::kNumber},
    {.name = "Account", .caption = "Cust #", .kind = ColumnKind::kNumber},
    {.name = "Name"},
    {.name = "CM", .kind = ColumnKind::kNumber},
    {.name = "Date In", .kind = ColumnKind::kDate},
    {.name = "Date Comp", .kind = ColumnKind::kDate},
    {.name = "Sub-Total", .kind = ColumnKind::kMoney},
    {.name = "Warranty"},
    {.name = "Brand"},
    {.name = "ndateIn",
     .caption = "ndate",
     .kind = ColumnKind::kNumber,
     .hidden = true,
     .keyOf = "Date In"},
    {.name = "ndateComp", .kind = ColumnKind::kNumber, .hidden = true, .keyOf = "Date Comp"},
};

// Made before the column "Request" stood at index 3: from there on a click sorts by the column to
// the left of the one that was clicked.
constexpr HeadSort kHeadSorts[] = {
    {"Job #"},   {"Status", true}, {"Shop Ref #"}, {"Account"},        {"Name", true},  {"CM"},
    {"ndateIn"}, {"ndateComp"},    {"Sub-Total"},  {"Warranty", true}, {"Brand", true},
};

constexpr Place kSheet[] = {
    {.control = "lblTitle", .row = 0},
    {.control = "grdShop", .row = 1},
};

/// The status column's text for a job's status byte.
std::string statusText(const std::string& status, const std::string& names) {
  if (status >= "1" && status <= "5") {
    const std::string_view name = bytesOf(control_file::jobStatusName(status.front() - '0'), names);
    return name.empty() ? "Open" : "Open-" + std::string(name);
  }
  if (status == "O") return "Open";
  if (status == "S") return "Scratch";
  if (status == kComplete) return "Complete";
  if (status == kBilled) return "Billed";
  return "No status";
}

}  // namespace

frmShop::frmShop()
    : View("frmShop", "Open Shop Jobs"),
      grdShop(addTitled<Grid>("lblTitle", "Open Shop Jobs", "grdShop", kColumns)) {
  sortOnHeads(grdShop, kHeadSorts);
  grdShop.onRowClick = [this](int row) { grdShop_BtnClick(row); };
  setSheet(kSheet);
}

void frmShop::Form_Load() {
  trapView(
      *this, "Error in frmShop GetShopData routine ", [this] { GetShopData(); },
      [] { markRecapError(Figure::kShopWork); });
}

void frmShop::GetShopData() {
  showProgress("Loading Open Shop Jobs...");
  WarrantySegments = GetOption(kWarrantyOption);
  const std::string statusNames = readControlBlock(control_file::kJobStatusBlock);
  Currency total;
  forEachOpenJob([&](const OpenJob& open) {
    grdShop.AddNew();
    addJob(open.job, open.record, statusNames);
    total += open.job.Sub_Total;
    grdShop.Update();
  });
  grdShop.MoveFirst();
  writeRecap(Figure::kShopWork, Format(total, kTotalMask));
}

void frmShop::addJob(const clsShop& job, const std::string& record,
                     const std::string& statusNames) {
  grdShop.set("Job #", job.JobNumber);
  grdShop.set("Shop Ref #", job.ShopReference);
  grdShop.set("Account", job.Account);
  grdShop.set("Name", customerName(job.Account));
  grdShop.set("CM", job.Counterman);
  grdShop.set("Date In", job.DateCheckedIn);
  grdShop.set("ndateIn", Unpack(shop_days::kCheckedIn, record));
  grdShop.set("Sub-Total", Format(job.Sub_Total, kSubTotalMask));
  grdShop.set("Status", statusText(job.Status, statusNames));
  grdShop.set("Brand", job.RepairBrand);
  if (job.Status == kBilled || job.Status == kComplete) {
    grdShop.set("Date Comp", job.DateCompleted);
    grdShop.set("ndateComp", Unpack(shop_days::kCompleted, record));
  } else {
    grdShop.set("Date Comp", std::string());
    grdShop.set("ndateComp", std::string("0"));
  }
  if (job.Warranty == "Y") grdShop.set("Warranty", std::string("Y"));
  if (job.LastRequest != 0) {
    grdShop.set("Request", job.LastRequest + 1);
  } else {
    grdShop.set("Request", std::string());
  }
}

void frmShop::grdShop_BtnClick(int row) {
  showShopDetail(CLng(grdShop.CellValue("Job #", row)));
}

}  // namespace dg
