#include "records/customers.h"

#include "engine/text_utilities.h"
#include "records/file_names.h"
#include "records/index_walk.h"
#include "records/read.h"

namespace dg {

namespace {

using Self = clsCustomers;

// A telephone number or area code that cannot be one reads as none.
constexpr std::int32_t kMaxPhone = 9999999;
constexpr std::int32_t kMaxAreaCode = 999;

/// Name and address lines as one block, in which state and ZIP code are looked for.
std::string addressBlock(const std::string& record, TextField field) {
  return unpackText(bytesOf(field, record));
}

void readState(clsCustomers& customer, const std::string& record, TextField field) {
  std::string block = addressBlock(record, field);
  customer.State = AddressState(block);
}

void readZipCode(clsCustomers& customer, const std::string& record, TextField field) {
  std::string block = addressBlock(record, field);
  customer.Zip_Code = AddressZip(block);
}

// Names and addresses decode with "-" in the table.
constexpr Field<clsCustomers> kFields[] = {
    integer(3, 'D', DG_MEMBER(Account)),
    maskHead<clsCustomers>(kDashHead),
    packedText(customer_record::kName, DG_MEMBER(Name)),
    packedText(26, 20, DG_MEMBER(Address_Line_1)),
    packedText(46, 20, DG_MEMBER(Address_Line_2)),
    packedText(66, 20, DG_MEMBER(Address_Line_3)),
    rule<clsCustomers>(6, 80, &readState, nullptr, DG_MEMBER(State)),
    rule<clsCustomers>(6, 80, &readZipCode, nullptr, DG_MEMBER(Zip_Code)),
    maskHead<clsCustomers>(kSlashHead),
    integer(86, 'C', DG_MEMBER(Area_Code)),
    integer(88, 'L', DG_MEMBER(Phone_Number)),
    bit(92, 'B', 0, DG_MEMBER(Part_Sales_Trackng)),
    bit(92, 'B', 1, DG_MEMBER(Partial_Ship)),
    bit(92, 'B', 2, DG_MEMBER(Back_Order_Cust)),
    bit(92, 'B', 3, DG_MEMBER(Line_Sales_Trackng)),
    integer(93, 'B', DG_MEMBER(Default_Ship_Type)),
    integer(94, 'B', DG_MEMBER(Category)),
    integer(95, 'B', DG_MEMBER(SalesMan)),
    rawText(96, 1, DG_MEMBER(Credit_Code)),
    rawText(97, 1, DG_MEMBER(Tax_Default)),
    integer(98, 'B', DG_MEMBER(Tax_Table)),
    integer(99, 'B', DG_MEMBER(Branch_Code)),
    rawText(100, 1, DG_MEMBER(AR_Type)),
    integer(101, 'B', DG_MEMBER(Discount_Code)),
    integer(102, 'B', DG_MEMBER(Serv_Charge_Code)),
    integer(103, 'L', DG_MEMBER(Credit_Limit)),
    integer(107, 'C', DG_MEMBER(Price_Matrix)),
    integer(109, 'B', DG_MEMBER(Default_Level)),
    integer(110, 'J', DG_MEMBER(Percentage_Bump)),
    date(112, 'D', DG_MEMBER(Date_SetUp)),
    date(115, 'D', DG_MEMBER(Date_of_Last_Sale)),
    date(118, 'D', DG_MEMBER(Date_of_Last_Pmt)),
    scaled(121, 'L', 100, DG_MEMBER(MTD_Sales)),
    scaled(125, 'L', 100, DG_MEMBER(MTD_COGS)),
    scaled(129, 'L', 100, DG_MEMBER(MTD_Charges)),
    scaled(133, 'L', 100, DG_MEMBER(MTD_Credits)),
    scaled(137, 'L', 100, DG_MEMBER(MTD_Payments)),
    scaled(141, 'L', 100, DG_MEMBER(MTD_Adjustmnts)),
    scaled(145, 'L', 100, DG_MEMBER(MTD_Discounts)),
    scaled(149, 'L', 100, DG_MEMBER(MTD_Tot_Bal)),
    scaled(153, 'L', 100, DG_MEMBER(Statement_MTD)),
    scaled(157, 'L', 100, DG_MEMBER(Statement_30_days)),
    scaled(161, 'L', 100, DG_MEMBER(Statement_60_days)),
    scaled(165, 'L', 100, DG_MEMBER(Statement_90_days)),
    scaled(169, 'L', 100, DG_MEMBER(Statement_Tot_Due)),
    scaled(173, 'L', 100, DG_MEMBER(YTD_Sales)),
    scaled(177, 'L', 100, DG_MEMBER(YTD_COGS)),
    integer(181, 'C', DG_MEMBER(Alternate_Tax_Code)),
    rawText(183, 1, DG_MEMBER(Group_Code)),
    integer(184, 'B', DG_MEMBER(Responsibility_Cd)),
    bit(185, 'B', 0, DG_MEMBER(PO_Required)),
    bit(185, 'B', 1, DG_MEMBER(Approval_Required)),
    bit(185, 'B', 2, DG_MEMBER(Print_Balance)),
    bit(185, 'B', 3, DG_MEMBER(Print_Duplicate)),
    bit(185, 'B', 4, DG_MEMBER(Prompt_Delivery)),
    bit(185, 'B', 5, DG_MEMBER(Dead_Account)),
    bit(185, 'B', 6, DG_MEMBER(Write_Off)),
    bit(185, 'B', 7, DG_MEMBER(Prompt_Ship_To)),
    scaled(186, 'L', 100, DG_MEMBER(PYTD_Sales)),
    scaled(190, 'L', 100, DG_MEMBER(PYTD_COGS)),
    // Read as YYMMDD and written as MMDDYY: the two halves of the format differ here.
    readOnly(date(194, 'R', DG_MEMBER(Date_of_Last_Close))),
    writeOnly(date(194, 'D', DG_MEMBER(Date_of_Last_Close))),
    integer(197, 'L', DG_MEMBER(DetailChain)),
    bounded(integer(201, 'L', DG_MEMBER(Phone_Number_2)), kMaxPhone),
    packedText(205, 12, DG_MEMBER(Contact_1)),
    packedText(217, 12, DG_MEMBER(CONTACT_2)),
    packedText(229, 8, DG_MEMBER(Sales_Tax_No)),
    rawText(237, 5, DG_MEMBER(Delivery_Zone)),
    integer(242, 'K', DG_MEMBER(Orders_MTD)),
    integer(245, 'K', DG_MEMBER(Orders_Filled_MTD)),
    integer(248, 'K', DG_MEMBER(Orders_YTD)),
    integer(251, 'K', DG_MEMBER(Orders_Filled_YTD)),
    integer(254, 'K', DG_MEMBER(Orders_PYTD)),
    integer(257, 'K', DG_MEMBER(Orders_Filled_PYTD)),
    packedText(260, 10, DG_MEMBER(Duns_Number)),
    integer(270, 'B', DG_MEMBER(Times_Past_Due_30)),
    integer(271, 'B', DG_MEMBER(Times_Past_Due_60)),
    integer(272, 'B', DG_MEMBER(Times_Past_Due_90)),
    integer(273, 'L', DG_MEMBER(High_Credit)),
    integer(277, 'L', DG_MEMBER(Min_Autofill_Amt)),
    integer(281, 'L', DG_MEMBER(MTD_Deposits)),
    bounded(integer(285, 'C', DG_MEMBER(Area_Code_2)), kMaxAreaCode),
    bounded(integer(287, 'C', DG_MEMBER(Area_Code_3)), kMaxAreaCode),
    bounded(integer(289, 'L', DG_MEMBER(Phone_Number_3)), kMaxPhone),
    integer(297, 'L', DG_MEMBER(Note_Chain)),
};

}  // namespace

std::span<const Field<clsCustomers>> clsCustomers::fields() {
  return kFields;
}

std::string GetCustomerName(std::int32_t number) {
  const std::int32_t found = findExact(files::kCustomerIndex, integerKey('L', number));
  if (found == 0) return "Customer Name Not Found";
  clsCustomers customer;
  customer.Unpack(readRecord(files::kCustomers, found));
  return customer.Name;
}

}  // namespace dg
