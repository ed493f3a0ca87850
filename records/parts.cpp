#include "records/parts.h"

#include <algorithm>

#include "engine/business_basic.h"
#include "engine/state.h"
#include "engine/text_utilities.h"
#include "records/file_names.h"
#include "records/index_walk.h"
#include "records/read.h"

namespace dg {

namespace {

using Self = clsParts;

constexpr int kIllegalRecordNumber = 81;

/// The substitute is decoded over 142 bytes, not 14: a decoded text runs to the record's end, so
/// its mask is taken from far behind the field. The suite's own programs do the same. Nothing of it
/// is written back: the number is Sub_Part_Number's, and the rest belongs to other members.
constexpr int kSubPartReadWidth = 142;

/// Six one-character codes stand in one packed text from position 21 on.
constexpr int kCodesPosition = 21;
constexpr int kCodesReadWidth = 24;
constexpr int kCodesWidth = 4;

void writeCodes(const clsParts& part, std::string& record, TextField field) {
  std::string codes;
  for (const std::string* code : {&part.Comodity, &part.Unit_of_Measure, &part.Return_Flag,
                                  &part.Mfg_Popularity, &part.Dlr_Popularity, &part.Order_Code}) {
    codes += code->empty() ? ' ' : code->front();
  }
  putTextField(record, field.position, field.width, packText(codes), '\0');
}

constexpr std::int32_t kKindOneBit = 1 << 4;
constexpr std::int32_t kKindTwoBit = 1 << 5;

void readField89Kind(clsParts& part, const std::string& record, TextField field) {
  part.Field89Kind = 0;
  const std::int32_t flags = Unpack('B', record, field.position);
  if ((flags & kKindOneBit) != 0) part.Field89Kind = 1;
  if ((flags & kKindTwoBit) != 0) part.Field89Kind = 2;
}

void writeField89Kind(const clsParts& part, std::string& record, TextField field) {
  std::int32_t flags = Unpack('B', record, field.position) & ~(kKindOneBit | kKindTwoBit);
  if (part.Field89Kind == 1) flags |= kKindOneBit;
  if (part.Field89Kind == 2) flags |= kKindTwoBit;
  Pack('B', record, flags, field.position);
}

void blankTransactionCodes(clsParts& part) {
  std::replace(part.Last_Tran_Codes.begin(), part.Last_Tran_Codes.end(), '\0', ' ');
}

constexpr Field<clsParts> kFields[] = {
    integer(3, 'C', DG_MEMBER(Line)),
    packedText(5, 12, DG_MEMBER(Part_Number)),
    dashedText(5, 14, DG_MEMBER(Part_w_Dash)),
    packedText(19, 2, DG_MEMBER(Package_Code)),
    character(kCodesPosition, kCodesReadWidth, 0, DG_MEMBER(Comodity)),
    character(kCodesPosition, kCodesReadWidth, 1, DG_MEMBER(Unit_of_Measure)),
    character(kCodesPosition, kCodesReadWidth, 2, DG_MEMBER(Return_Flag)),
    character(kCodesPosition, kCodesReadWidth, 3, DG_MEMBER(Mfg_Popularity)),
    character(kCodesPosition, kCodesReadWidth, 4, DG_MEMBER(Dlr_Popularity)),
    character(kCodesPosition, kCodesReadWidth, 5, DG_MEMBER(Order_Code)),
    rule<clsParts>(kCodesPosition, kCodesWidth, nullptr, &writeCodes),
    integer(25, 'J', DG_MEMBER(Package_Quantity)),
    integer(27, 'C', DG_MEMBER(Matched_Set_Qty)),
    integer(29, 'C', DG_MEMBER(Manual_Minimum)),
    integer(33, 'C', DG_MEMBER(Maximum_Stock_Lvl)),
    rawText(35, 1, DG_MEMBER(Price_Code)),
    scaled(36, 'K', 10, DG_MEMBER(Quantity_On_Hand)),
    integer(39, 'C', DG_MEMBER(Quantity_On_Order)),
    integer(41, 'C', DG_MEMBER(Qty_Back_Ordered)),
    scaled(43, 'K', 100, DG_MEMBER(List_Price)),
    scaled(46, 'K', 100, DG_MEMBER(Level_1_Price)),
    scaled(49, 'K', 100, DG_MEMBER(Level_2_Price)),
    scaled(52, 'K', 100, DG_MEMBER(Level_3_Price)),
    scaled(55, 'K', 100, DG_MEMBER(Level_4_Price)),
    scaled(58, 'K', 100, DG_MEMBER(Level_5_Price)),
    // Readers without the class take it unsigned.
    scaled(part_record::kCost.position, 'K', 100, DG_MEMBER(Cost)),
    scaled(64, 'K', 100, DG_MEMBER(F_Freight_Resale)),
    scaled(67, 'K', 100, DG_MEMBER(F_Freight_Cost)),
    date(70, 'R', DG_MEMBER(Date_Last_Change)),
    date(73, 'R', DG_MEMBER(Date_Last_Demand)),
    integer(76, 'J', DG_MEMBER(MTD_Number_Sold)),
    integer(78, 'C', DG_MEMBER(MTD_Lost_Sales)),
    integer(80, 'J', DG_MEMBER(YTD_Number_Picks)),
    integer(82, 'J', DG_MEMBER(YTD_Number_Sold)),
    integer(84, 'C', DG_MEMBER(YTD_Picks_Lost)),
    integer(86, 'C', DG_MEMBER(YTD_Lost_Sales)),
    bit(88, 'B', 2, DG_MEMBER(Price_Lock_Factors)),
    bit(88, 'B', 3, DG_MEMBER(Order_In_Sets)),
    bit(88, 'B', 5, DG_MEMBER(Monthly_Max)),
    bit(88, 'B', 6, DG_MEMBER(Price_Lock_All)),
    bit(88, 'B', 7, DG_MEMBER(Seasonal)),
    bit(89, 'B', 1, DG_MEMBER(Label)),
    bit(89, 'B', 3, DG_MEMBER(Meter)),
    rule<clsParts>(89, 1, &readField89Kind, &writeField89Kind, DG_MEMBER(Field89Kind)),
    integer(90, 'C', DG_MEMBER(Serial_Numbers)),
    integer(92, 'B', DG_MEMBER(Weight)),
    integer(93, 'B', DG_MEMBER(Days_On_Order)),
    integer(94, 'B', DG_MEMBER(Days_Back_Ordered)),
    rawText(95, 3, DG_MEMBER(Location)),
    date(98, 'R', DG_MEMBER(Date_Stocked)),
    integer(101, 'J', DG_MEMBER(YTD_Demand_2_back)),
    integer(103, 'J', DG_MEMBER(YTD_Demand_1_back)),
    integer(105, 'J', DG_MEMBER(MTD_Demand_12_back)),
    integer(107, 'J', DG_MEMBER(MTD_Demand_11_back)),
    integer(109, 'J', DG_MEMBER(MTD_Demand_10_back)),
    integer(111, 'J', DG_MEMBER(MTD_Demand_9_back)),
    integer(113, 'J', DG_MEMBER(MTD_Demand_8_back)),
    integer(115, 'J', DG_MEMBER(MTD_Demand_7_back)),
    integer(117, 'J', DG_MEMBER(MTD_Demand_6_back)),
    integer(119, 'J', DG_MEMBER(MTD_Demand_5_back)),
    integer(121, 'J', DG_MEMBER(MTD_Demand_4_back)),
    integer(123, 'J', DG_MEMBER(MTD_Demand_3_back)),
    integer(125, 'J', DG_MEMBER(MTD_Demand_2_back)),
    integer(127, 'J', DG_MEMBER(MTD_Demand_1_back)),
    packedText(129, 10, DG_MEMBER(Sub_Part_Number)),
    readOnly(dashedText(129, kSubPartReadWidth, DG_MEMBER(Sub_Part_w_Dash))),
    rawText(141, 6, DG_MEMBER(Last_Tran_Codes)),
    step<&blankTransactionCodes>(),
    scaled(148, 'D', 10, DG_MEMBER(Quantity_Alloc)),
    integer(151, 'K', DG_MEMBER(Year_End_Quantity)),
    scaled(154, 'K', 100, DG_MEMBER(Year_End_Cost)),
    scaled(158, 'K', 100, DG_MEMBER(Average_Cost)),
    integer(161, 'C', DG_MEMBER(LayAway)),
    scaled(163, 'L', 100, DG_MEMBER(MTD_Sales)),
    scaled(167, 'L', 100, DG_MEMBER(MTD_Cost)),
    scaled(171, 'L', 100, DG_MEMBER(YTD_Sales)),
    scaled(175, 'L', 100, DG_MEMBER(YTD_Cost)),
    packedText(part_record::kDescription, DG_MEMBER(Description)),
    integer(193, 'J', DG_MEMBER(YTD_Demand_3_back)),
    integer(195, 'J', DG_MEMBER(MTD_Demand_36_back)),
    integer(197, 'J', DG_MEMBER(MTD_Demand_35_back)),
    integer(199, 'J', DG_MEMBER(MTD_Demand_34_back)),
    integer(201, 'J', DG_MEMBER(MTD_Demand_33_back)),
    integer(203, 'J', DG_MEMBER(MTD_Demand_32_back)),
    integer(205, 'J', DG_MEMBER(MTD_Demand_31_back)),
    integer(207, 'J', DG_MEMBER(MTD_Demand_30_back)),
    integer(209, 'J', DG_MEMBER(MTD_Demand_29_back)),
    integer(211, 'J', DG_MEMBER(MTD_Demand_28_back)),
    integer(213, 'J', DG_MEMBER(MTD_Demand_27_back)),
    integer(215, 'J', DG_MEMBER(MTD_Demand_26_back)),
    integer(217, 'J', DG_MEMBER(MTD_Demand_25_back)),
    integer(219, 'J', DG_MEMBER(MTD_Demand_24_back)),
    integer(221, 'J', DG_MEMBER(MTD_Demand_23_back)),
    integer(223, 'J', DG_MEMBER(MTD_Demand_22_back)),
    integer(225, 'J', DG_MEMBER(MTD_Demand_21_back)),
    integer(227, 'J', DG_MEMBER(MTD_Demand_20_back)),
    integer(229, 'J', DG_MEMBER(MTD_Demand_19_back)),
    integer(231, 'J', DG_MEMBER(MTD_Demand_18_back)),
    integer(233, 'J', DG_MEMBER(MTD_Demand_17_back)),
    integer(235, 'J', DG_MEMBER(MTD_Demand_16_back)),
    integer(237, 'J', DG_MEMBER(MTD_Demand_15_back)),
    integer(239, 'J', DG_MEMBER(MTD_Demand_14_back)),
    integer(241, 'J', DG_MEMBER(MTD_Demand_13_back)),
    integer(243, 'J', DG_MEMBER(Alt_Demand_12_back)),
    integer(245, 'J', DG_MEMBER(Alt_Demand_11_back)),
    integer(247, 'J', DG_MEMBER(Alt_Demand_10_back)),
    integer(249, 'J', DG_MEMBER(Alt_Demand_9_back)),
    integer(251, 'J', DG_MEMBER(Alt_Demand_8_back)),
    integer(253, 'J', DG_MEMBER(Alt_Demand_7_back)),
    integer(255, 'J', DG_MEMBER(Alt_Demand_6_back)),
    integer(257, 'J', DG_MEMBER(Alt_Demand_5_back)),
    integer(259, 'J', DG_MEMBER(Alt_Demand_4_back)),
    integer(261, 'J', DG_MEMBER(Alt_Demand_3_back)),
    integer(263, 'J', DG_MEMBER(Alt_Demand_2_back)),
    integer(265, 'J', DG_MEMBER(Alt_Demand_1_back)),
    integer(267, 'C', DG_MEMBER(Usage_Rate)),
    integer(269, 'C', DG_MEMBER(Order_Point)),
    integer(271, 'C', DG_MEMBER(Line_Point)),
    bit(273, 'B', 1, DG_MEMBER(Lock_Line_Point)),
    bit(273, 'B', 2, DG_MEMBER(Stockout_Updated)),
    date(274, 'J', DG_MEMBER(Date_Last_Stockout)),
    integer(276, 'B', DG_MEMBER(YTD_Stockout_Times)),
    date(277, 'J', DG_MEMBER(Date_Last_Recvd)),
    integer(279, 'C', DG_MEMBER(Econ_Order_Qty)),
    rawText(281, 1, DG_MEMBER(Order_Type_Switch)),
    integer(282, 'B', DG_MEMBER(MTD_Stockout_Days)),
    integer(283, 'C', DG_MEMBER(Last_Qty_Received)),
    rawText(285, 1, DG_MEMBER(Zone)),
    integer(286, 'D', DG_MEMBER(Spring_Order_Qty)),
    member(DG_MEMBER(RecordNumber)),
};

}  // namespace

std::span<const Field<clsParts>> clsParts::fields() {
  return kFields;
}

clsParts::clsParts() {
  if (!SharedEngine) return;
  parts_ = SharedEngine->LogicalOpen(files::kParts);
  extension_ = SharedEngine->LogicalOpen(files::kPartExtension);
}

void clsParts::Read(std::int32_t number, bool& lock) {
  if (!parts_) throw RunTimeError(kObjectNotSet);
  if (number < 1 || number > parts_->LastRecord) {
    throw RunTimeError(kIllegalRecordNumber, "", "Read - Illegal Record Number");
  }
  std::string record = sharedEngine().LreadFile(parts_, number, lock);
  record += sharedEngine().LreadFile(extension_, number, lock);
  Unpack(record);
  RecordNumber = number;
}

std::string GetPartDescription(const std::string& line, const std::string& part) {
  const std::string key = packText(line) + packText(trim(part));
  const std::int32_t found = findExact(files::kPartIndex, key);
  if (found == 0) return "Description Not Found";
  // The part's record number is looked up in the floor plan file, not in "PARTL". That is how this
  // description has always come about; all other readers of the index read "PARTL".
  clsParts record;
  record.Unpack(readRecord(files::kFloorPlan, found));
  return record.Description;
}

}  // namespace dg
