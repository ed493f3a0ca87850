#include "records/lines.h"

#include <utility>

#include "engine/business_basic.h"
#include "engine/record_zero.h"
#include "engine/state.h"
#include "engine/text_utilities.h"
#include "records/failure_log.h"
#include "records/file_names.h"
#include "records/index_walk.h"
#include "records/read.h"

namespace dg {

namespace {

using Self = clsLines;

constexpr int kIllegalRecordNumber = 81;

/// The commodity index has a key of the line number and one commodity code. The list begins with
/// the code in the record itself, and goes on with those of the index from that code on.
void readCommodities(clsLines& line, const std::string& record, TextField field) {
  line.Commodities.assign(1, std::string(bytesOf(field, record)));
  std::string key(4, '\0');
  Pack('C', key, line.Line, 1);
  putTextField(key, 3, 1, line.Commodities.front(), '\0');
  try {
    for (IndexWalk walk(files::kCommodityIndex, key);
         !walk.atEnd() && walk.keyField('C', 1) == line.Line; walk.next()) {
      line.Commodities.push_back(walk.key().substr(2, 1));
    }
  } catch (const RunTimeError& error) {
    reportFailure("Error in clsLines Unpack routine ", error);
  }
}

/// The flag is a letter in the record. Nothing writes it back.
void readRecalculateMax(clsLines& line, const std::string& record, TextField field) {
  line.ReCalculateMax = YesFlag(bytesOf(field, record));
}

void normaliseLineType(clsLines& line) {
  if (line.Line_Type != "U" && line.Line_Type != "R") line.Line_Type = "P";
}

constexpr Field<clsLines> kFields[] = {
    integer(line_record::kNumber, DG_MEMBER(Line)),
    packedText(5, 2, DG_MEMBER(Alpha_Line)),
    packedText(7, 20, DG_MEMBER(Line_Name)),
    rawText(27, 1, DG_MEMBER(Auto_Order)),
    rawText(28, 1, DG_MEMBER(Comodities)),
    rule<clsLines>(28, 1, &readCommodities, nullptr, DG_MEMBER(Commodities)),
    integer(29, 'B', DG_MEMBER(Field29)),
    integer(33, 'C', DG_MEMBER(Field33)),
    integer(35, 'C', DG_MEMBER(Field35)),
    integer(37, 'C', DG_MEMBER(Field37)),
    rawText(39, 6, DG_MEMBER(Sequencing_ANAN)),
    rawText(45, 6, DG_MEMBER(Sequencing_Prior)),
    integer(51, 'B', DG_MEMBER(Price_Def_1_Level)),
    integer(52, 'B', DG_MEMBER(Price_Def_1_Use)),
    integer(53, 'J', DG_MEMBER(Price_Def_1_Perc)),
    integer(55, 'B', DG_MEMBER(Price_Def_2_Level)),
    integer(56, 'B', DG_MEMBER(Price_Def_2_Use)),
    integer(57, 'J', DG_MEMBER(Price_Def_2_Perc)),
    integer(59, 'B', DG_MEMBER(Price_Def_3_Level)),
    integer(60, 'B', DG_MEMBER(Price_Def_3_Use)),
    integer(61, 'J', DG_MEMBER(Price_Def_3_Perc)),
    integer(63, 'B', DG_MEMBER(Price_Def_4_Level)),
    integer(64, 'B', DG_MEMBER(Price_Def_4_Use)),
    integer(65, 'J', DG_MEMBER(Price_Def_4_Perc)),
    integer(67, 'B', DG_MEMBER(Price_Def_5_Level)),
    integer(68, 'B', DG_MEMBER(Price_Def_5_Use)),
    integer(69, 'J', DG_MEMBER(Price_Def_5_Perc)),
    integer(71, 'B', DG_MEMBER(Price_Def_6_Level)),
    integer(72, 'B', DG_MEMBER(Price_Def_6_Use)),
    integer(73, 'J', DG_MEMBER(Price_Def_6_Perc)),
    scaled(line_record::kMerchandise, 100, DG_MEMBER(Cost_of_Mdse)),
    scaled(79, 'L', 100, DG_MEMBER(Cost_of_Freight)),
    integer(83, 'L', DG_MEMBER(MTD_No_Sales)),
    scaled(87, 'L', 100, DG_MEMBER(MTD_Sales)),
    scaled(line_record::kMonthCost, 100, DG_MEMBER(MTD_Cost)),
    integer(95, 'L', DG_MEMBER(YTD_No_Sales)),
    // Writing puts the month's values into the year's place; the suite's files are kept that way.
    readOnly(scaled(99, 'L', 100, DG_MEMBER(YTD_Sales))),
    readOnly(scaled(line_record::kYearCost, 100, DG_MEMBER(YTD_Cost))),
    writeOnly(scaled(99, 'L', 100, DG_MEMBER(MTD_Sales))),
    writeOnly(scaled(line_record::kYearCost, 100, DG_MEMBER(MTD_Cost))),
    integer(107, 'L', DG_MEMBER(PYTD_No_Sales)),
    scaled(111, 'L', 100, DG_MEMBER(PYTD_Sales)),
    scaled(115, 'L', 100, DG_MEMBER(PYTD_COGS)),
    integer(119, 'C', DG_MEMBER(Default_Cost_GP)),
    rawText(121, 1, DG_MEMBER(Taxable)),
    integer(122, 'C', DG_MEMBER(Default_Frt_Markup)),
    rule<clsLines>(124, 1, &readRecalculateMax, nullptr, DG_MEMBER(ReCalculateMax)),
    integer(125, 'C', DG_MEMBER(High_Stock_Amount)),
    packedText(127, 2, DG_MEMBER(DataBase_Name)),
    integer(129, 'B', DG_MEMBER(Warranty)),
    integer(130, 'B', DG_MEMBER(SerPol_No_Months_1)),
    integer(131, 'C', DG_MEMBER(SerPol_List_Perc_1)),
    integer(133, 'B', DG_MEMBER(SerPol_No_Months_2)),
    integer(134, 'C', DG_MEMBER(SerPol_List_Perc_2)),
    integer(136, 'B', DG_MEMBER(SerPol_No_Months_3)),
    integer(137, 'C', DG_MEMBER(SerPol_List_Perc_3)),
    integer(139, 'B', DG_MEMBER(SerPol_No_Months_4)),
    integer(140, 'C', DG_MEMBER(SerPol_List_Perc_4)),
    rawText(142, 1, DG_MEMBER(Line_Type)),
    step<&normaliseLineType>(),
    integer(143, 'L', DG_MEMBER(Unit_Counter)),
    integer(147, 'B', DG_MEMBER(A_P_Company)),
    integer(148, 'L', DG_MEMBER(A_P_Vendor)),
    integer(152, 'J', DG_MEMBER(MTD_Items_Ordered)),
    integer(154, 'J', DG_MEMBER(MTD_Items_Filled)),
    integer(156, 'K', DG_MEMBER(MTD_Pieces_Ordered)),
    integer(159, 'K', DG_MEMBER(MTD_Pieces_Filled)),
    integer(162, 'L', DG_MEMBER(MTD_Dollars_Ord)),
    integer(166, 'L', DG_MEMBER(MTD_Dollars_Filled)),
    integer(170, 'K', DG_MEMBER(YTD_Items_Ordered)),
    integer(173, 'K', DG_MEMBER(YTD_Items_Filled)),
    integer(176, 'L', DG_MEMBER(YTD_Pieces_Ordered)),
    integer(180, 'L', DG_MEMBER(YTD_Pieces_Filled)),
    integer(184, 'L', DG_MEMBER(YTD_Dollars_Ord)),
    integer(188, 'L', DG_MEMBER(YTD_Dollars_Filled)),
    integer(193, 'L', DG_MEMBER(Primary_Vendor)),
    rawText(197, 1, DG_MEMBER(Field197)),
    integer(198, 'B', DG_MEMBER(Seas_percentage)),
    rawText(203, 5, DG_MEMBER(Seas_ReOrder_Codes)),
    date(205, 'J', DG_MEMBER(Seas_Date_Last_Gen)),
    integer(207, 'L', DG_MEMBER(EOM_Mdse_Cost)),
    integer(211, 'L', DG_MEMBER(EOM_Freight_Cost)),
    integer(215, 'L', DG_MEMBER(EOY_Mdse_Cost)),
    integer(219, 'L', DG_MEMBER(EOY_Freight_Cost)),
    member(DG_MEMBER(RecordNumber)),
};

}  // namespace

std::span<const Field<clsLines>> clsLines::fields() {
  return kFields;
}

clsLines::clsLines() {
  if (!SharedEngine) return;
  lines_ = SharedEngine->LogicalOpen(files::kLines);
  extension_ = SharedEngine->LogicalOpen(files::kLineExtension);
}

void clsLines::Read(std::int32_t number, bool& lock) {
  if (!lines_) throw RunTimeError(kObjectNotSet);
  if (number < 1 || number > lines_->LastRecord) {
    throw RunTimeError(kIllegalRecordNumber, "", "Illegal Record Number");
  }
  std::string record = sharedEngine().LreadFile(lines_, number, lock);
  record += sharedEngine().LreadFile(extension_, number, lock);
  Unpack(record);
  RecordNumber = number;
}

clnLines::clnLines() {
  const std::shared_ptr<cLogicalFile> lines = LogicalFileArgument(files::kLines).resolve();
  bool orb = true;
  const std::int32_t highest = lines->HighUsedRecord(orb);
  for (std::int32_t number = 1; number <= highest; ++number) {
    orb = true;
    const std::string record = readRecord(lines, number);
    const bool inUse = dg::Unpack(kRecordInUse, record) >= 1;
    if (!inUse || dg::Unpack(line_record::kNumber, record) >= kFirstForeignLine) continue;
    auto line = std::make_shared<clsLines>();
    line->Read(number, orb);
    Add(std::move(line));
  }
}

std::shared_ptr<clsLines> clnLines::Add(std::shared_ptr<clsLines> line) {
  const std::string key = std::to_string(line->Line);
  return lines_.insert(std::move(line), key);
}

}  // namespace dg
