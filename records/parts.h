#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "engine/logical_file.h"
#include "records/record_table.h"

namespace dg {

/// Fields of a part that are also read without the class.
namespace part_record {
inline constexpr NumberField kCost{'D', 61};       ///< cents
inline constexpr TextField kDescription{179, 14};  ///< packed
}  // namespace part_record

/// The part master: one record for each part number of each product line. "PARTL", found through
/// "PARTI" by line code and part number, continued in "EPARTL". Most members are carried, not
/// shown.
class clsParts final : public TableRecord<clsParts> {
 public:
  /// Opens the part's two files by name; while there is no engine they stay closed.
  clsParts();

  /// Reads a record and its extension and unpacks them. `lock` is passed on to the logical read.
  /// Raises 81 "Read - Illegal Record Number" for a number below 1 or above the file's capacity,
  /// 91 while the file is closed, and what the engine raises.
  void Read(std::int32_t number, bool& lock);

  static std::span<const Field<clsParts>> fields();

  std::int32_t Line = 0;
  std::string Part_Number;  ///< 18 characters without dashes, as the index holds it
  std::string Part_w_Dash;  ///< the same with its dashes
  std::string Package_Code;
  std::string Comodity;
  std::string Unit_of_Measure;
  std::string Return_Flag;
  std::string Mfg_Popularity;
  std::string Dlr_Popularity;
  std::string Order_Code;
  std::int32_t Package_Quantity = 0;
  std::int32_t Matched_Set_Qty = 0;
  std::int32_t Manual_Minimum = 0;
  std::int32_t Maximum_Stock_Lvl = 0;
  std::string Price_Code;
  Currency Quantity_On_Hand;
  std::int32_t Quantity_On_Order = 0;
  std::int32_t Qty_Back_Ordered = 0;
  Currency List_Price;
  Currency Level_1_Price;
  Currency Level_2_Price;
  Currency Level_3_Price;
  Currency Level_4_Price;
  Currency Level_5_Price;
  Currency Cost;
  Currency F_Freight_Resale;
  Currency F_Freight_Cost;
  Date Date_Last_Change;
  Date Date_Last_Demand;
  std::int32_t MTD_Number_Sold = 0;
  std::int32_t MTD_Lost_Sales = 0;
  std::int32_t YTD_Number_Picks = 0;
  std::int32_t YTD_Number_Sold = 0;
  std::int32_t YTD_Picks_Lost = 0;
  std::int32_t YTD_Lost_Sales = 0;
  std::int16_t Price_Lock_Factors = 0;
  std::int16_t Order_In_Sets = 0;
  std::int16_t Monthly_Max = 0;
  std::int16_t Price_Lock_All = 0;
  std::int16_t Seasonal = 0;
  std::int16_t Label = 0;
  std::int16_t Meter = 0;
  std::int16_t Field89Kind = 0;  ///< from bits 4 and 5 of the byte at 89: 2, 1 or 0
  std::int32_t Serial_Numbers = 0;
  std::int32_t Weight = 0;
  std::int32_t Days_On_Order = 0;
  std::int32_t Days_Back_Ordered = 0;
  std::string Location;
  Date Date_Stocked;
  std::int32_t YTD_Demand_2_back = 0;
  std::int32_t YTD_Demand_1_back = 0;
  std::int32_t MTD_Demand_12_back = 0;
  std::int32_t MTD_Demand_11_back = 0;
  std::int32_t MTD_Demand_10_back = 0;
  std::int32_t MTD_Demand_9_back = 0;
  std::int32_t MTD_Demand_8_back = 0;
  std::int32_t MTD_Demand_7_back = 0;
  std::int32_t MTD_Demand_6_back = 0;
  std::int32_t MTD_Demand_5_back = 0;
  std::int32_t MTD_Demand_4_back = 0;
  std::int32_t MTD_Demand_3_back = 0;
  std::int32_t MTD_Demand_2_back = 0;
  std::int32_t MTD_Demand_1_back = 0;
  std::string Sub_Part_Number;
  std::string Sub_Part_w_Dash;
  std::string Last_Tran_Codes;
  Currency Quantity_Alloc;
  std::int32_t Year_End_Quantity = 0;
  Currency Year_End_Cost;
  Currency Average_Cost;
  std::int32_t LayAway = 0;
  Currency MTD_Sales;
  Currency MTD_Cost;
  Currency YTD_Sales;
  Currency YTD_Cost;
  std::string Description;  ///< 21 characters
  std::int32_t YTD_Demand_3_back = 0;
  std::int32_t MTD_Demand_36_back = 0;
  std::int32_t MTD_Demand_35_back = 0;
  std::int32_t MTD_Demand_34_back = 0;
  std::int32_t MTD_Demand_33_back = 0;
  std::int32_t MTD_Demand_32_back = 0;
  std::int32_t MTD_Demand_31_back = 0;
  std::int32_t MTD_Demand_30_back = 0;
  std::int32_t MTD_Demand_29_back = 0;
  std::int32_t MTD_Demand_28_back = 0;
  std::int32_t MTD_Demand_27_back = 0;
  std::int32_t MTD_Demand_26_back = 0;
  std::int32_t MTD_Demand_25_back = 0;
  std::int32_t MTD_Demand_24_back = 0;
  std::int32_t MTD_Demand_23_back = 0;
  std::int32_t MTD_Demand_22_back = 0;
  std::int32_t MTD_Demand_21_back = 0;
  std::int32_t MTD_Demand_20_back = 0;
  std::int32_t MTD_Demand_19_back = 0;
  std::int32_t MTD_Demand_18_back = 0;
  std::int32_t MTD_Demand_17_back = 0;
  std::int32_t MTD_Demand_16_back = 0;
  std::int32_t MTD_Demand_15_back = 0;
  std::int32_t MTD_Demand_14_back = 0;
  std::int32_t MTD_Demand_13_back = 0;
  std::int32_t Alt_Demand_12_back = 0;
  std::int32_t Alt_Demand_11_back = 0;
  std::int32_t Alt_Demand_10_back = 0;
  std::int32_t Alt_Demand_9_back = 0;
  std::int32_t Alt_Demand_8_back = 0;
  std::int32_t Alt_Demand_7_back = 0;
  std::int32_t Alt_Demand_6_back = 0;
  std::int32_t Alt_Demand_5_back = 0;
  std::int32_t Alt_Demand_4_back = 0;
  std::int32_t Alt_Demand_3_back = 0;
  std::int32_t Alt_Demand_2_back = 0;
  std::int32_t Alt_Demand_1_back = 0;
  std::int32_t Usage_Rate = 0;
  std::int32_t Order_Point = 0;
  std::int32_t Line_Point = 0;
  std::int16_t Lock_Line_Point = 0;
  std::int16_t Stockout_Updated = 0;
  Date Date_Last_Stockout;
  std::int32_t YTD_Stockout_Times = 0;
  Date Date_Last_Recvd;
  std::int32_t Econ_Order_Qty = 0;
  std::string Order_Type_Switch;
  std::int32_t MTD_Stockout_Days = 0;
  std::int32_t Last_Qty_Received = 0;
  std::string Zone;
  std::int32_t Spring_Order_Qty = 0;
  std::int32_t RecordNumber = 0;  ///< kept by Read

 private:
  std::shared_ptr<cLogicalFile> parts_;
  std::shared_ptr<cLogicalFile> extension_;
};

/// The description of a part by line code and part number, or "Description Not Found".
/// Raises what the engine raises.
std::string GetPartDescription(const std::string& line, const std::string& part);

}  // namespace dg
