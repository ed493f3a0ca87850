#include "views/operational/open_sales_window.h"

#include "engine/business_basic.h"
#include "engine/state.h"
#include "platform/text.h"
#include "platform/values/format.h"
#include "records/customer_lookup.h"
#include "records/digit_date.h"
#include "records/file_names.h"
#include "records/index_walk.h"
#include "records/invoice_history.h"
#include "records/invoice_lines.h"
#include "records/order_pages.h"
#include "views/operational/line_cells.h"

namespace dg {

namespace {

constexpr std::string_view kCreditMask = "####0.00";
constexpr std::string_view kCashCustomer = "G";
constexpr const char* kLineBreak = "\r\n";

constexpr std::string_view kDetailCaptions[] = {
    "Avail CR : ", "Date : ", "CM : ", "SM :  ", "PO :  ", "DEL :  "};

constexpr Place kSheet[] = {
    {.control = "Frame1", .row = 0, .column = 0, .rowSpan = 3},
    {.control = "lblCust", .row = 0, .column = 0, .frame = "Frame1"},
    {.control = "Frame2", .row = 0, .column = 1, .rowSpan = 3},
    {.control = "lblShipto", .row = 0, .column = 0, .frame = "Frame2"},
    {.control = "Label1(0)", .row = 0, .column = 2},
    {.control = "lblDtl(0)", .row = 0, .column = 3},
    {.control = "Label1(1)", .row = 1, .column = 2},
    {.control = "lblDtl(1)", .row = 1, .column = 3},
    {.control = "Label1(2)", .row = 2, .column = 2},
    {.control = "lblDtl(2)", .row = 2, .column = 3},
    {.control = "Label1(3)", .row = 0, .column = 4},
    {.control = "lblDtl(3)", .row = 0, .column = 5},
    {.control = "Label1(4)", .row = 1, .column = 4},
    {.control = "lblDtl(4)", .row = 1, .column = 5},
    {.control = "Label1(5)", .row = 2, .column = 4},
    {.control = "lblDtl(5)", .row = 2, .column = 5},
    {.control = "grdPTS", .row = 3, .column = 0, .columnSpan = 6},
};

/// Account, name and address, each on a line of its own.
std::string addressText(const clsCustomers& customer) {
  std::string text = std::to_string(customer.Account);
  for (const std::string* line : {&customer.Name, &customer.Address_Line_1,
                                  &customer.Address_Line_2, &customer.Address_Line_3}) {
    text += kLineBreak + std::string(shown(*line));
  }
  return text;
}

/// What the customer may still buy for: whole money units, halves to the even neighbour. Not a
/// 32-bit number: a limit may be as large as one, and a balance below zero adds to it.
Currency availableCredit(const clsCustomers& customer) {
  return (Currency(customer.Credit_Limit) - (customer.MTD_Tot_Bal + customer.Statement_Tot_Due))
      .rounded();
}

}  // namespace

frmPTSDetail::frmPTSDetail()
    : Form("frmPTSDetail", "Open Sales Detail"),
      lblDtl(addLabels<6>("lblDtl")),
      lblCust(addFramed<Label>("Frame1", "Sold To", "lblCust")),
      lblShipto(addFramed<Label>("Frame2", "Ship To", "lblShipto")),
      grdPTS(add<Grid>("grdPTS", kLineColumns)) {
  for (std::size_t i = 0; i < std::size(kDetailCaptions); ++i) {
    add<Label>(elementName("Label1", static_cast<int>(i)), std::string(kDetailCaptions[i]),
               LabelRole::kCaption);
  }
  setSheet(kSheet);
}

void frmPTSDetail::showOrder(const std::string& document, const PageRecord& page) {
  const PageRecord first = firstPage(page);
  clsInvoiceHistory order;
  order.Unpack(first.bytes());
  clsCustomers customer;
  if (const auto found = findCustomer(order.Account)) {
    customer = *found;
    lblDtl[0]->setCaption(Format(availableCredit(customer), kCreditMask));
    lblCust.setCaption(addressText(customer));
  }
  setCaption(document + "         Sales type : " +
             (customer.Credit_Code == kCashCustomer ? "Cash" : "Charge"));
  if (order.ShipTo != 0) {
    if (const auto shipTo = findCustomer(order.ShipTo)) lblShipto.setCaption(addressText(*shipTo));
  }
  lblDtl[1]->setCaption(digitDateText(first.link()));
  lblDtl[2]->setCaption(std::to_string(order.COUNTERMAN_Number));
  lblDtl[3]->setCaption(std::to_string(order.Salesman_Number));
  lblDtl[4]->setCaption(std::string(shown(order.Purchase_Order_No)));
  lblDtl[5]->setCaption(std::to_string(order.Delivery_Code));
}

void frmPTSDetail::showLines(std::int32_t record) {
  clsInvDetail detail;
  detail.InvoiceRec(record);
  detail.GetDetail();
  if (detail.DetailError()) markIncomplete();
  for (const DisplayLine& line : *detail.DetailReturn()) {
    grdPTS.AddNew();
    setLineCode(grdPTS, line);
    setLineValues(grdPTS, line);
    grdPTS.Update();
  }
}

void ShowPickTicket(std::int32_t ticket) {
  frmPTSDetail window;
  const std::int32_t record = findExact(files::kTicketIndex, integerKey('L', ticket));
  if (record != 0) {
    window.showOrder("Pick-Ticket # " + std::to_string(ticket),
                     PageRecord::read(files::kInvoices, record));
  }
  window.showLines(record);
  window.ShowModal();
}

void ShowSavedInvoice(std::int32_t record) {
  frmPTSDetail window;
  window.showOrder("Saved Invoice   ", PageRecord::read(files::kInvoices, record));
  window.showLines(record);
  window.ShowModal();
}

}  // namespace dg
