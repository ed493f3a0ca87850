#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "records/record.h"

namespace dg {

/// One line of an invoice, ticket or order in "INVOL". A line whose type is "REM" is a remark; how
/// its text begins decides what else it holds. Unpack leaves the packed-text table with its head
/// " ,-.".
class clsInvoiceHistoryDetail final : public Record {
 public:
  void Unpack(const std::string& record) override;
  void Pack(std::string& record) const override;
  std::vector<MemberValue> members() const override;
  std::vector<FieldPlace> places() const override;

  std::int32_t DetailField3 = 0;
  std::int32_t DetailField7 = 0;
  std::string LineType;                 ///< 3 characters
  std::string Part_Number;              ///< 18 characters; empty on a remark
  std::string Part_w_Dash;              ///< the same with its dashes; empty on a remark
  std::string Description;              ///< 21 characters; the comment on a remark
  std::string Comment;                  ///< 36 characters
  std::int32_t snLine = 0;              ///< "SN-" remarks: line of the serial number
  std::string snPartNumber;             ///< "SN-" remarks
  std::int32_t snQtyOrdered = 0;        ///< "SN-" remarks
  std::int32_t snFactory_Warranty = 0;  ///< "SN-" remarks
  std::int32_t boRecNumber = 0;         ///< "B.O. INV" remarks: record of the back order
  Date boDate;                          ///< "B.O. INV" remarks
  Currency UnitNet;                     ///< "...UNIT NUMBER..." remarks
  Currency Quantity;
  Currency Net_Each;
  Currency Cost_Each;
  Currency Back_Ordered_Qty;
  std::string Commodity;
  std::int32_t Mechanic_No = 0;
  std::int16_t Flag51Bit15 = 0;
  std::int16_t Flag51Bit14 = 0;
  std::int16_t Flag51Bit13 = 0;
  std::int16_t Flag51Bit12 = 0;
  std::int16_t Flag51Bit11 = 0;
  std::int16_t Flag51Bit10 = 0;
  std::int16_t Flag51Bit9 = 0;
  std::int16_t Flag51Bit8 = 0;
  std::int16_t Flag51Bit7 = 0;
  std::int16_t Flag51Bit6 = 0;
  std::int16_t Flag51Bit5 = 0;
  std::int16_t Flag51Bit4 = 0;
  std::int16_t Flag51Bit3 = 0;
  std::int16_t Flag51Bit2 = 0;
  std::int16_t Flag51Bit1 = 0;
  std::int16_t Flag51Bit0 = 0;
};

}  // namespace dg
