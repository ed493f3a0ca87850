#include <string>
#include <string_view>
#include <vector>

#include "shell/splash.h"
#include "tests/support/paged_records.h"
#include "tests/support/people.h"
#include "tests/support/view_run.h"
#include "views/operational/open_sales.h"

namespace dg::test {
namespace {

using sample::integerKey;

constexpr int kBlock = 512;
constexpr std::int32_t kToday = 112426;  ///< digits of 11/24/26, as page 1 holds its date

/// A sale's header on page 1.
RecordWriter sale(std::int32_t account, std::int32_t ticket, int subTotal, int type = 1) {
  RecordWriter record(kPageLength);
  record.integer(1, 'J', type)
      .integer(3, 'D', account)
      .integer(106, 'L', ticket)
      .integer(125, 'L', subTotal)
      .integer(141, 'K', 0);
  return record;
}

/// A header of the other layout, which holds no ticket number.
RecordWriter order(std::int32_t account, int subTotal, int type = 80) {
  RecordWriter record(kPageLength);
  record.integer(1, 'J', type).integer(3, 'L', account).integer(125, 'L', subTotal);
  return record;
}

class OpenSalesTest : public ViewTest {
 protected:
  std::int32_t addRecord(const RecordWriter& header, const PageFields& fields) {
    return run.builder.records("INVOL").add(pageRecord(fields, header.bytes()));
  }
  std::int32_t addPage(const PageFields& fields) {
    return addRecord(RecordWriter(kPageLength), fields);
  }
  void addTicket(std::int32_t ticket, std::int32_t record) {
    run.builder.index("TICKI").add(integerKey('L', ticket, 4), record);
  }
  /// A ticket of one page without lines.
  void addTicket(std::int32_t ticket, const RecordWriter& header, std::int32_t date = kToday) {
    addTicket(ticket, addRecord(header, {.link = date}));
  }
  /// Enters a record in the saved invoices' table: block, group 0 to 3, slot 0 to 30.
  void save(int block, int group, int slot, std::int32_t record) {
    RecordWriter bytes(run.builder.controlFile().block(block));
    bytes.integer(group * 128 + 5 + slot * 4, 'L', record);
    run.builder.controlFile().setBlock(block, bytes.bytes());
  }
};

TEST_F(OpenSalesTest, TicketsStandInTheOrderOfTheirIndex) {
  addCustomer(run.builder, 8'400'001, "O-BRIEN FARMS");
  RecordWriter first = sale(8'400'001, 55, 1'234'567, 19);
  first.integer(113, 'B', 200).packed(117, 6, "PO 12/4");
  addTicket(300, first, 90'126);
  addTicket(20, sale(5, 20, -50));
  const frmOpenSales& view = run.load<frmOpenSales>();
  EXPECT_THAT(view.grdTickets.rows(),
              ElementsAre(ElementsAre("P-Ticket", "20", "11/24/26", "5", "", "0", "0", "", "-$.50",
                                      "21513"),
                          ElementsAre("P-Ticket", "55", "9/01/26", "8400001", "O/BRIEN FARMS",
                                      "200", "0", "PO 12/4", "$12,345.67", "21429")));
  EXPECT_EQ(view.grdTickets.Bookmark(), 0);
  EXPECT_EQ(view.grdSaved.Rows(), 0);
  EXPECT_EQ(view.lblPTtot[0]->caption(), "Total      $12,345.17");
  EXPECT_EQ(view.lblPTtot[1]->caption(), "Total      $.00");
  EXPECT_EQ(run.recap(2), "$12,345.17");
  EXPECT_EQ(splash().lblProgress.caption(), "Loading Open Sales Orders...");
  EXPECT_THAT(run.logged, IsEmpty());
}

TEST_F(OpenSalesTest, HeaderAndDateComeFromPageOneAndItemsFromAllPages) {
  const Cells lines(5, pricedLine("AB", "1", 10, 1));
  RecordWriter wrong = sale(99, 99, 999);
  // Named: page 3, of a header of its own that counts for nothing; then 2, then 1.
  addRecord(wrong, {.page = 3, .link = -3, .lines = Cells(2, lines[0])});
  addRecord(sale(7, 41, 125), {.page = 1, .link = 123'199, .lines = Cells(4, lines[0])});
  addPage({.page = 2, .link = 2, .lines = lines});
  addTicket(41, 1);
  const frmOpenSales& view = run.load<frmOpenSales>();
  EXPECT_THAT(view.grdTickets.rows(), ElementsAre(ElementsAre("P-Ticket", "41", "12/31/99", "7", "",
                                                              "0", "11", "", "$1.25", "11688")));
  EXPECT_EQ(run.recap(2), "$1.25");
}

TEST_F(OpenSalesTest, APageNumberBelowTwoIsWhereAnOrderEnds) {
  addTicket(1, addRecord(sale(7, 1, 100), {.page = 0, .link = kToday, .lineCount = 255}));
  const frmOpenSales& view = run.load<frmOpenSales>();
  EXPECT_THAT(column(view.grdTickets, "Items"), ElementsAre("255"));
}

TEST_F(OpenSalesTest, WhatALayoutDoesNotHoldStaysFromTheOrderBefore) {
  RecordWriter first = sale(1, 1'111, 100);
  first.packed(117, 6, "FIRST");
  addTicket(10, first);
  RecordWriter second = order(2, 200);
  second.packed(87, 6, "SECOND");
  addTicket(20, second);
  addTicket(30, sale(3, 3'333, 300));
  // No layout at all: only what all records have in common is read.
  RecordWriter neither = sale(4, 4'444, 400, 50);
  neither.integer(113, 'B', 4);
  addTicket(40, neither);
  save(301, 0, 0, addRecord(order(5, 500, 81), {.link = kToday}));
  const frmOpenSales& view = run.load<frmOpenSales>();
  EXPECT_THAT(column(view.grdTickets, "Ticket No."), ElementsAre("1111", "1111", "3333", "3333"));
  EXPECT_THAT(column(view.grdTickets, "Account"), ElementsAre("1", "2", "3", "3"));
  EXPECT_THAT(column(view.grdTickets, "PO Number"), ElementsAre("FIRST", "SECOND", "", ""));
  EXPECT_THAT(column(view.grdTickets, "CM"), ElementsAre("0", "0", "0", "4"));
  EXPECT_THAT(column(view.grdSaved, "Ticket No."), ElementsAre("3333"))
      << "the tickets' instance serves the saved invoices too";
  EXPECT_EQ(run.recap(2), "$15.00");
}

TEST_F(OpenSalesTest, EveryUsedSlotIsASavedInvoice) {
  for (int i = 1; i <= 4; ++i)
    addRecord(sale(i, i, i * 100), {.link = kToday});
  save(301, 0, 0, 4);
  save(325, 3, 30, 1);
  save(310, 1, 30, 2);
  save(310, 1, 29, 3);
  // Four bytes before each group are no slots, nor are blocks beside the table; those from 701 on
  // would be another range.
  RecordWriter block(run.builder.controlFile().block(310));
  for (const int position : {1, 129, 257, 385})
    block.integer(position, 'L', 4'711);
  run.builder.controlFile().setBlock(310, block.bytes());
  save(300, 3, 30, 4'711);
  save(326, 0, 0, 4'711);
  const frmOpenSales& view = run.load<frmOpenSales>();
  EXPECT_THAT(column(view.grdSaved, "Recno"), ElementsAre("4", "3", "2", "1"));
  EXPECT_THAT(column(view.grdSaved, "Type"), testing::Each("Saved Inv"));
  EXPECT_EQ(view.lblPTtot[1]->caption(), "Total      $10.00");
  EXPECT_EQ(run.recap(2), "$10.00");
  EXPECT_THAT(run.logged, IsEmpty());
}

TEST_F(OpenSalesTest, ADateOfZeroEndsTheLoad) {
  addTicket(1, sale(7, 1, 100));
  addTicket(2, sale(8, 2, 200), 0);
  addTicket(3, sale(9, 3, 300));
  save(301, 0, 0, 1);
  const frmOpenSales& view = run.load<frmOpenSales>();
  EXPECT_THAT(
      view.grdTickets.rows(),
      ElementsAre(ElementsAre("P-Ticket", "1", "11/24/26", "7", "", "0", "0", "", "$1.00", "21513"),
                  ElementsAre("P-Ticket", "2", "//", "8", "", "0", "0", "", "$2.00", "")));
  EXPECT_EQ(view.grdSaved.Rows(), 0);
  EXPECT_EQ(run.recap(2), "! Data Error !");
  EXPECT_THAT(
      run.logged,
      ElementsAre("*Error in frmOpenSales GetPTSData routine error # :  13  Type mismatch"));
}

TEST_F(OpenSalesTest, BrokenChainsEndTheLoad) {
  const struct {
    const char* what;
    PageFields page;
    const char* error;
  } cases[] = {
      {"loop", {.page = 2, .link = 1}, "6  Overflow"},
      {"no record",
       {.page = 2, .link = 0},
       "81  Illegal Record Number for File: INVOL and Record:  0"},
      {"beyond the file",
       {.page = 9, .link = -400'000},
       "81  Illegal Record Number for File: INVOL and Record:  400000"},
  };
  for (const auto& broken : cases) {
    SCOPED_TRACE(broken.what);
    ViewRun other;
    other.builder.records("INVOL").add(pageRecord(broken.page));
    other.builder.index("TICKI").add(integerKey('L', 5, 4), 1);
    other.load<frmOpenSales>();
    EXPECT_EQ(other.recap(2), "! Data Error !");
    EXPECT_THAT(other.logged,
                ElementsAre(std::string("*Error in frmOpenSales GetPTSData routine error # :  ") +
                            broken.error));
  }
}

TEST_F(OpenSalesTest, ASlotOfANegativeRecordEndsTheLoad) {
  addRecord(sale(7, 1, 100), {.link = kToday});
  save(301, 0, 0, 1);
  save(301, 0, 1, -1);
  const frmOpenSales& view = run.load<frmOpenSales>();
  EXPECT_EQ(view.grdSaved.Rows(), 1);
  EXPECT_EQ(run.recap(2), "! Data Error !");
}

TEST_F(OpenSalesTest, AvailableCreditIsRoundedToTheEvenNeighbour) {
  const struct {
    int limit, balance, due;  // balances in hundredths
    const char* shown;
  } cases[] = {{100, 50, 0, "100.00"},
               {101, 25, 25, "100.00"},
               {101, 51, 0, "100.00"},
               {101, 49, 0, "101.00"},
               {0, 5, 200'045, "-2000.00"},
               {0, -150, 0, "2.00"},
               {2'147'483'647, -150, 0, "2147483648.00"}};
  std::int32_t account = 0;
  for (const auto& entry : cases) {
    ++account;
    RecordWriter customer = customerRecord(account, "A");
    customer.integer(103, 'L', entry.limit)
        .integer(149, 'L', entry.balance)
        .integer(169, 'L', entry.due);
    addCustomer(run.builder, account, customer);
    addTicket(account, sale(account, account, 0));
  }
  frmOpenSales& view = run.load<frmOpenSales>();
  for (int row = 0; row < account; ++row) {
    const ShownWindow window = run.click(view.grdTickets, row);
    EXPECT_EQ(window.labels.at("lblDtl(0)"), cases[row].shown) << row;
    EXPECT_TRUE(window.caption.ends_with("         Sales type : Charge"));
  }
}

TEST_F(OpenSalesTest, TheShipToAccountHasItsRules) {
  // None, the sale's own, another, one that a signed field would take for -2, and an unknown one.
  const std::int32_t far = 16'777'214;
  for (const std::int32_t account : {0, 501, 502, far})
    addCustomer(run.builder, account, "CUSTOMER");
  addTicket(1, sale(501, 1, 0).integer(141, 'K', 0));
  addTicket(2, sale(501, 2, 0).integer(141, 'K', -1));
  addTicket(3, sale(501, 3, 0).integer(141, 'K', 502));
  addTicket(4, sale(501, 4, 0).integer(141, 'D', far));
  addTicket(5, sale(501, 5, 0).integer(141, 'K', 503));
  save(301, 0, 0, addRecord(order(501, 0).integer(7, 'D', 502), {.link = kToday}));
  frmOpenSales& view = run.load<frmOpenSales>();
  Cells accounts;
  for (int row = 0; row < 5; ++row) {
    const std::string text = run.click(view.grdTickets, row).labels.at("lblShipto");
    accounts.push_back(text.substr(0, text.find('\r')));
  }
  EXPECT_THAT(accounts, ElementsAre("", "501", "502", "16777214", ""));
  EXPECT_TRUE(run.click(view.grdSaved).labels.at("lblShipto").starts_with("502\r\n"));
}

TEST_F(OpenSalesTest, AnUnknownCustomerLeavesTheWindowWithoutOne) {
  addTicket(1, sale(501, 1, 0).integer(141, 'K', -1));
  const ShownWindow window = run.click(run.load<frmOpenSales>().grdTickets);
  EXPECT_EQ(window.caption, "Pick-Ticket # 1         Sales type : Charge");
  EXPECT_EQ(window.labels.at("lblCust"), "");
  EXPECT_EQ(window.labels.at("lblShipto"), "");
  EXPECT_EQ(window.labels.at("lblDtl(0)"), "");
  EXPECT_EQ(window.labels.at("lblDtl(1)"), "11/24/26");
}

TEST_F(OpenSalesTest, ASavedInvoiceIsOpenedByItsRecord) {
  addRecord(sale(1, 0, 0), {.link = kToday, .lines = {pricedLine("AB", "FIRST", 10, 1)}});
  save(301, 0, 0,
       addRecord(sale(1, 0, 0), {.link = kToday, .lines = {pricedLine("AB", "SECOND", 10, 1)}}));
  const ShownWindow window = run.click(run.load<frmOpenSales>().grdSaved);
  EXPECT_EQ(window.caption, "Saved Invoice            Sales type : Charge");
  EXPECT_EQ(window.grids.at("grdPTS").at(0).at(1), "SECOND");
}

TEST_F(OpenSalesTest, ATicketThatTheIndexDoesNotHoldOpensNoWindow) {
  // The row shows the ticket number of its record, which is not the index's.
  addTicket(10, sale(1, 11, 0));
  addTicket(20, sale(1, 20, 0));
  frmOpenSales& view = run.load<frmOpenSales>();
  view.grdTickets.rowClick(0);
  EXPECT_THAT(run.windows, IsEmpty()) << "ticket 20 would be the next greater one";
  ASSERT_THAT(run.messages, SizeIs(1));
  EXPECT_THAT(run.messages[0].text, testing::StartsWith("Run-time error '91':"));
}

}  // namespace
}  // namespace dg::test
