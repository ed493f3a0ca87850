#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "engine/collection.h"
#include "engine/logical_file.h"
#include "records/record_table.h"

namespace dg {

/// Line numbers from here on are no product lines; walks over "LINEI" end at the first of them.
inline constexpr std::int32_t kFirstForeignLine = 1000;

/// Fields of a product line that are also read without the class.
namespace line_record {
inline constexpr NumberField kNumber{'C', 3};
inline constexpr NumberField kMerchandise{'L', 75};  ///< cents
inline constexpr NumberField kMonthCost{'L', 91};    ///< cents
inline constexpr NumberField kYearCost{'L', 103};    ///< cents
}  // namespace line_record

/// A product line of the parts department with its running totals: "LINEL", found through "LINEI"
/// by line number, continued in "ELINEL". Members without a comment are carried, not shown.
class clsLines final : public TableRecord<clsLines> {
 public:
  /// Opens the line's two files by name; while there is no engine they stay closed.
  clsLines();

  /// Reads a record and its extension and unpacks them. `lock` is passed on to the logical read.
  /// Raises 81 "Illegal Record Number" for a number below 1 or above the file's capacity, 91 while
  /// the file is closed, and what the engine raises.
  void Read(std::int32_t number, bool& lock);

  static std::span<const Field<clsLines>> fields();

  std::int32_t Line = 0;                 ///< line number; key of the file
  std::string Alpha_Line;                ///< two-character line code, shown as "Alpha"
  std::string Line_Name;                 ///< name of the line
  std::string Auto_Order;                ///< one character
  std::string Comodities;                ///< one character: the first commodity code of the line
  std::vector<std::string> Commodities;  ///< all commodity codes of the line, from the index
  std::int32_t Field29 = 0;
  std::int32_t Field33 = 0;
  std::int32_t Field35 = 0;
  std::int32_t Field37 = 0;
  std::string Sequencing_ANAN;
  std::string Sequencing_Prior;
  std::int32_t Price_Def_1_Level = 0;
  std::int32_t Price_Def_1_Use = 0;
  std::int32_t Price_Def_1_Perc = 0;
  std::int32_t Price_Def_2_Level = 0;
  std::int32_t Price_Def_2_Use = 0;
  std::int32_t Price_Def_2_Perc = 0;
  std::int32_t Price_Def_3_Level = 0;
  std::int32_t Price_Def_3_Use = 0;
  std::int32_t Price_Def_3_Perc = 0;
  std::int32_t Price_Def_4_Level = 0;
  std::int32_t Price_Def_4_Use = 0;
  std::int32_t Price_Def_4_Perc = 0;
  std::int32_t Price_Def_5_Level = 0;
  std::int32_t Price_Def_5_Use = 0;
  std::int32_t Price_Def_5_Perc = 0;
  std::int32_t Price_Def_6_Level = 0;
  std::int32_t Price_Def_6_Use = 0;
  std::int32_t Price_Def_6_Perc = 0;
  Currency Cost_of_Mdse;  ///< investment in stock, shown as "Merchandise"
  Currency Cost_of_Freight;
  std::int32_t MTD_No_Sales = 0;
  Currency MTD_Sales;  ///< sales of the month to date
  Currency MTD_Cost;   ///< cost of those sales
  std::int32_t YTD_No_Sales = 0;
  Currency YTD_Sales;  ///< sales of the year to date
  Currency YTD_Cost;   ///< cost of those sales
  std::int32_t PYTD_No_Sales = 0;
  Currency PYTD_Sales;  ///< sales of the previous year
  Currency PYTD_COGS;   ///< cost of those sales
  std::int32_t Default_Cost_GP = 0;
  std::string Taxable;
  std::int32_t Default_Frt_Markup = 0;
  std::int16_t ReCalculateMax = 0;  ///< 1 for "Y"
  std::int32_t High_Stock_Amount = 0;
  std::string DataBase_Name;
  std::int32_t Warranty = 0;
  std::int32_t SerPol_No_Months_1 = 0;
  std::int32_t SerPol_List_Perc_1 = 0;
  std::int32_t SerPol_No_Months_2 = 0;
  std::int32_t SerPol_List_Perc_2 = 0;
  std::int32_t SerPol_No_Months_3 = 0;
  std::int32_t SerPol_List_Perc_3 = 0;
  std::int32_t SerPol_No_Months_4 = 0;
  std::int32_t SerPol_List_Perc_4 = 0;
  std::string Line_Type;  ///< "U" units, "R" rental, "P" parts and all else
  std::int32_t Unit_Counter = 0;
  std::int32_t A_P_Company = 0;
  std::int32_t A_P_Vendor = 0;
  std::int32_t MTD_Items_Ordered = 0;
  std::int32_t MTD_Items_Filled = 0;
  std::int32_t MTD_Pieces_Ordered = 0;
  std::int32_t MTD_Pieces_Filled = 0;
  std::int32_t MTD_Dollars_Ord = 0;
  std::int32_t MTD_Dollars_Filled = 0;
  std::int32_t YTD_Items_Ordered = 0;   ///< invoice items ordered
  std::int32_t YTD_Items_Filled = 0;    ///< invoice items shipped
  std::int32_t YTD_Pieces_Ordered = 0;  ///< pieces ordered
  std::int32_t YTD_Pieces_Filled = 0;   ///< pieces shipped
  std::int32_t YTD_Dollars_Ord = 0;     ///< dollars ordered
  std::int32_t YTD_Dollars_Filled = 0;  ///< dollars shipped
  std::int32_t Primary_Vendor = 0;
  std::string Field197;
  std::int32_t Seas_percentage = 0;
  std::string Seas_ReOrder_Codes;
  Date Seas_Date_Last_Gen;
  std::int32_t EOM_Mdse_Cost = 0;
  std::int32_t EOM_Freight_Cost = 0;
  std::int32_t EOY_Mdse_Cost = 0;
  std::int32_t EOY_Freight_Cost = 0;
  std::int32_t RecordNumber = 0;  ///< kept by Read

 private:
  std::shared_ptr<cLogicalFile> lines_;
  std::shared_ptr<cLogicalFile> extension_;
};

/// All product lines in use, by the decimal text of their number.
class clnLines {
 public:
  /// Reads the whole of "LINEL". Raises what the engine raises.
  clnLines();

  /// Adds a line under its number; raises 457 when the number is there.
  std::shared_ptr<clsLines> Add(std::shared_ptr<clsLines> line);
  /// A line by the decimal text of its number (raises 5) or by its place from 1 (raises 9).
  std::shared_ptr<clsLines> Item(const std::string& number) const { return lines_.Item(number); }
  std::shared_ptr<clsLines> Item(std::int32_t index) const { return lines_.Item(index); }
  std::int32_t Count() const { return lines_.Count(); }
  /// Removes a line by number (raises 5) or by place (raises 9).
  void Remove(const std::string& number) { lines_.Remove(number); }
  void Remove(std::int32_t index) { lines_.Remove(index); }
  std::vector<std::shared_ptr<clsLines>> NewEnum() const { return lines_.NewEnum(); }

 private:
  Collection<clsLines> lines_;
};

}  // namespace dg
