#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "records/record_table.h"

namespace dg {

/// Where a unit's ledger chain begins, and where an entry of it leads on.
namespace unit_record {
inline constexpr NumberField kLedgerChain{'L', 505};
}  // namespace unit_record
namespace unit_ledger {
inline constexpr NumberField kNext{'L', 61};
}  // namespace unit_ledger

/// A vehicle or machine: "UNITL", found through "UNITI" by unit number and through "LUNITI" by
/// line.
class clsUnits final : public TableRecord<clsUnits> {
 public:
  static std::span<const Field<clsUnits>> fields();

  std::int32_t Line = 0;     ///< product line
  std::string Model_Number;  ///< "Model"; a second read of width 14 at the same position gives the
                             ///< formatted form
  std::string Model_Number_W_Dash;         ///< the 12 characters and the 2 that follow
  std::string Unit_Number;                 ///< "Unit"; key of "UNITI"
  std::string Model_Description;           ///< "Description"
  std::string Make_or_Manufacturer;        ///< "Make"
  std::string Unit_Serial_Number;          ///< "Serial Number (VID)"
  std::string Manufacturers_Identificati;  ///< "Manufacturer ID"
  std::int32_t Model_Year = 0;             ///< "Model Year"
  std::string Model_Series_Number;         ///< "Series #"
  std::string Engine_Type;                 ///< "Engine Type"
  std::string Engine_ID_Number;            ///< "Engine ID #"
  std::string Drive_type_2wd_4wd;          ///< "Drive Type 2/4"
  std::string Unit_Color;                  ///< "Color"
  std::int32_t Meter_Reading = 0;          ///< "Meter"
  std::string Unit_Status_A_R_S_U;         ///< "Status"
  std::string User_Defined_Unit_Type;      ///< "Unit Type"
  std::string
      Location_of_Unit;  ///< "Location"; its last byte is position 112, also the start of the next
  std::int32_t User_Defined_Numeric_1 = 0;   ///< third custom caption
  std::int32_t User_Defined_Numeric_2 = 0;   ///< fourth custom caption
  std::string User_Defined_Alpha_1;          ///< first custom caption
  std::string User_Defined_Alpha_2;          ///< second custom caption
  std::int32_t Sold_To_Customer_Number = 0;  ///< "Sold To"
  Date Date_Received_In;                     ///< "Date IN"
  Date Date_Sold;                            ///< "Date Sold"; "1/1/68" when empty
  std::int32_t Sold_Invoice_Number = 0;      ///< "Invoice #"
  Currency Dealers_List_Price;               ///< "Dealer List"
  Currency Suggested_LIst_Price;             ///< "Suggested List"
  Currency Amount_Sold_For;                  ///< "Sold For"
  Date Factory_Warranty_Expiratio;
  Date Extended_Warranty_Expirati;
  std::string User_Defined_Warranty_Code;
  Currency Extended_Warranty_Cost;
  std::string Flooring_Number;
  std::int32_t GL_Inventory_Account_No = 0;
  std::int32_t GL_Cost_Goods_Account_No = 0;
  std::int32_t GL_Over_Allow_Account_No = 0;
  std::int32_t Flooring_Line = 0;
  std::string Unit_Number_Traded_Against;
  std::int32_t Accounts_Payable_Vendor_No = 0;
  std::int32_t Selling_Salesman_Number = 0;  ///< "Salesman"
  std::string FlooringInvoice;
  std::string FlooringPayment;
  Date FlooringDateDue;
  Date FlooringDatePaid;
  std::int32_t NoteChain = 0;
  std::int32_t SubLedgerChain = 0;  ///< first record of the ledger chain in "LUNITL"
  std::int32_t HistoryChain = 0;
};

/// One entry of a unit's ledger chain: "LUNITL".
class clsUnitsLedger final : public TableRecord<clsUnitsLedger> {
 public:
  static std::span<const Field<clsUnitsLedger>> fields();

  std::int32_t Line = 0;  ///< product line
  std::string UnitNumber;
  Date Transaction_Date;
  std::string Journal_Type;
  std::int32_t Journal_Number = 0;
  std::string Transaction_Description;
  std::int32_t Field49 = 0;
  Currency Amount;
  std::int32_t LedgerNext = 0;  ///< next ledger record, 0 at the end
};

/// A unit's service visit, of the same family of files. No view shows it.
class clsUnitsHistory final : public TableRecord<clsUnitsHistory> {
 public:
  static std::span<const Field<clsUnitsHistory>> fields();

  std::int32_t Line = 0;
  std::string UnitNumber;
  Date DateServiced;
  std::int32_t InvoiceNumber = 0;
  std::string WorkPerformed;  ///< kept as one block
  std::int32_t Field163 = 0;
  std::string WarrantySwitch;
  std::int32_t ShopRef = 0;
  Currency Amount;
  std::int32_t Field253 = 0;
};

/// A note on a unit, of the same family of files. No view shows it.
class clsUnitnotes final : public TableRecord<clsUnitnotes> {
 public:
  static std::span<const Field<clsUnitnotes>> fields();

  std::int32_t Line = 0;
  std::string UnitNumber;
  std::string Field11;
  std::int32_t NoteDate = 0;  ///< day number
  Date NoteDay;               ///< the same bytes as a date
  std::string Text;
  Currency Field61;
  Currency Field65;
  std::int32_t Field69 = 0;
  std::int32_t Field81 = 0;
};

}  // namespace dg
