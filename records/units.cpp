#include "records/units.h"

namespace dg {

namespace {

namespace unit {
using Self = clsUnits;
constexpr Field<clsUnits> kFields[] = {
    integer(3, 'C', DG_MEMBER(Line)),
    packedText(5, 12, DG_MEMBER(Model_Number)),
    packedText(5, 14, DG_MEMBER(Model_Number_W_Dash)),
    rawText(20, 8, DG_MEMBER(Unit_Number)),
    packedText(28, 14, DG_MEMBER(Model_Description)),
    rawText(42, 15, DG_MEMBER(Make_or_Manufacturer)),
    packedText(57, 12, DG_MEMBER(Unit_Serial_Number)),
    rawText(69, 5, DG_MEMBER(Manufacturers_Identificati)),
    integer(74, 'C', DG_MEMBER(Model_Year)),
    rawText(76, 4, DG_MEMBER(Model_Series_Number)),
    rawText(80, 2, DG_MEMBER(Engine_Type)),
    rawText(82, 12, DG_MEMBER(Engine_ID_Number)),
    rawText(94, 2, DG_MEMBER(Drive_type_2wd_4wd)),
    rawText(96, 5, DG_MEMBER(Unit_Color)),
    integer(101, 'D', DG_MEMBER(Meter_Reading)),
    rawText(104, 1, DG_MEMBER(Unit_Status_A_R_S_U)),
    rawText(105, 1, DG_MEMBER(User_Defined_Unit_Type)),
    rawText(106, 7, DG_MEMBER(Location_of_Unit)),
    integer(112, 'L', DG_MEMBER(User_Defined_Numeric_1)),
    integer(116, 'L', DG_MEMBER(User_Defined_Numeric_2)),
    rawText(120, 12, DG_MEMBER(User_Defined_Alpha_1)),
    rawText(132, 12, DG_MEMBER(User_Defined_Alpha_2)),
    integer(144, 'D', DG_MEMBER(Sold_To_Customer_Number)),
    date(147, 'J', DG_MEMBER(Date_Received_In)),
    date(149, 'J', DG_MEMBER(Date_Sold)),
    integer(151, 'L', DG_MEMBER(Sold_Invoice_Number)),
    scaled(155, 'L', 100, DG_MEMBER(Dealers_List_Price)),
    scaled(159, 'L', 100, DG_MEMBER(Suggested_LIst_Price)),
    scaled(163, 'L', 100, DG_MEMBER(Amount_Sold_For)),
    date(167, 'J', DG_MEMBER(Factory_Warranty_Expiratio)),
    date(169, 'J', DG_MEMBER(Extended_Warranty_Expirati)),
    rawText(171, 2, DG_MEMBER(User_Defined_Warranty_Code)),
    scaled(173, 'L', 100, DG_MEMBER(Extended_Warranty_Cost)),
    packedText(177, 7, DG_MEMBER(Flooring_Number)),
    integer(184, 'L', DG_MEMBER(GL_Inventory_Account_No)),
    integer(188, 'L', DG_MEMBER(GL_Cost_Goods_Account_No)),
    integer(192, 'L', DG_MEMBER(GL_Over_Allow_Account_No)),
    integer(196, 'C', DG_MEMBER(Flooring_Line)),
    rawText(198, 8, DG_MEMBER(Unit_Number_Traded_Against)),
    integer(206, 'L', DG_MEMBER(Accounts_Payable_Vendor_No)),
    integer(210, 'B', DG_MEMBER(Selling_Salesman_Number)),
    rawText(211, 9, DG_MEMBER(FlooringInvoice)),
    rawText(220, 9, DG_MEMBER(FlooringPayment)),
    date(229, 'J', DG_MEMBER(FlooringDateDue)),
    date(231, 'J', DG_MEMBER(FlooringDatePaid)),
    integer(501, 'L', DG_MEMBER(NoteChain)),
    integer(unit_record::kLedgerChain, DG_MEMBER(SubLedgerChain)),
    integer(509, 'L', DG_MEMBER(HistoryChain)),
};
}  // namespace unit

namespace ledger {
using Self = clsUnitsLedger;
constexpr Field<clsUnitsLedger> kFields[] = {
    integer(3, 'C', DG_MEMBER(Line)),
    rawText(5, 8, DG_MEMBER(UnitNumber)),
    date(13, 'J', DG_MEMBER(Transaction_Date)),
    rawText(15, 2, DG_MEMBER(Journal_Type)),
    integer(17, 'C', DG_MEMBER(Journal_Number)),
    rawText(19, 30, DG_MEMBER(Transaction_Description)),
    integer(49, 'L', DG_MEMBER(Field49)),
    scaled(57, 'L', 100, DG_MEMBER(Amount)),
    integer(unit_ledger::kNext, DG_MEMBER(LedgerNext)),
};
}  // namespace ledger

namespace history {
using Self = clsUnitsHistory;
// A row of the format is a line.
// clang-format off
constexpr Field<clsUnitsHistory> kFields[] = {
    integer(3, 'C', DG_MEMBER(Line)),
    rawText(5, 8, DG_MEMBER(UnitNumber)),
    date(13, 'J', DG_MEMBER(DateServiced)),
    integer(15, 'L', DG_MEMBER(InvoiceNumber)),
    rawText(19, 144, DG_MEMBER(WorkPerformed)),
    integer(163, 'L', DG_MEMBER(Field163)),
    rawText(167, 1, DG_MEMBER(WarrantySwitch)),
    integer(168, 'L', DG_MEMBER(ShopRef)),
    scaled(172, 'L', 100, DG_MEMBER(Amount)),
    integer(253, 'L', DG_MEMBER(Field253)),
};
// clang-format on
}  // namespace history

namespace note {
using Self = clsUnitnotes;
constexpr Field<clsUnitnotes> kFields[] = {
    integer(1, 'C', DG_MEMBER(Line)),
    rawText(3, 8, DG_MEMBER(UnitNumber)),
    rawText(11, 12, DG_MEMBER(Field11)),
    integer(23, 'C', DG_MEMBER(NoteDate)),
    readOnly(date(23, 'J', DG_MEMBER(NoteDay))),
    rawText(25, 36, DG_MEMBER(Text)),
    scaled(61, 'L', 100, DG_MEMBER(Field61)),
    scaled(65, 'L', 100, DG_MEMBER(Field65)),
    integer(69, 'L', DG_MEMBER(Field69)),
    integer(81, 'L', DG_MEMBER(Field81)),
};
}  // namespace note

}  // namespace

std::span<const Field<clsUnits>> clsUnits::fields() {
  return unit::kFields;
}

std::span<const Field<clsUnitsLedger>> clsUnitsLedger::fields() {
  return ledger::kFields;
}

std::span<const Field<clsUnitsHistory>> clsUnitsHistory::fields() {
  return history::kFields;
}

std::span<const Field<clsUnitnotes>> clsUnitnotes::fields() {
  return note::kFields;
}

}  // namespace dg
