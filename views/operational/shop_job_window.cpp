#include "views/operational/shop_job_window.h"

#include <cmath>
#include <string>
#include <string_view>

#include "platform/text.h"
#include "platform/values/convert.h"
#include "platform/values/format.h"
#include "records/control_file.h"
#include "records/countermen.h"
#include "records/customer_lookup.h"
#include "records/file_names.h"
#include "records/index_walk.h"
#include "records/open/shop_jobs.h"
#include "records/read.h"
#include "views/operational/line_cells.h"
#include "views/operational/shop.h"

namespace dg {

namespace {

constexpr std::string_view kTotalMask = "######0.00";
constexpr std::string_view kMeterMask = "###0.0";
constexpr std::string_view kAreaCodeMask = "###-";
constexpr std::string_view kPhoneMask = "###-####";

constexpr std::string_view kComplete = "C";
constexpr std::string_view kYes = "Y";
constexpr const char* kAllRequests = "All Requests";

constexpr ColumnSpec kColumns[] = {
    {.name = "Request", .caption = "Req", .kind = ColumnKind::kNumber},
    {.name = "Line", .kind = ColumnKind::kNumber},  // a code, or "REM" for a remark
    {.name = "Part #"},
    {.name = "Description"},
    {.name = "Qty", .kind = ColumnKind::kNumber},
    {.name = "Net", .kind = ColumnKind::kMoney},
    {.name = "Cost", .kind = ColumnKind::kMoney},
    {.name = "Warranty"},  // nothing writes it
};

/// A fixed caption beside a value.
struct Caption {
  std::string_view label, text;
};
constexpr Caption kCaptions[] = {
    {"lblCap(0)", "Customer #"}, {"lblCap(1)", "Name"},
    {"lblCap(2)", "Address"},    {"lblCap(3)", ""},
    {"lblCap(4)", "Phone 1"},    {"lblCap(5)", "Phone 2"},
    {"lblCap(6)", "Fax"},        {"lblCap(7)", "Contact"},
    {"lblCap(8)", "Contact"},    {"lblCap(9)", "Name"},
    {"lblCap(10)", "Type"},      {"lblCap(11)", "Serial 1"},
    {"lblCap(12)", "Serial 2"},  {"lblCap(13)", "Meter"},
    {"lblCap(14)", "Mechanic"},  {"lblCap(15)", "Counterman"},
    {"lblCap(16)", "Call 1"},    {"lblCap(17)", "Call 2"},
    {"lblCap(18)", "Call 3"},    {"lblCap(19)", "Warranty"},
    {"lblCap(20)", "Reference"}, {"lblCap(21)", "Parts"},
    {"lblCap(22)", "Labor"},     {"lblCap(23)", "Shop Supplies"},
    {"lblCap(24)", "Misc"},      {"lblCap(25)", "Freight"},
};

constexpr Place kSheet[] = {
    {.control = "Frame1", .row = 0, .column = 0, .rowSpan = 2},
    {.control = "lblCap(0)", .row = 0, .column = 0, .frame = "Frame1"},
    {.control = "lblCDisp(0)", .row = 0, .column = 1, .frame = "Frame1"},
    {.control = "lblCap(1)", .row = 1, .column = 0, .frame = "Frame1"},
    {.control = "lblCDisp(1)", .row = 1, .column = 1, .frame = "Frame1"},
    {.control = "lblCap(2)", .row = 2, .column = 0, .frame = "Frame1"},
    {.control = "lblCDisp(2)", .row = 2, .column = 1, .frame = "Frame1"},
    {.control = "lblCap(3)", .row = 3, .column = 0, .frame = "Frame1"},
    {.control = "lblCDisp(3)", .row = 3, .column = 1, .frame = "Frame1"},
    {.control = "lblCap(4)", .row = 4, .column = 0, .frame = "Frame1"},
    {.control = "lblCDisp(4)", .row = 4, .column = 1, .frame = "Frame1"},
    {.control = "lblCap(5)", .row = 5, .column = 0, .frame = "Frame1"},
    {.control = "lblCDisp(5)", .row = 5, .column = 1, .frame = "Frame1"},
    {.control = "lblCap(6)", .row = 6, .column = 0, .frame = "Frame1"},
    {.control = "lblCDisp(6)", .row = 6, .column = 1, .frame = "Frame1"},
    {.control = "lblCap(7)", .row = 7, .column = 0, .frame = "Frame1"},
    {.control = "lblCDisp(7)", .row = 7, .column = 1, .frame = "Frame1"},
    {.control = "lblCap(8)", .row = 8, .column = 0, .frame = "Frame1"},
    {.control = "lblCDisp(8)", .row = 8, .column = 1, .frame = "Frame1"},

    {.control = "Frame2", .row = 0, .column = 1},
    {.control = "lblCap(9)", .row = 0, .column = 0, .frame = "Frame2"},
    {.control = "lblEquip(0)", .row = 0, .column = 1, .frame = "Frame2"},
    {.control = "lblCap(10)", .row = 1, .column = 0, .frame = "Frame2"},
    {.control = "lblEquip(1)", .row = 1, .column = 1, .frame = "Frame2"},
    {.control = "lblCap(11)", .row = 2, .column = 0, .frame = "Frame2"},
    {.control = "lblEquip(2)", .row = 2, .column = 1, .frame = "Frame2"},
    {.control = "lblCap(12)", .row = 3, .column = 0, .frame = "Frame2"},
    {.control = "lblEquip(3)", .row = 3, .column = 1, .frame = "Frame2"},
    {.control = "lblCap(13)", .row = 4, .column = 0, .frame = "Frame2"},
    {.control = "lblEquip(4)", .row = 4, .column = 1, .frame = "Frame2"},

    {.control = "Frame3", .row = 1, .column = 1},
    {.control = "lblCap(14)", .row = 0, .column = 0, .frame = "Frame3"},
    {.control = "lblMan(0)", .row = 0, .column = 1, .frame = "Frame3"},
    {.control = "lblCap(15)", .row = 1, .column = 0, .frame = "Frame3"},
    {.control = "lblMan(1)", .row = 1, .column = 1, .frame = "Frame3"},

    {.control = "Frame4", .row = 0, .column = 2},
    {.control = "lblCap(16)", .row = 0, .column = 0, .frame = "Frame4"},
    {.control = "lblCallDate(0)", .row = 0, .column = 1, .frame = "Frame4"},
    {.control = "lblCallDate(3)", .row = 0, .column = 2, .frame = "Frame4"},
    {.control = "lblCap(17)", .row = 1, .column = 0, .frame = "Frame4"},
    {.control = "lblCallDate(1)", .row = 1, .column = 1, .frame = "Frame4"},
    {.control = "lblCallDate(4)", .row = 1, .column = 2, .frame = "Frame4"},
    {.control = "lblCap(18)", .row = 2, .column = 0, .frame = "Frame4"},
    {.control = "lblCallDate(2)", .row = 2, .column = 1, .frame = "Frame4"},
    {.control = "lblCallDate(5)", .row = 2, .column = 2, .frame = "Frame4"},

    {.control = "Frame6", .row = 1, .column = 2},
    {.control = "lblCap(19)", .row = 0, .column = 0, .frame = "Frame6"},
    {.control = "lblWarr(0)", .row = 0, .column = 1, .frame = "Frame6"},
    {.control = "lblCap(20)", .row = 1, .column = 0, .frame = "Frame6"},
    {.control = "lblWarr(1)", .row = 1, .column = 1, .frame = "Frame6"},

    {.control = "Frame5", .row = 0, .column = 3, .rowSpan = 2},
    {.control = "lblCap(21)", .row = 0, .column = 0, .frame = "Frame5"},
    {.control = "lblRecap(0)", .row = 0, .column = 1, .frame = "Frame5", .figure = true},
    {.control = "lblCap(22)", .row = 1, .column = 0, .frame = "Frame5"},
    {.control = "lblRecap(1)", .row = 1, .column = 1, .frame = "Frame5", .figure = true},
    {.control = "lblCap(23)", .row = 2, .column = 0, .frame = "Frame5"},
    {.control = "lblRecap(2)", .row = 2, .column = 1, .frame = "Frame5", .figure = true},
    {.control = "lblCap(24)", .row = 3, .column = 0, .frame = "Frame5"},
    {.control = "lblRecap(3)", .row = 3, .column = 1, .frame = "Frame5", .figure = true},
    {.control = "lblCap(25)", .row = 4, .column = 0, .frame = "Frame5"},
    {.control = "lblRecap(4)", .row = 4, .column = 1, .frame = "Frame5", .figure = true},

    {.control = "lblRequest", .row = 2, .column = 0},
    {.control = "cmbRequest", .row = 2, .column = 1},
    {.control = "grdShopDetail", .row = 3, .column = 0, .columnSpan = 4},
};

std::string phoneText(std::int32_t areaCode, std::int32_t number) {
  return Format(areaCode, kAreaCodeMask) + Format(number, kPhoneMask);
}

/// "number - name" of a mechanic or counterman; nothing when there is none of that number.
std::string manText(std::int32_t number) {
  const std::int32_t found = findExact(files::kCountermanIndex, integerKey('C', number));
  if (found == 0) return {};
  clsCounterman man;
  man.Unpack(readRecord(files::kCountermen, found));
  return std::to_string(man.COUNTERMAN_Number) + " - " + std::string(shown(man.Name));
}

}  // namespace

frmShopDetail::frmShopDetail()
    : Form("frmShopDetail", "Shop Job Detail ..."),
      lblCDisp(addLabels<9>("lblCDisp")),
      lblCallDate(addLabels<6>("lblCallDate")),
      lblMan(addLabels<2>("lblMan")),
      lblEquip(addLabels<5>("lblEquip")),
      lblWarr(addLabels<2>("lblWarr")),
      lblRecap(addLabels<5>("lblRecap")),
      Frame5(addFrames()),
      lblRequest(add<Label>("lblRequest", "Request", LabelRole::kCaption)),
      cmbRequest(add<ComboBox>("cmbRequest")),
      grdShopDetail(add<Grid>("grdShopDetail", kColumns)) {
  for (const Caption& caption : kCaptions) {
    add<Label>(std::string(caption.label), std::string(caption.text), LabelRole::kCaption);
  }
  Frame5.setVisible(false);
  cmbRequest.onClick = [this] { cmbRequest_Click(); };
  setSheet(kSheet);
}

/// Makes the frames; the last of them, around the totals, is the one that comes and goes.
Frame& frmShopDetail::addFrames() {
  add<Frame>("Frame1", "Customer");
  add<Frame>("Frame2", "Equipment");
  add<Frame>("Frame3", "People");
  add<Frame>("Frame4", "Calls");
  add<Frame>("Frame6", "Warranty");
  return add<Frame>("Frame5", "Totals");
}

void frmShopDetail::showJob(std::int32_t number) {
  setCaption("Shop Job Detail ...   Shop Job : " + std::to_string(number));
  const std::int32_t recordNumber = GetJob(number);
  const std::string record = readRecord(files::kInvoices, recordNumber);
  clsShop job;
  job.Unpack(record);
  job.RecordText = record;
  const bool complete = job.Status == kComplete;
  appendCaption(std::string("     Job Status : ") + (complete ? "Completed" : "Open"));
  showCustomer(job.Account);

  lblRequest.setVisible(job.LastRequest >= 1);
  cmbRequest.setVisible(job.LastRequest >= 1);
  cmbRequest.AddItem(kAllRequests);
  cmbRequest.setText(kAllRequests);

  showCalls(job, record);
  showPeople(job);
  showEquipment(job);

  clsShopDetail detail;
  detail.ShopRec(recordNumber);
  detail.GetDetail();
  if (detail.DetailError()) markIncomplete();
  lines_ = detail.DetailReturn();
  showLines();
  if (complete) showTotals(detail);
}

void frmShopDetail::showCustomer(std::int32_t account) {
  // An unknown customer shows what a customer that was never read holds.
  const clsCustomers customer = findCustomer(account).value_or(clsCustomers());
  const std::string texts[] = {
      std::to_string(customer.Account),
      std::string(shown(customer.Name)),
      std::string(shown(customer.Address_Line_1)),
      std::string(shown(customer.Address_Line_2)),
      phoneText(customer.Area_Code, customer.Phone_Number),
      phoneText(customer.Area_Code_2, customer.Phone_Number_2),
      phoneText(customer.Area_Code_3, customer.Phone_Number_3),
      std::string(shown(customer.Contact_1)),
      std::string(shown(customer.CONTACT_2)),
  };
  for (std::size_t i = 0; i < lblCDisp.size(); ++i)
    lblCDisp[i]->setCaption(texts[i]);
}

void frmShopDetail::showCalls(const clsShop& job, const std::string& record) {
  const std::string results = readControlBlock(control_file::kCallResultBlock);
  constexpr std::size_t kCalls = std::size(shop_days::kCalls);
  for (std::size_t i = 0; i < kCalls; ++i) {
    const std::int32_t raw = Unpack(shop_days::kCalls[i], record);
    if (raw != 0 && raw != shop_days::kBlanked) lblCallDate[i]->setCaption(job.CallDates[i].text());
  }
  for (std::size_t i = 0; i < kCalls; ++i) {
    const std::int32_t result = job.CallStatus[i];
    if (result == 0) continue;
    lblCallDate[kCalls + i]->setCaption(
        std::string(shown(bytesOf(control_file::callResultName(result), results))));
  }
}

void frmShopDetail::showPeople(const clsShop& job) {
  const std::int32_t numbers[] = {job.Mechanic, job.Counterman};
  for (std::size_t i = 0; i < lblMan.size(); ++i) {
    const std::string text = manText(numbers[i]);
    if (!text.empty()) lblMan[i]->setCaption(text);
  }
}

void frmShopDetail::showEquipment(const clsShop& job) {
  lblEquip[0]->setCaption(std::string(shown(job.RepairBrand)));
  lblEquip[1]->setCaption(std::string(shown(job.RepairBrandDescription)));
  lblEquip[2]->setCaption(std::string(shown(job.SerialNumber1)));
  lblEquip[3]->setCaption(std::string(shown(job.SerialNumber2)));
  lblEquip[4]->setCaption(Format(job.Meter, kMeterMask));
  const bool warranty = job.Warranty == kYes;
  lblWarr[0]->setCaption(warranty ? "Yes" : "No");
  if (warranty) lblWarr[1]->setCaption(std::to_string(job.WarrVend[0]));
}

void frmShopDetail::showLines() {
  std::int32_t lastRequest = -1;
  for (const DisplayLine& line : *lines_) {
    addLine(line);
    const std::int32_t request = std::get<std::int32_t>(line[6]);
    if (request == lastRequest) continue;
    cmbRequest.AddItem("  " + std::to_string(request + 1) + " - " + lineText(line, 1));
    lastRequest = request;
  }
  grdShopDetail.MoveFirst();
}

void frmShopDetail::addLine(const DisplayLine& line) {
  grdShopDetail.AddNew();
  setLineCode(grdShopDetail, line);
  setLineValues(grdShopDetail, line);
  grdShopDetail.set("Request", std::get<std::int32_t>(line[6]) + 1);
  grdShopDetail.Update();
}

void frmShopDetail::showTotals(const clsShopDetail& detail) {
  Frame5.setVisible(true);
  const double totals[] = {detail.ShopPartTotal(), detail.ShopLabTotal(), detail.ShopSupTotal(),
                           detail.ShopMiscTotal(), detail.ShopFrtTotal()};
  for (std::size_t i = 0; i < lblRecap.size(); ++i) {
    lblRecap[i]->setCaption(Format(totals[i] / 100, kTotalMask));
  }
}

/// Shows the lines of one request. The number is read from the first three characters of the text,
/// of which two are blanks: only one digit counts, and request 10 and up are read as 1 and so on.
void frmShopDetail::cmbRequest_Click() {
  grdShopDetail.RemoveAll();
  grdShopDetail.Refresh();
  const auto wanted = static_cast<std::int32_t>(std::floor(Val(middle(cmbRequest.text(), 1, 3))));
  for (const DisplayLine& line : *lines_) {
    if (wanted == 0 || std::get<std::int32_t>(line[6]) == wanted - 1) addLine(line);
  }
  grdShopDetail.MoveFirst();
}

void showShopDetail(std::int32_t job) {
  frmShopDetail window;
  window.showJob(job);
  window.ShowModal();
}

}  // namespace dg
