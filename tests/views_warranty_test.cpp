#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "shell/sort_grid.h"
#include "shell/splash.h"
#include "tests/support/paged_records.h"
#include "tests/support/people.h"
#include "tests/support/view_run.h"
#include "views/operational/warranty.h"

namespace dg::test {
namespace {

using sample::integerKey;

constexpr std::int32_t kBilled = 90126;  ///< digits of 9/01/26

/// A claim that is listed.
RecordWriter claim(std::int32_t reference, std::int32_t billed = kBilled) {
  RecordWriter record(kPageLength);
  record.integer(1, 'C', 1).integer(5, 'L', reference).integer(403, 'D', billed);
  return record;
}

class WarrantyTest : public testing::Test {
 protected:
  /// Adds a claim under a number of the index.
  void add(std::int32_t number, const RecordWriter& header, const PageFields& fields = {}) {
    run.builder.index("WARRI").add(integerKey('L', number, 4), addPage(fields, header));
  }
  std::int32_t addPage(const PageFields& fields,
                       const RecordWriter& header = RecordWriter(kPageLength)) {
    return run.builder.records("WARRL").add(pageRecord(fields, header.bytes()));
  }

  ViewRun run;
};

TEST_F(WarrantyTest, ARowShowsTheClaimAndItsTotals) {
  RecordWriter header = claim(4'000);
  header.integer(3, 'C', 65'000)
      .integer(409, 'L', 777)
      .packed(413, 20, "SMITH ADA")
      .packed(433, 10, "BRAND")
      .packed(443, 14, "CHAIN SAW")
      .integer(481, 'L', 9'999);
  // The lines of the claim's own record lie over texts that are not shown here.
  add(4'000, header, {.page = 2, .link = 2, .lines = {pricedLine("500", "", 19, 2'550)}});
  addPage({.lines = {pricedLine("AB", "1", -25, 10'000), pricedLine("550", "", 30, 123'456)}});
  const frmWarranty& view = run.load<frmWarranty>();
  EXPECT_THAT(view.grdWarr.rows(),
              ElementsAre(ElementsAre("4000", "9999", "777", "SMITH ADA", "BRAND - CHAIN SAW",
                                      "9/1/26", "65000", "$3503.68", "$25.50", "21429")));
  EXPECT_EQ(run.recap(6), "$3,529.18");
  EXPECT_EQ(view.grdWarr.Bookmark(), 0);
  EXPECT_EQ(splash().lblProgress.caption(), "Loading Billed Warranties...");
  EXPECT_THAT(run.logged, IsEmpty());
}

TEST_F(WarrantyTest, OnlyBilledClaimsThatAreNotSettledAreListed) {
  const Cells lines = {pricedLine("AB", "1", 10, 100)};
  const auto addClaim = [&](std::int32_t number, const RecordWriter& header) {
    add(number, header, {.lines = lines});
  };
  addClaim(0, claim(0));  // the walk begins behind it
  addClaim(1, claim(1));
  addClaim(2, claim(2).integer(1, 'C', 0));
  addClaim(3, claim(3).integer(1, 'C', 2));
  addClaim(4, claim(4).integer(1, 'C', 257));
  addClaim(5, claim(5, 0));
  addClaim(6, claim(6, 10'168));  // the empty date
  addClaim(7, claim(7, 10'169));
  addClaim(8, claim(8, 10'126));  // a New Year's day counts as none
  addClaim(9, claim(9).integer(401, 'C', 1));
  addClaim(10, claim(10).integer(401, 'C', 65'535));
  addClaim(11, claim(11, 123'199));
  const frmWarranty& view = run.load<frmWarranty>();
  EXPECT_THAT(column(view.grdWarr, "Shop Ref"), ElementsAre("1", "7", "11"));
  EXPECT_THAT(column(view.grdWarr, "ndate"), ElementsAre("21429", "367", "11688"));
  EXPECT_EQ(run.recap(6), "$3.00");
}

TEST_F(WarrantyTest, AClaimWithBrokenLinesShowsSoInItsRow) {
  add(1, claim(1).integer(481, 'L', 5), {.lines = {pricedLine("AB", "1", 10, 100)}});
  RecordWriter broken = claim(2);
  broken.integer(3, 'C', 8)
      .integer(409, 'L', 777)
      .packed(413, 20, "SMITH ADA")
      .packed(433, 10, "BRAND")
      .integer(481, 'L', 9'999);
  // Page 2 is missing: the lines of page 1 are summed before that shows.
  add(2, broken, {.page = 3, .link = 3});
  addPage({.lines = {pricedLine("AB", "1", 10, 1'000), pricedLine("500", "1", 10, 20'000)}});
  const frmWarranty& view = run.load<frmWarranty>();
  EXPECT_THAT(
      view.grdWarr.rows(),
      ElementsAre(ElementsAre("1", "5", "0", "", " -", "9/1/26", "0", "$1.00", "$.00", "21429"),
                  ElementsAre("2", "9999", "777", "Error in warranty detail", "", "9/1/26", "8", "",
                              "", "21429")));
  EXPECT_EQ(run.recap(6), "$211.00") << "with what the broken claim had summed";
  ASSERT_THAT(run.logged, SizeIs(1));
  EXPECT_THAT(run.logged[0], testing::HasSubstr(" : clsWarrDetail : BuildDetail81  "));
}

TEST_F(WarrantyTest, TheLinesAreThoseOfTheReferenceInTheRecord) {
  add(10, claim(20), {.lines = {pricedLine("AB", "1", 10, 100)}});
  add(20, claim(20), {.lines = {pricedLine("AB", "1", 10, 2'000)}});
  add(30, claim(25), {.lines = {pricedLine("AB", "1", 10, 30'000)}});
  const frmWarranty& view = run.load<frmWarranty>();
  EXPECT_THAT(column(view.grdWarr, "Shop Ref"), ElementsAre("20", "20", "25"));
  EXPECT_THAT(column(view.grdWarr, "Parts"), ElementsAre("$20.00", "$20.00", "$300.00"));
}

TEST_F(WarrantyTest, DigitsThatAreNoDateEndTheLoad) {
  add(1, claim(1));
  add(2, claim(2, 133'126).integer(481, 'L', 7).packed(413, 20, "SMITH ADA"));
  add(3, claim(3));
  const frmWarranty& view = run.load<frmWarranty>();
  // The date itself decodes to the empty one; it is the day number that fails.
  EXPECT_THAT(view.grdWarr.rows().at(1),
              ElementsAre("2", "7", "0", "SMITH ADA", " -", "1/1/68", "", "", "", ""));
  EXPECT_EQ(view.grdWarr.Rows(), 2);
  EXPECT_EQ(run.recap(6), "! Data Error !");
  EXPECT_THAT(run.logged,
              ElementsAre("*Error in frmWarranty.form load routine error # :  13  Type mismatch"));
}

TEST_F(WarrantyTest, AnEntryWithoutARecordEndsTheLoad) {
  add(1, claim(1));
  run.builder.index("WARRI").add(integerKey('L', 2, 4), 99);
  run.load<frmWarranty>();
  EXPECT_EQ(run.recap(6), "! Data Error !");
  EXPECT_THAT(run.logged,
              ElementsAre("*Error in frmWarranty.form load routine error # :  81  Illegal "
                          "Record Number for File: WARRL and Record:  99"));
}

TEST_F(WarrantyTest, TheDetailShowsTheClaim) {
  RecordWriter header = claim(4'000);
  header.integer(276, 'C', 614)
      .integer(278, 'L', 123)
      .packed(304, 20, "SOLD BY")
      .packed(324, 20, "SOMEBODY")
      .integer(409, 'L', 777)
      .packed(413, 20, "SMITH ADA")
      .packed(457, 12, "SN1")
      .packed(469, 12, "SN2");
  add(4'000, header,
      {.lines = {pricedLine("AB", "12345", 15, 2'550, 7, "BELT", "3"),
                 remarkLine("AND A REMARK")}});
  const ShownWindow window = run.click(run.load<frmWarranty>().grdWarr);
  EXPECT_EQ(window.name, "frmWarrDetail");
  EXPECT_EQ(window.caption, "Warranty Detail ...   Shop reference : 4000");
  EXPECT_EQ(window.labels.at("lblCust"), "777\r\nSMITH ADA\r\n614-000-0123");
  EXPECT_EQ(window.labels.at("lblSn1"), "SN1");
  EXPECT_EQ(window.labels.at("lblSn2"), "SN2");
  EXPECT_EQ(window.labels.at("lblMisc"), "SOLD BY\r\nSOMEBODY");
  EXPECT_THAT(window.grids.at("grdwd"),
              ElementsAre(ElementsAre("AB", "12-345             3", "BELT", "1", "25.50", ".07"),
                          ElementsAre("REM", "AND A REMARK", "", "", "", "")));
}

/// Three claims whose columns all sort differently.
class WarrantySortTest : public WarrantyTest {
 protected:
  void addClaims() {
    const struct {
      std::int32_t reference, invoice, customer;
      const char* name;
      const char* brand;
      std::int32_t billed;
      int distributor, parts, labor;
    } claims[] = {{101, 30, 2, "C", "B", 101'026, 3, 100'000, 60},
                  {202, 10, 3, "A", "C", 90'126, 1, 2'040, 40'000},
                  {303, 20, 1, "B", "A", 11'527, 2, 30'000, 900'000}};
    for (const auto& entry : claims) {
      RecordWriter header = claim(entry.reference, entry.billed);
      header.integer(3, 'C', entry.distributor)
          .integer(409, 'L', entry.customer)
          .packed(413, 20, entry.name)
          .packed(433, 10, entry.brand)
          .integer(481, 'L', entry.invoice);
      add(entry.reference, header,
          {.lines = {pricedLine("AB", "", 10, entry.parts),
                     pricedLine("500", "", 10, entry.labor)}});
      addCustomer(run.builder, entry.customer, entry.name);
    }
  }
};

TEST_F(WarrantySortTest, HeadsSortByTheirColumns) {
  addClaims();
  Grid& grid = run.load<frmWarranty>().grdWarr;
  EXPECT_THAT(sortedBy(grid, 1, "Invoice #"), ElementsAre("10", "20", "30"));
  EXPECT_THAT(sortedBy(grid, 0, "Invoice #"), ElementsAre("30", "10", "20"));
  EXPECT_THAT(sortedBy(grid, 2, "Invoice #"), ElementsAre("20", "30", "10"));
  EXPECT_THAT(sortedBy(grid, 3, "Invoice #"), ElementsAre("10", "20", "30"));
  EXPECT_THAT(sortedBy(grid, 4, "Invoice #"), ElementsAre("20", "30", "10"));
  EXPECT_THAT(sortedBy(grid, 5, "Invoice #"), ElementsAre("10", "30", "20"))
      << "by the day, not its text";
  EXPECT_THAT(sortedBy(grid, 6, "Invoice #"), ElementsAre("10", "20", "30"));
  EXPECT_THAT(sortedBy(grid, 7, "Invoice #"), ElementsAre("10", "20", "30"))
      << "$20.40, $300.00, $1000.00";
  EXPECT_THAT(sortedBy(grid, 8, "Invoice #"), ElementsAre("30", "10", "20"));
  EXPECT_THAT(sortedBy(grid, 9, "Invoice #"), ElementsAre("30", "10", "20"));
  EXPECT_THAT(run.messages, IsEmpty());
}

TEST_F(WarrantySortTest, WithSegmentsHeadsSortByTheColumnToTheirRight) {
  addClaims();
  Grid& grid = run.load<frmWarSeg>().grdWarr;
  EXPECT_THAT(sortedBy(grid, 1, "Invoice #"), ElementsAre("10", "20", "30"))
      << "Req sorts by Invoice #";
  EXPECT_THAT(sortedBy(grid, 2, "Invoice #"), ElementsAre("20", "30", "10"))
      << "Invoice # sorts by Cust #";
  EXPECT_THAT(sortedBy(grid, 3, "Invoice #"), ElementsAre("10", "20", "30"))
      << "Cust # sorts by Name";
  EXPECT_THAT(sortedBy(grid, 0, "Invoice #"), ElementsAre("30", "10", "20"));
  EXPECT_THAT(sortedBy(grid, 8, "Invoice #"), ElementsAre("30", "10", "20"))
      << "Parts sorts by Labor";
  EXPECT_THAT(sortedBy(grid, 7, "Invoice #"), ElementsAre("10", "20", "30"))
      << "Dist sorts by Parts";
  for (const int head : {9, 10}) {
    EXPECT_THAT(sortedBy(grid, head, "Invoice #"), ElementsAre("10", "20", "30"));
    EXPECT_EQ(gSortDirection, 0);
  }
  EXPECT_THAT(run.messages, IsEmpty());
}

TEST_F(WarrantyTest, SegmentsStandBehindTheReferenceInTheIndex) {
  addCustomer(run.builder, 777, "O-BRIEN ADA");
  RecordWriter first = claim(9'999);
  first.integer(409, 'L', 777)
      .packed(413, 20, "NOT SHOWN")
      .packed(433, 10, "A/B")
      .integer(481, 'L', 5);
  add(123'407, first, {.lines = {pricedLine("500", "", 10, 100)}});
  add(123'410, claim(9'999).integer(409, 'L', 778), {.lines = {pricedLine("AB", "", 10, 2'000)}});
  const frmWarSeg& view = run.load<frmWarSeg>();
  EXPECT_THAT(view.grdWarr.rows(),
              ElementsAre(ElementsAre("1234", "07", "5", "777", "O-BRIEN ADA", "A/B -", "9/1/26",
                                      "0", "$.00", "$1.00", "21429"),
                          ElementsAre("1234", "10", "0", "778", "Customer Name Not Found", " -",
                                      "9/1/26", "0", "$20.00", "$.00", "21429")));
  EXPECT_EQ(run.recap(6), "$21.00");
}

TEST_F(WarrantyTest, ASegmentWithBrokenLinesShowsSoInItsRow) {
  add(123'407, claim(1).integer(409, 'L', 778), {.page = 2, .link = 0});
  const frmWarSeg& view = run.load<frmWarSeg>();
  EXPECT_THAT(view.grdWarr.rows(),
              ElementsAre(ElementsAre("1234", "07", "0", "778", "Error in warranty detail", "",
                                      "9/1/26", "0", "", "", "21429")));
  EXPECT_EQ(run.recap(6), "$.00");
}

TEST_F(WarrantyTest, ANumberOfTwoDigitsIsAllSegment) {
  add(42, claim(42), {.lines = {pricedLine("AB", "1", 10, 100)}});
  add(100, claim(100), {.lines = {pricedLine("AB", "1", 10, 100)}});
  const frmWarSeg& view = run.load<frmWarSeg>();
  EXPECT_THAT(column(view.grdWarr, "Shop Ref"), ElementsAre("", "1"));
  EXPECT_THAT(column(view.grdWarr, "Req"), ElementsAre("42", "00"));
  EXPECT_EQ(run.recap(6), "$2.00");
}

TEST_F(WarrantyTest, ANumberOfOneDigitEndsTheLoadWithoutARow) {
  add(3, claim(3).integer(1, 'C', 0));  // passed over before its number matters
  add(5, claim(5));
  add(142, claim(42));
  const frmWarSeg& view = run.load<frmWarSeg>();
  EXPECT_EQ(view.grdWarr.Rows(), 0);
  EXPECT_EQ(run.recap(6), "! Data Error !");
  EXPECT_THAT(run.logged,
              ElementsAre("*Error in frmWarranty.form load routine error # :  5  Invalid "
                          "procedure call or argument"));
}

TEST_F(WarrantyTest, ASegmentsDetailIsFoundByBothNumbers) {
  addCustomer(run.builder, 777, "O-BRIEN ADA");
  for (const std::int32_t number : {123'407, 123'408}) {
    RecordWriter header = claim(1'234);
    header.integer(276, 'C', 614)
        .integer(278, 'L', 5'550'123)
        .integer(409, 'L', 777)
        .packed(457, 12, std::to_string(number));
    add(number, header, {.lines = {pricedLine("AB", "P" + std::to_string(number), 10, 100)}});
  }
  const ShownWindow window = run.click(run.load<frmWarSeg>().grdWarr, 1);
  EXPECT_EQ(window.caption, "Warranty Detail ...   Shop reference : 1234");
  EXPECT_EQ(window.labels.at("lblCust"), "777\r\nO-BRIEN ADA") << "no telephone here";
  EXPECT_EQ(window.labels.at("lblSn1"), "123408");
  EXPECT_EQ(window.grids.at("grdwd").at(0).at(1), "P123408");
}

}  // namespace
}  // namespace dg::test
