#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "records/record_table.h"

namespace dg {

/// Fields of a counterman that are also read without the class.
namespace counterman_record {
inline constexpr NumberField kNumber{'C', 3};
}  // namespace counterman_record

/// A sales person, counterman or mechanic with running totals: "MANL", found through "MANI" by
/// number, continued in "EMANL". A look-up that needs only the name reads "MANL" alone. The members
/// stand in the class's order, which is the order of reading and not that of the positions.
class clsCounterman final : public TableRecord<clsCounterman> {
 public:
  static std::span<const Field<clsCounterman>> fields();

  std::int32_t COUNTERMAN_Number = 0;  ///< key of "MANI"
  std::string COUNTERMAN_Alpha;
  std::string Name;  ///< 30 characters
  Date Date_Set_Up;
  std::int32_t Todays_Invoices = 0;
  std::int32_t Todays_Line_Items = 0;
  Currency Todays_Cash_Recvd;
  Currency Todays_Charges;
  Currency Todays_Refunds;
  Currency Todays_Cr_Memos;
  Currency Todays_Mdse_Sales;
  Currency Todays_Mdse_Cost;
  Currency Todays_Labor_Sales;
  Currency Todays_Labor_Cost;
  Currency Todays_Discounts;
  Currency Todays_Payments;
  Currency Todays_Taxes;
  Currency Todays_Paymnt_Disc;
  Currency Todays_AR_Adjust;
  std::int32_t Todays_Lost_Sales = 0;
  Currency SM_Todays_Net_Mdse_Sales;
  Currency SM_Todays_Net_Mdse_Cost;
  Currency SM_Todays_Labor_Sales;
  Currency SM_Todays_Labor_Cost;
  Currency SM_Todays_Discounts;
  Currency MTD_Mdse_Sales;
  Currency MTD_Mdse_Cost;
  Currency MTD_Labor_Sales;
  Currency MTD_Labor_Cost;
  Currency MTD_Discounts;
  Currency SM_MTD_Net_Mdse_Sales;
  Currency SM_MTD_Net_Mdse_Cost;
  Currency SM_MTD_Labor_Sales;
  Currency SM_MTD_Labor_Cost;
  Currency SM_MTD_Discounts;
  std::int32_t MTD_Lost_Sales = 0;
  Currency YTD_Mdse_Sales;
  Currency YTD_Mdse_Cost;
  Currency YTD_Labor_Sales;
  Currency YTD_Labor_Cost;
  Currency YTD_Discounts;
  Currency SM_YTD_Net_Mdse_Sales;
  Currency SM_YTD_Net_Mdse_Cost;
  Currency SM_YTD_Labor_Sales;
  Currency SM_YTD_Labor_Cost;
  Currency SM_YTD_Discounts;
  std::int32_t YTD_Lost_Sales = 0;
  std::int32_t DrawerOpen_Today = 0;
  std::int32_t DrawerOpen_Yesterday = 0;
  std::int16_t Field198Flag = 0;  ///< -1 once a value above 9999 was read; never cleared by reading
  std::int32_t Field198 = 0;      ///< the value mod 10000
  Currency MTD_ME_Bld;
  Currency MTD_ME_Act;
  Currency MTD_ME_Bld_1_back;
  Currency MTD_ME_Act_1_back;
  Currency MTD_ME_Bld_2_back;
  Currency MTD_ME_Act_2_back;
  Currency MTD_ME_Bld_3_back;
  Currency MTD_ME_Act_3_back;
  Currency MTD_ME_Bld_4_back;
  Currency MTD_ME_Act_4_back;
  Currency MTD_ME_Bld_5_back;
  Currency MTD_ME_Act_5_back;
  Currency MTD_ME_Bld_6_back;
  Currency MTD_ME_Act_6_back;
  Currency MTD_ME_Bld_7_back;
  Currency MTD_ME_Act_7_back;
  Currency MTD_ME_Bld_8_back;
  Currency MTD_ME_Act_8_back;
  Currency MTD_ME_Bld_9_back;
  Currency MTD_ME_Act_9_back;
  Currency MTD_ME_Bld_10_back;
  Currency MTD_ME_Act_10_back;
  Currency MTD_ME_Bld_11_back;
  Currency MTD_ME_Act_11_back;
  Currency MTD_ME_Bld_12_back;
  Currency MTD_ME_Act_12_back;
  Currency YTD_ME_Billed;
  Currency YTD_ME_Actual;
  Currency LY_ME_Billed;
  Currency LY_ME_Actual;
  Currency PY_ME_Billed;
  Currency PY_ME_Actual;
  Currency Deposits_In_Today;
  Currency Deposits_Out_Today;
  Currency Deposits_In_MTD;
  Currency Deposits_Out_MTD;
  Currency Deposits_In_YTD;
  Currency Deposits_Out_YTD;
  Currency Rentals_Today;
  Currency Rental_Parts_Today;
  Currency Rental_Labor_Today;
  Currency Rentals_MTD;
  Currency Rental_Parts_MTD;
  Currency Rental_Labor_MTD;
  Currency Rentals_YTD;
  Currency Rental_Parts_YTD;
  Currency Rental_Labor_YTD;
  std::string E_Mail_Password;
};

}  // namespace dg
