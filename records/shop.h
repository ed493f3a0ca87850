#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>

#include "engine/layout.h"
#include "records/record_table.h"

namespace dg {

/// The day numbers of a job's dates as they stand, 0 for none: windows sort by them, and tell a
/// call that was blanked.
namespace shop_days {
inline constexpr NumberField kCalls[] = {{'C', 21}, {'C', 23}, {'C', 25}};
inline constexpr NumberField kCompleted{'C', 93};
inline constexpr NumberField kCheckedIn{'C', 95};
/// What the suite writes for a call date that was blanked.
inline constexpr std::int32_t kBlanked = 40699;
}  // namespace shop_days

/// A shop job: the first record of its page chain in "INVOL", found through the job table of the
/// control file. Members without a meaning are carried, not shown.
class clsShop final : public TableRecord<clsShop> {
 public:
  static std::span<const Field<clsShop>> fields();

  std::int32_t Record_Status = 0;
  std::int32_t Account = 0;  ///< customer number; key of "CUSTI"
  std::int32_t ShipTo = 0;   ///< bill-to account; 0 in the record means the account itself
  Currency ReplacementEstimate;
  std::int32_t Field72 = 0;  ///< not in the record
  std::int32_t AlternateTaxCode = 0;
  Currency Meter;
  Date ScheduleDate;
  Date PostCardDate;
  std::array<Date, 3> CallDates;
  std::string RepairBrand;  ///< "Brand" and equipment "Name"
  std::string RepairBrandDescription;
  std::string SerialNumber1;
  std::string SerialNumber2;
  std::int32_t ShopReference = 0;  ///< "Shop Ref #"
  std::int32_t Mechanic = 0;       ///< key of "MANI"
  std::int32_t PostCardCount = 0;
  Currency EstimateAmount;
  Date PromiseDate;
  Date DeliveryDate;
  std::string POReference;
  Date DateCompleted;
  Date DateCheckedIn;
  std::int32_t LastRequest = 0;  ///< request number of the page, from 0
  std::string Status;            ///< job status byte
  std::int32_t DeliveryCode = 0;
  std::int32_t JobNumber = 0;  ///< "Job #"
  std::int32_t TimeIn = 0;
  std::string PhoneNumber2;
  std::int32_t Counterman = 0;  ///< "CM"; key of "MANI"
  std::int32_t Salesman_Number = 0;
  std::int32_t Page = 0;
  std::int16_t Rental = 0;
  std::int16_t Shop = 0;
  std::int32_t Field232 = 0;                 ///< not in the record
  std::array<std::int32_t, 2> WarrVend{};    ///< the second shares its bytes with LastRequest
  std::string Warranty;                      ///< "Y" for a warranty job
  std::array<std::int32_t, 3> CallStatus{};  ///< call result number; 0 = none
  std::int32_t Transaction_Type = 0;
  std::int32_t Delivery_Code = 0;
  Currency Sub_Total;
  std::int32_t Disc_Percentage = 0;
  Currency Discount_Amount;
  std::int32_t Tax_Rate = 0;
  Currency Tax_Amount;
  std::int32_t Department = 0;
  std::string Sales_Code;
  std::string TaxCode;
  std::int32_t Tax_Rate_Code = 0;
  std::int32_t Field328 = 0;  ///< not in the record
  std::int32_t Field151 = 0;
  std::int32_t Terms_Code = 0;
  std::int32_t Field157 = 0;
  std::string RecordText;  ///< the whole record, set by the list and the window of jobs
};

}  // namespace dg
