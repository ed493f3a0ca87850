#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "records/record_table.h"

namespace dg {

/// Fields of a customer that are also read without the class.
namespace customer_record {
inline constexpr TextField kName{6, 20};  ///< packed
}  // namespace customer_record

/// A customer account: "CUSTL", found through "CUSTI" by account number, continued in "ECUSTL". A
/// look-up that needs only the name reads "CUSTL" alone. Most members are carried, not shown.
/// Unpack leaves the packed-text table with its head " ,/.".
class clsCustomers final : public TableRecord<clsCustomers> {
 public:
  static std::span<const Field<clsCustomers>> fields();

  std::int32_t Account = 0;  ///< key of "CUSTI"
  std::string Name;          ///< four lines of 30 characters from here on
  std::string Address_Line_1;
  std::string Address_Line_2;
  std::string Address_Line_3;
  std::string State;     ///< found in the four lines; no field of its own
  std::string Zip_Code;  ///< likewise
  std::int32_t Area_Code = 0;
  std::int32_t Phone_Number = 0;
  std::int16_t Part_Sales_Trackng = 0;
  std::int16_t Partial_Ship = 0;
  std::int16_t Back_Order_Cust = 0;
  std::int16_t Line_Sales_Trackng = 0;
  std::int32_t Default_Ship_Type = 0;
  std::int32_t Category = 0;
  std::int32_t SalesMan = 0;
  std::string Credit_Code;  ///< "G" for a cash customer
  std::string Tax_Default;
  std::int32_t Tax_Table = 0;
  std::int32_t Branch_Code = 0;
  std::string AR_Type;
  std::int32_t Discount_Code = 0;
  std::int32_t Serv_Charge_Code = 0;
  std::int32_t Credit_Limit = 0;  ///< whole money units
  std::int32_t Price_Matrix = 0;
  std::int32_t Default_Level = 0;
  std::int32_t Percentage_Bump = 0;
  Date Date_SetUp;
  Date Date_of_Last_Sale;
  Date Date_of_Last_Pmt;
  Currency MTD_Sales;
  Currency MTD_COGS;
  Currency MTD_Charges;
  Currency MTD_Credits;
  Currency MTD_Payments;
  Currency MTD_Adjustmnts;
  Currency MTD_Discounts;
  Currency MTD_Tot_Bal;
  Currency Statement_MTD;
  Currency Statement_30_days;
  Currency Statement_60_days;
  Currency Statement_90_days;
  Currency Statement_Tot_Due;
  Currency YTD_Sales;
  Currency YTD_COGS;
  std::int32_t Alternate_Tax_Code = 0;
  std::string Group_Code;
  std::int32_t Responsibility_Cd = 0;
  std::int16_t PO_Required = 0;
  std::int16_t Approval_Required = 0;
  std::int16_t Print_Balance = 0;
  std::int16_t Print_Duplicate = 0;
  std::int16_t Prompt_Delivery = 0;
  std::int16_t Dead_Account = 0;
  std::int16_t Write_Off = 0;
  std::int16_t Prompt_Ship_To = 0;
  Currency PYTD_Sales;
  Currency PYTD_COGS;
  Date Date_of_Last_Close;
  std::int32_t DetailChain = 0;
  std::int32_t Phone_Number_2 = 0;
  std::string Contact_1;
  std::string CONTACT_2;
  std::string Sales_Tax_No;
  std::string Delivery_Zone;
  std::int32_t Orders_MTD = 0;
  std::int32_t Orders_Filled_MTD = 0;
  std::int32_t Orders_YTD = 0;
  std::int32_t Orders_Filled_YTD = 0;
  std::int32_t Orders_PYTD = 0;
  std::int32_t Orders_Filled_PYTD = 0;
  std::string Duns_Number;
  std::int32_t Times_Past_Due_30 = 0;
  std::int32_t Times_Past_Due_60 = 0;
  std::int32_t Times_Past_Due_90 = 0;
  std::int32_t High_Credit = 0;
  std::int32_t Min_Autofill_Amt = 0;
  std::int32_t MTD_Deposits = 0;
  std::int32_t Area_Code_2 = 0;
  std::int32_t Area_Code_3 = 0;  ///< fax
  std::int32_t Phone_Number_3 = 0;
  std::int32_t Note_Chain = 0;
};

/// The name of a customer by account number, or "Customer Name Not Found". Raises what the engine
/// raises.
std::string GetCustomerName(std::int32_t number);

}  // namespace dg
