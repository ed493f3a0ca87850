#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "records/record_table.h"

namespace dg {

/// Fields of a floor-plan entry and of its extents that are also read without their classes.
namespace floor_plan_record {
inline constexpr NumberField kDateSold{'C', 41};         ///< day number, 0 in an open entry
inline constexpr NumberField kCustomerInvoice{'L', 60};  ///< 0 in an open entry
inline constexpr NumberField kExtentChain{'D', 94};
inline constexpr TextField kPartKey{5, 14};  ///< taken as a key into "PARTI"
}  // namespace floor_plan_record
namespace floor_plan_extent {
inline constexpr NumberField kNext{'D', 29};
}  // namespace floor_plan_extent

/// One financed unit: "FPLNL", found through "FPLNI" by product line. Unpack leaves the packed-text
/// table with its head " ,-.".
class clsFloorPlan final : public TableRecord<clsFloorPlan> {
 public:
  static std::span<const Field<clsFloorPlan>> fields();

  std::int32_t Line = 0;              ///< product line
  std::string Part_Number;            ///< "Model"
  std::string Serial_Number;          ///< "Serial Number"
  std::string Reference_1;            ///< "Ref 1"
  std::string Reference_2;            ///< "Ref 2"
  Date Date_Received;                 ///< "Date In"
  Date Date_Sold;                     ///< "Date Sold"; raw 0 in an open entry
  Date Date_Due;                      ///< "Date Due"
  Date Date_Paid;                     ///< "Date Paid"
  std::string Payment_Reference;      ///< "Pmt #"
  Currency Cost;                      ///< "Cost"
  Currency Sold_For_Price;            ///< "Amount"
  std::int32_t Account = 0;           ///< "Cust #"
  std::int32_t Customer_Invoice = 0;  ///< "Invoice"; 0 in an open entry
  Date pas_Date_Due;
  Date pas_Date_Paid;
  std::string pas_Payment_Ref;
  std::string pas_Status;
  std::int32_t pas_Serv_Chg_Perc = 0;
  Currency pas_Amount_Paid;
  std::int32_t ExtentChain = 0;  ///< first record of the extent chain in "FPEXL"; 0 for none
};

/// A line of the chain of extents of a financed unit: "FPEXL". On a "REM" line quantity, cost and
/// net are decoded from text and mean nothing.
class clsFloorPlanExtent final : public TableRecord<clsFloorPlanExtent> {
 public:
  static std::span<const Field<clsFloorPlanExtent>> fields();

  std::int32_t recordStatus = 0;
  std::string Line;             ///< three-character line code, "REM" for a text line
  std::string PartNumber;       ///< "Part Number"
  std::string LongText;         ///< the text of a "REM" line: the same bytes from 5 to 28
  std::int32_t Quantity = 0;    ///< "Quantity"
  Currency Cost;                ///< "Cost"
  Currency Net;                 ///< "Net"
  std::int32_t ExtentNext = 0;  ///< next record of the chain; 0 at the end
};

}  // namespace dg
