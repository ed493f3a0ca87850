#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "records/record.h"

namespace dg {

/// The header record of an invoice, ticket or order in "INVOL". It has two layouts, chosen by the
/// record's first field, and a part that is common to both and read last.
///
/// An instance that is used again keeps what a layout does not fill: members of the other layout,
/// flags, and the record type that the next sales record's position 151 depends on.
class clsInvoiceHistory final : public Record {
 public:
  void Unpack(const std::string& record) override;
  /// Writes the layout of the type that stands in `record`. The terminal's number goes to positions
  /// 54 and 157.
  void Pack(std::string& record) const override;
  std::vector<MemberValue> members() const override;
  std::vector<FieldPlace> places() const override;

  std::int32_t Record_Status = 0;  ///< type of the record: selects the layout
  std::int16_t IsOrderLayout = 0;  ///< -1 after an order, 0 after a sale
  std::int16_t SaleFlag = 0;       ///< -1 for a sale whose raw transaction type is above 20

  // Both layouts, at positions of their own.
  std::int32_t Account = 0;  ///< customer account
  std::int32_t ShipTo = 0;   ///< ship-to account
  std::int32_t Terminal = 0;
  std::string Purchase_Order_No;  ///< 9 characters
  std::int32_t Field151 = 0;
  std::int32_t Terms_Code = 0;

  // Sales layout.
  std::int32_t Invoice_Time = 0;
  Date Invoice_Date;
  Date DateDue;
  std::int32_t UPSBoxes = 0;
  Currency Deposit;
  std::int32_t Future_Ship = 0;
  Date Future_Ship_Date;  ///< the same two bytes, read a second time as a date
  std::int16_t Voided = 0;
  std::int16_t Flag63Bit1 = 0;
  std::int16_t Flag63Bit2 = 0;
  std::int16_t Flag63Bit3 = 0;
  std::int16_t Flag63Bit4 = 0;
  std::int16_t Flag63Bit5 = 0;
  std::int16_t Flag63Bit6 = 0;
  std::int16_t Flag63Bit7 = 0;
  std::int16_t Flag63Bit8 = 0;
  std::int16_t WarrantyUpdated = 0;
  std::int32_t Pay_type_1 = 0;
  Currency Pay_Amount_1;
  std::int32_t Pay_type_2 = 0;
  Currency Pay_Amount_2;
  std::int32_t Pay_type_3 = 0;
  Currency Pay_Amount_3;
  std::string Attention_of;
  std::int32_t Invoice_Number = 0;  ///< ticket number
  std::int32_t Number_of_Pages = 0;
  std::int16_t Back_Orders = 0;
  std::int16_t Drop_Ship = 0;
  std::int16_t Dated = 0;
  std::int16_t Flag116Bit5 = 0;
  Currency Down_Payment;
  std::int32_t Field151Long = 0;

  // Order layout.
  Currency ReplacementEstimate;
  Currency Meter;
  Date ScheduleDate;
  Date PostCardDate;
  std::array<Date, 3> CallDates;
  std::string RepairBrand;
  std::string RepairBrandDescription;
  std::string SerialNumber1;
  std::string SerialNumber2;
  std::int32_t ShopReference = 0;
  std::int32_t Mechanic = 0;
  std::int32_t PostCardCount = 0;
  Currency EstimateAmount;
  Date PromiseDate;
  Date DeliveryDate;
  Date DateCompleted;
  Date DateCheckedIn;
  std::string Status;
  std::int32_t JobNumber = 0;
  std::int32_t TimeIn = 0;
  std::string PhoneNumber2;
  std::int32_t Page = 0;
  std::int16_t Rental = 0;  ///< -1 when set
  std::array<std::int32_t, 2> WarrVend{};
  std::string Warranty;
  std::array<std::int32_t, 3> CallStatus{};

  // Common part.
  std::int32_t AlternateTaxCode = 0;
  std::int32_t COUNTERMAN_Number = 0;
  std::int32_t Salesman_Number = 0;
  std::int32_t Transaction_Type = 0;  ///< normalised: see normaliseTransactionType
  std::int32_t Delivery_Code = 0;
  Currency Sub_Total;
  std::int32_t Disc_Percentage = 0;
  Currency Discount_Amount;
  std::int32_t Tax_Rate = 0;
  Currency Tax_Amount;
  std::int32_t Department = 0;
  std::string Sales_Code;
  std::string Tax_Code;
  std::int32_t Tax_Rate_Code = 0;
  std::int32_t Field157 = 0;
};

}  // namespace dg
