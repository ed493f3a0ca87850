// Invoices, tickets and orders with their lines, shop jobs, and the files of units.
#include <gtest/gtest.h>
#include <string>

#include "engine/codec.h"
#include "engine/state.h"
#include "records/invoice_history.h"
#include "records/invoice_history_detail.h"
#include "records/shop.h"
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

}  // namespace
}  // namespace dg
