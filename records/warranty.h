#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>

#include "records/record_table.h"

namespace dg {

/// Fields of a claim that are also read without the class, as they stand.
namespace warranty_record {
inline constexpr NumberField kReconciled{'C', 401};  ///< day number, 0 while it is open
inline constexpr NumberField kBilled{'D', 403};      ///< MMDDYY digits
}  // namespace warranty_record

/// The first page of a warranty claim: "WARRL", found through "WARRI". The lines and the page
/// chain, which share some positions with these members, are read separately. Money is in cents,
/// unscaled.
class clsWarranty final : public TableRecord<clsWarranty> {
 public:
  static std::span<const Field<clsWarranty>> fields();

  std::int32_t Status = 0;                  ///< 1 for a claim that the views list
  std::int32_t Distributor = 0;             ///< distributor number, "Dist"
  std::int32_t Shop_Ref = 0;                ///< "Shop Ref"
  std::array<std::string, 3> Cause_Fail;    ///< three text lines
  std::array<std::string, 3> Work_Perform;  ///< three text lines
  std::int32_t Engine_received = 0;
  std::int32_t Parts_Have_Been = 0;
  std::string Product_Model;
  std::string Engine_Model;
  std::int32_t Hours_Used = 0;
  Date Date_Fail;
  std::int32_t Cust_AC = 0;
  std::int32_t Cust_Phone = 0;  ///< mask "000-0000"
  std::int32_t Total_Lab_Hrs = 0;
  Date Date_Purch;
  std::int32_t Bitswitch_1 = 0;
  Currency Part_Amount;
  Currency Labor_Amount;
  Currency Part_Paid_Amount;
  Currency Labor_Paid_Amount;
  std::string Soldby_Name;
  std::string Soldby_Address;
  Currency PD_Charge;
  Currency PD_Paid;
  std::int32_t Reconciled_Inv_No = 0;
  std::string Soldby_City;
  std::string Soldby_State;
  std::string Soldby_Zip;
  std::int32_t Soldby_AC = 0;
  std::int32_t Soldby_Phone = 0;
  Currency Tax_Totals;
  Currency B_Tax_Totals;
  Date Date_Reconciled;  ///< raw value 0 for claims that the views list
  Date Date_Billed;      ///< "Date Billed"; the raw number is also read by the views
  Date Date_Printed;
  std::int32_t Cust_No = 0;       ///< "Cust #"
  std::string Cust_Name;          ///< "Name"
  std::string Repair_Brand;       ///< first part of "Brand/Type"
  std::string Repair_Equip_Desc;  ///< second part
  std::string Serial_1;
  std::string Serial_2;
  std::int32_t Billed_Inv_No = 0;  ///< "Invoice #"
  std::string Misc_Shop_Job_Info;
  std::int32_t Shop_Job_Type = 0;
  std::int32_t Job_No = 0;
  std::int32_t Inv_Ptr = 0;
};

}  // namespace dg
