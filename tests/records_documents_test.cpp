// Invoices, tickets and orders with their lines, shop jobs, and the files of units.
#include <gtest/gtest.h>
#include <string>

#include "engine/codec.h"
#include "engine/logical_file.h"
#include "engine/state.h"
#include "records/clock.h"
#include "records/customers.h"
#include "records/floor_plan.h"
#include "records/invoice_history.h"
#include "records/invoice_history_detail.h"
#include "records/parts.h"
#include "records/shop.h"
#include "records/units.h"
#include "tests/support/engine_store.h"
#include "tests/support/program_run.h"
#include "tools/sample/record_writer.h"

namespace dg {
namespace {

using sample::RecordWriter;

RecordWriter header(std::int32_t type) {
  RecordWriter record(200);
  record.integer(1, 'J', type);
  return record;
}

clsInvoiceHistory unpacked(const RecordWriter& record) {
  clsInvoiceHistory result;
  result.Unpack(record.bytes());
  return result;
}

TEST(InvoiceRecords, TheTypeChoosesTheLayout) {
  const auto with = [](std::int32_t type) {
    return unpacked(header(type)
                        .integer(3, 'D', 0x010203)
                        .integer(54, 'B', 11)
                        .integer(157, 'B', 22)
                        .integer(145, 'B', 33));
  };
  for (const std::int32_t type : {1, 2, 3, 13, 17, 19, 99}) {
    EXPECT_EQ(with(type).Account, 0x010203) << type;
    EXPECT_EQ(with(type).Terminal, 11) << type;
    EXPECT_EQ(with(type).IsOrderLayout, 0) << type;
  }
  for (const std::int32_t type : {80, 81}) {
    EXPECT_EQ(with(type).Account, 0x01020300) << type;
    EXPECT_EQ(with(type).Terminal, 22) << type;
    EXPECT_EQ(with(type).IsOrderLayout, -1) << type;
  }
  for (const std::int32_t type : {0, 4, 50, -1}) {
    EXPECT_EQ(with(type).Account, 0) << type;
    EXPECT_EQ(with(type).Record_Status, type);
    EXPECT_EQ(with(type).Department, 33) << "common to all";
  }
}

TEST(InvoiceRecords, ATypeWithoutALayoutKeepsWhatTheLastOneLeft) {
  clsInvoiceHistory read;
  read.Unpack(header(80).integer(3, 'L', 500).raw(99, 1, "S").bytes());
  read.Unpack(header(50).integer(3, 'L', 600).integer(123, 'B', 13).bytes());
  EXPECT_EQ(read.IsOrderLayout, -1);
  EXPECT_EQ(read.Account, 500);
  EXPECT_EQ(read.Status, "S");
  EXPECT_EQ(read.Transaction_Type, 13) << "an order's is not cut to its last digit";
  read.Unpack(header(1).integer(3, 'D', 700).integer(123, 'B', 13).bytes());
  EXPECT_EQ(read.Account, 700);
  EXPECT_EQ(read.Transaction_Type, 3);
  EXPECT_EQ(read.Status, "S") << "no field of a sale";
}

TEST(InvoiceRecords, TheShipToIsTheAccountWhenThereIsNone) {
  const auto shipTo = [](std::int32_t stored) {
    return unpacked(header(1).integer(3, 'D', 900).integer(141, 'K', stored)).ShipTo;
  };
  EXPECT_EQ(shipTo(-1), 900);
  EXPECT_EQ(shipTo(0), 0);
  EXPECT_EQ(shipTo(12), 12);
  EXPECT_EQ(shipTo(-2), 0xFFFFFE) << "a large account, not a negative one";
}

TEST(InvoiceRecords, TheWidthOfAFieldGoesByTheRecordBefore) {
  const RecordWriter second = header(2).integer(151, 'L', 0x01020304);
  clsInvoiceHistory read;
  read.Unpack(second.bytes());
  EXPECT_EQ(read.Field151, 0x0102);
  EXPECT_EQ(read.Field151Long, 0);
  read.Unpack(second.bytes());
  EXPECT_EQ(read.Field151Long, 0x01020304);
  read.Unpack(header(1).integer(151, 'L', 0x0A0B0C0D).bytes());
  EXPECT_EQ(read.Field151Long, 0x0A0B0C0D);
  EXPECT_EQ(read.Field151, 0x0102);
}

TEST(InvoiceRecords, SalesOfPositiveAmountAreTypeOneOrTwo) {
  struct Case {
    std::int32_t layout;
    std::int32_t stored;
    std::int32_t subTotal;
    std::int32_t type;
    std::int16_t saleFlag;
  };
  for (const Case& test : {Case{1, 13, 500, 1, 0},
                           {1, 13, 0, 3, 0},
                           {1, 13, -500, 3, 0},
                           {1, 24, 500, 2, -1},
                           {1, 20, 500, 0, 0},
                           {1, 21, 0, 1, -1},
                           {80, 24, 500, 24, 0},
                           {80, 4, 1, 2, 0}}) {
    const auto read = unpacked(
        header(test.layout).integer(123, 'B', test.stored).integer(125, 'L', test.subTotal));
    EXPECT_EQ(read.Transaction_Type, test.type) << test.stored << " of " << test.subTotal;
    EXPECT_EQ(read.SaleFlag, test.saleFlag) << test.stored;
  }
}

TEST(InvoiceRecords, FieldsOfAnOrderHaveTheirOddPlaces) {
  const Date day = Date::fromText("2/3/26");
  const auto read = unpacked(header(80)
                                 .integer(100, 'B', 7)
                                 .integer(124, 'B', 8)
                                 .bit(116, 'B', 6)
                                 .integer(117, 'C', 100)
                                 .integer(97, 'C', 200)
                                 .date(25, 'J', day)
                                 .integer(122, 'B', 5)
                                 .integer(14, 'D', 12'345));
  EXPECT_EQ(read.Delivery_Code, 8) << "the common part comes last";
  EXPECT_EQ(read.Rental, -1);
  EXPECT_EQ(read.WarrVend, (std::array<std::int32_t, 2>{100, 200}));
  EXPECT_EQ(read.CallDates[2], day);
  EXPECT_EQ(read.CallStatus[2], 5);
  EXPECT_EQ(read.Meter, Currency::fromScaled(12'345, 10));
}

TEST(InvoiceRecords, WritingPutsThisTerminalIntoTheRecord) {
  ProgramRun run;
  run.openEngine();
  clsInvoiceHistory read =
      unpacked(header(1).integer(54, 'B', 99).bit(63, 'C', 9).bit(116, 'B', 2));
  EXPECT_EQ(read.WarrantyUpdated, 1);
  EXPECT_EQ(read.Drop_Ship, 1);
  std::string record = header(1).integer(116, 'B', 0xFF).bytes();
  read.Pack(record);
  EXPECT_EQ(Unpack('B', record, 54), 12);
  EXPECT_EQ(Unpack('B', record, 157), 0) << "the place of an order's terminal";
  EXPECT_EQ(Unpack('C', record, 63), 1 << 9);
  EXPECT_EQ(Unpack('B', record, 116), 0xCD) << "four bits are members, the others stay";

  const struct { std::int32_t type, sales, order; } kCases[] = {{80, 0, 12}, {50, 0, 0}};
  for (const auto& each : kCases) {
    record = header(each.type).bytes();
    unpacked(header(each.type)).Pack(record);
    EXPECT_EQ(Unpack('B', record, 54), each.sales) << each.type;
    EXPECT_EQ(Unpack('B', record, 157), each.order) << each.type;
  }
}

clsInvoiceHistoryDetail line(const RecordWriter& record) {
  clsInvoiceHistoryDetail result;
  result.Unpack(record.bytes());
  return result;
}

RecordWriter remark(std::string_view text) {
  RecordWriter record(60);
  record.packed(9, 2, "REM").packed(11, 24, text, " ,-.");
  return record;
}

TEST(InvoiceLineRecords, APartHasItsNumberWithAndWithoutDashes) {
  MaskTable = kDefaultMaskTable;
  const auto read = line(RecordWriter(60)
                             .packed(9, 2, "K7")
                             .packed(11, 12, "AB/CDE")
                             .packed(23, 2, "3  ")
                             .packed(25, 14, "5-GAL CAN", " ,-.")
                             .integer(39, 'J', -3)
                             .integer(41, 'D', 1'999)
                             .integer(51, 'C', 0x8001));
  EXPECT_EQ(read.Part_Number, "AB/CDE            ");
  EXPECT_EQ(read.Part_w_Dash.substr(0, 7), "AB--CDE") << "the slash's code is the dash's now";
  EXPECT_EQ(read.Description, "5-GAL CAN            ");
  EXPECT_EQ(read.Quantity, Currency(-3));
  EXPECT_EQ(read.Net_Each, Currency::fromScaled(1'999, 100));
  EXPECT_EQ(read.Flag51Bit15, 1);
  EXPECT_EQ(read.Flag51Bit14, 0);
  EXPECT_EQ(read.Flag51Bit0, 1);
  EXPECT_EQ(MaskTable.substr(0, 4), " ,-.") << "stays in force";
  MaskTable = kDefaultMaskTable;
}

TEST(InvoiceLineRecords, ARemarksTextSaysWhatElseItHolds) {
  const auto serial =
      line(remark("SN-").packed(35, 2, "042").packed(37, 12, "SERIAL9").integer(49, 'J', 2));
  EXPECT_EQ(serial.snLine, 42);
  EXPECT_EQ(serial.snPartNumber.substr(0, 7), "SERIAL9");
  EXPECT_EQ(serial.snQtyOrdered, 2);
  EXPECT_EQ(serial.Description, serial.Comment);
  EXPECT_EQ(serial.Comment.substr(0, 3), "SN-");
  EXPECT_EQ(serial.Part_Number, "");
  EXPECT_EQ(serial.Part_w_Dash, "");

  const Date day = Date::fromText("7/8/26");
  const auto backOrder = line(remark("B.O. INV 77").integer(35, 'C', 600).date(37, 'J', day));
  EXPECT_EQ(backOrder.boRecNumber, 600);
  EXPECT_EQ(backOrder.boDate, day);
  EXPECT_EQ(backOrder.snQtyOrdered, 0);

  const auto unit = line(remark("...UNIT NUMBER... 5").integer(48, 'L', 123'456));
  EXPECT_EQ(unit.UnitNet, Currency::fromScaled(123'456, 100));
  MaskTable = kDefaultMaskTable;
}

TEST(InvoiceLineRecords, WhatOnlyARemarkHoldsIsClearedForTheNextLine) {
  clsInvoiceHistoryDetail read;
  read.Unpack(
      remark("B.O. INV").integer(35, 'C', 600).date(37, 'J', kEmptyDate.plusDays(9)).bytes());
  read.Unpack(remark("SN-").packed(35, 2, "042").bytes());
  EXPECT_EQ(read.boRecNumber, 0);
  EXPECT_EQ(read.boDate, kDayZero);
  EXPECT_EQ(read.snLine, 42);
  read.Unpack(remark("THANK YOU").integer(39, 'J', 7).integer(41, 'D', 500).bytes());
  EXPECT_EQ(read.snLine, 0);
  EXPECT_EQ(read.Description.substr(0, 9), "THANK YOU");
  EXPECT_EQ(read.Quantity, Currency(7)) << "read on a remark as well";
  EXPECT_EQ(read.Net_Each, Currency(5));
  MaskTable = kDefaultMaskTable;
}

TEST(ShopRecords, TheTypeIsMappedByTheSubTotalOfTheJobBefore) {
  const auto job = [](std::int32_t type, std::int32_t subTotal) {
    return RecordWriter(160).integer(123, 'B', type).integer(125, 'L', subTotal).bytes();
  };
  clsShop read;
  read.Unpack(job(13, -100));
  EXPECT_EQ(read.Transaction_Type, 3) << "a new instance maps nothing";
  read.Unpack(job(13, 100));
  EXPECT_EQ(read.Transaction_Type, 1);
  read.Unpack(job(4, -100));
  EXPECT_EQ(read.Transaction_Type, 4);
  read.Unpack(job(4, 0));
  EXPECT_EQ(read.Transaction_Type, 2);
  read.Unpack(job(255, 0));
  EXPECT_EQ(read.Transaction_Type, 5);
}

TEST(ShopRecords, TheShipToFallsBackToTheAccount) {
  const auto shipTo = [](std::int32_t stored) {
    clsShop read;
    read.Unpack(RecordWriter(160)
                    .integer(3, 'L', 900)
                    .integer(7, 'D', 55)
                    .integer(141, 'K', stored)
                    .bytes());
    return read.ShipTo;
  };
  EXPECT_EQ(shipTo(0), 900);
  EXPECT_EQ(shipTo(-1), -1);
  EXPECT_EQ(shipTo(-2), 0xFFFFFE);
  EXPECT_EQ(shipTo(44), 44);

  clsShop cut;
  cut.Unpack(RecordWriter(142).integer(3, 'L', 900).bytes());
  EXPECT_EQ(cut.ShipTo, 900) << "the account also where the field is missing";
  cut.Unpack(RecordWriter(142).integer(3, 'L', 900).integer(7, 'D', 55).bytes());
  EXPECT_EQ(cut.ShipTo, 55);
}

TEST(ShopRecords, TwoMembersShareAByte) {
  clsShop read;
  read.Unpack(RecordWriter(160).integer(97, 'C', 0x0305).integer(116, 'B', 0xC0).bytes());
  EXPECT_EQ(read.LastRequest, 3);
  EXPECT_EQ(read.WarrVend[1], 0x0305);
  EXPECT_EQ(read.Rental, 1);
  EXPECT_EQ(read.Shop, 1);
  read.Unpack(RecordWriter(96).bytes());
  EXPECT_EQ(read.WarrVend[1], 0) << "arrays are new with every record";
  EXPECT_EQ(read.LastRequest, 3) << "other members are not";
}

/// Places, widths, signs and scales of which a neighbour's would look as likely.
TEST(RecordLayouts, FieldsAreReadFromTheirOwnBytes) {
  clsShop job;
  job.Unpack(RecordWriter(160).integer(14, 'D', 0xFFFFFF).integer(129, 'J', -5).bytes());
  EXPECT_EQ(job.Meter, Currency::fromScaled(0xFFFFFF, 10));
  EXPECT_EQ(job.Disc_Percentage, -5);

  clsCustomers customer;
  customer.Unpack(RecordWriter(320).integer(161, 'L', 6'000).integer(165, 'L', 9'000).bytes());
  EXPECT_EQ(customer.Statement_60_days, Currency(60));
  EXPECT_EQ(customer.Statement_90_days, Currency(90));

  clsParts part;
  part.Unpack(RecordWriter(320).integer(46, 'K', 12'345).integer(36, 'K', -15).bytes());
  EXPECT_EQ(part.Level_1_Price, Currency::fromScaled(12'345, 100));
  EXPECT_EQ(part.Quantity_On_Hand, Currency::fromScaled(-15, 10));

  const DirectoryEntry entry =
      DirectoryEntry::decode(test::directoryEntry("PARTL", 0x010002, 256, 'L', 9));
  EXPECT_EQ(entry.Position, 0x010002) << "three bytes";
}

TEST(FloorPlanRecords, TextsBehindTheModelHaveDashes) {
  MaskTable = kDefaultMaskTable;
  clsFloorPlan read;
  read.Unpack(RecordWriter(256)
                  .packed(5, 12, "M/1")
                  .packed(17, 12, "S-1", " ,-.")
                  .packed(47, 4, "P/2")
                  .bytes());
  EXPECT_EQ(read.Part_Number.substr(0, 3), "M/1");
  EXPECT_EQ(read.Serial_Number.substr(0, 3), "S-1");
  EXPECT_EQ(read.Payment_Reference.substr(0, 3), "P-2");
  EXPECT_EQ(MaskTable.substr(0, 4), " ,-.") << "stays in force";
  MaskTable = kDefaultMaskTable;
}

TEST(FloorPlanRecords, ARemarkKeepsPartNumberAndText) {
  clsFloorPlanExtent read;
  read.Unpack(RecordWriter(32)
                  .packed(3, 2, "REM")
                  .packed(5, 24, "SEE THE DEALER AGREEMENT")
                  .integer(29, 'D', 9)
                  .bytes());
  EXPECT_EQ(read.LongText.substr(0, 24), "SEE THE DEALER AGREEMENT");
  EXPECT_EQ(read.PartNumber, "SEE THE DEALER AGR");
  EXPECT_EQ(read.ExtentNext, 9);
}

TEST(UnitRecords, TheLastFieldIsReadFromItsWholeWidthOnly) {
  RecordWriter record(512);
  record.integer(509, 'L', 44).raw(106, 6, "LOT 12").integer(112, 'L', 0x41000000);
  clsUnits read;
  read.Unpack(record.bytes());
  EXPECT_EQ(read.HistoryChain, 44);
  EXPECT_EQ(read.Location_of_Unit, "LOT 12A") << "its last byte is the next field's first";
  read.Unpack(record.integer(509, 'L', 55).bytes().substr(0, 511));
  EXPECT_EQ(read.HistoryChain, 44);
  EXPECT_EQ(read.SubLedgerChain, 0);
}

TEST(ClockRecords, TheKindChoosesTheLayout) {
  RecordWriter record(40);
  record.integer(3, 'C', 5).integer(7, 'C', 830).raw(13, 1, "I").integer(26, 'L', 77);
  clsClock read;
  read.Unpack(record.integer(1, 'J', 1).bytes());
  EXPECT_EQ(read.enteredTime, 830);
  EXPECT_EQ(read.InOut, "I");
  EXPECT_EQ(read.Text11, "");
  read.Unpack(record.integer(1, 'J', 2).integer(3, 'C', 6).packed(11, 12, "LUNCH").bytes());
  EXPECT_EQ(read.Field3, 6);
  EXPECT_EQ(read.Text11.substr(0, 5), "LUNCH");
  EXPECT_EQ(read.InOut, "I") << "no field of this kind";
  read.Unpack(record.integer(1, 'J', 3).integer(3, 'C', 9).bytes());
  EXPECT_EQ(read.Kind, 3);
  EXPECT_EQ(read.Field3, 6);
}

}  // namespace
}  // namespace dg
