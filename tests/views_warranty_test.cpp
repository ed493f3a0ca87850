#include <string>
#include <string_view>
#include <utility>
#include <vector>

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

class WarrantyTest : public ViewTest {
 protected:
  /// Adds a claim under a number of the index.
  void add(std::int32_t number, const RecordWriter& header, const PageFields& fields = {}) {
    run.builder.index("WARRI").add(integerKey('L', number, 4), addPage(fields, header));
  }
  std::int32_t addPage(const PageFields& fields,
                       const RecordWriter& header = RecordWriter(kPageLength)) {
    return run.builder.records("WARRL").add(pageRecord(fields, header.bytes()));
  }
};

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

}  // namespace
}  // namespace dg::test
