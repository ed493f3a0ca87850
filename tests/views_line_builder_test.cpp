#include <string>
#include <vector>

#include "engine/codec.h"
#include "platform/text.h"
#include "records/index_walk.h"
#include "records/invoice_lines.h"
#include "records/shop_lines.h"
#include "records/warranty_lines.h"
#include "tests/support/error_number.h"
#include "tests/support/paged_records.h"
#include "tests/support/view_run.h"

namespace dg::test {
namespace {

/// A display line as texts without trailing blanks, "-" for a value that no line has set.
Cells cells(const DisplayLine& line, std::size_t count) {
  Cells texts;
  for (std::size_t i = 0; i < count; ++i) {
    const bool unset = std::holds_alternative<std::monostate>(line[i]);
    texts.push_back(unset ? "-" : std::string(shown(toText(line[i]))));
  }
  return texts;
}

template <class Builder>
std::vector<Cells> linesOf(const Builder& builder, std::size_t count = 7) {
  std::vector<Cells> lines;
  for (const DisplayLine& line : *builder.DetailReturn())
    lines.push_back(cells(line, count));
  return lines;
}

/// The part numbers or remarks.
template <class Builder>
Cells parts(const Builder& builder) {
  Cells result;
  for (const DisplayLine& line : *builder.DetailReturn())
    result.push_back(cells(line, 2)[1]);
  return result;
}

class DetailBuilderTest : public ViewTest {
 protected:
  /// Adds a page of an order or job; returns its record.
  std::int32_t addPage(const PageFields& fields) {
    return run.builder.records("INVOL").add(pageRecord(fields));
  }
  /// Adds a page of a claim, and an index entry when the reference is not 0.
  std::int32_t addClaimPage(const PageFields& fields, std::int32_t reference = 0) {
    const std::int32_t record = run.builder.records("WARRL").add(pageRecord(fields));
    if (reference != 0) run.builder.index("WARRI").add(integerKey('L', reference), record);
    return record;
  }
  template <class Builder>
  Builder built(void (Builder::*choose)(std::int32_t), std::int32_t number) {
    run.open();
    Builder detail;
    (detail.*choose)(number);
    detail.GetDetail();
    return detail;
  }
  clsShopDetail shopDetail(std::int32_t record) { return built(&clsShopDetail::ShopRec, record); }
  clsInvDetail invoiceDetail(std::int32_t record) {
    return built(&clsInvDetail::InvoiceRec, record);
  }
  clsWarrDetail claimDetail(std::int32_t reference) {
    return built(&clsWarrDetail::ShopRef, reference);
  }
};

TEST_F(DetailBuilderTest, PagesStandInTheirOrderHoweverTheWalkMeetsThem) {
  // Met as 3, 2, 4, 1; one link is negative, and what page 1 links to counts for nothing.
  addPage({.page = 4, .link = 4, .request = 2, .lines = {pricedLine("AB", "FOURTH", 10, 100)}});
  addPage({.page = 3, .link = -3, .request = 7, .lines = {pricedLine("AB", "THIRD", 10, 100)}});
  addPage(
      {.page = 2,
       .link = 1,
       .request = 1,
       .lines = {pricedLine("AB", "SECOND A", 10, 100), pricedLine("AB", "SECOND B", 10, 100)}});
  addPage({.page = 1, .link = 4711, .lines = {pricedLine("AB", "FIRST", 10, 100)}});

  const clsShopDetail shop = shopDetail(2);
  EXPECT_THAT(parts(shop), ElementsAre("FIRST", "SECOND A", "SECOND B", "THIRD", "FOURTH"));
  Cells requests;
  for (const DisplayLine& line : *shop.DetailReturn())
    requests.push_back(toText(line[6]));
  EXPECT_THAT(requests, ElementsAre("0", "1", "1", "7", "2"));
  EXPECT_EQ(shop.ShopPartTotal(), 500);
  EXPECT_THAT(parts(invoiceDetail(2)),
              ElementsAre("FIRST", "SECOND A", "SECOND B", "THIRD", "FOURTH"));
  EXPECT_FALSE(shop.DetailError());
  EXPECT_THAT(run.logged, IsEmpty());
}

TEST_F(DetailBuilderTest, QuantitiesAreCutToWholeUnitsBeforeTheyAreMultiplied) {
  Cells quantities;
  double total = 0;
  for (const int tenths : {25, 9, -15, -9, 19}) {
    addPage({.lines = {pricedLine("AB", "1", tenths, 1'000)}});
  }
  for (int record = 1; record <= 5; ++record) {
    const clsShopDetail shop = shopDetail(record);
    quantities.push_back(linesOf(shop).at(0)[3]);
    total += shop.ShopPartTotal();
  }
  EXPECT_THAT(quantities, ElementsAre("2", "0", "-1", "0", "1"));
  EXPECT_EQ(total, 2'000);
}

TEST_F(DetailBuilderTest, TotalsOutgrowThirtyTwoBits) {
  addPage({.lines = {pricedLine("AB", "1", 32'767, 8'388'607),
                     pricedLine("AB", "1", 32'767, -8'388'608),
                     pricedLine("AB", "1", 32'767, 8'388'607)}});
  EXPECT_EQ(shopDetail(1).ShopPartTotal(), 3'276.0 * 8'388'606);
}

TEST_F(DetailBuilderTest, TheLineCodeChoosesTheTotal) {
  const Cells lines = {pricedLine("500", "L1", 20, 1),      pricedLine("502", "", 10, 100),
                       pricedLine("550", "", 10, 10'000),   pricedLine("501", "", 10, 1'000'000),
                       pricedLine("50", "", 10, 2'000'000), remarkLine("500")};
  addPage({.lines = lines});
  const clsShopDetail shop = shopDetail(1);
  EXPECT_EQ(shop.ShopLabTotal(), 2);
  EXPECT_EQ(shop.ShopFrtTotal(), 100);
  EXPECT_EQ(shop.ShopMiscTotal(), 10'000);
  EXPECT_EQ(shop.ShopPartTotal(), 3'000'000);
  EXPECT_EQ(shop.ShopSupTotal(), 0);
  EXPECT_EQ(shop.ShopTaxTotal(), 0);
  EXPECT_EQ(shop.ShopDepTotal(), 0);
}

TEST_F(DetailBuilderTest, OnAClaimOnlyLaborHasATotalOfItsOwn) {
  addClaimPage({.lines = {pricedLine("500", "L1", 20, 1), pricedLine("502", "", 10, 100),
                          pricedLine("550", "", 10, 10'000), pricedLine("AB", "", 10, 1'000'000)}},
               12);
  const clsWarrDetail claim = claimDetail(12);
  EXPECT_EQ(claim.WarrLabTotal(), 2);
  EXPECT_EQ(claim.WarrPartTotal(), 1'010'100);
  EXPECT_FALSE(claim.DetailError());
}

TEST_F(DetailBuilderTest, ARemarkCarriesTheLineBeforeIt) {
  const Cells last = {remarkLine("NEXT PAGE")};
  const Cells first = {remarkLine("FIRST OF ALL"), pricedLine("AB", "123", 30, 250, 99, "BELT"),
                       remarkLine("CHECK 1.2 IN. HOSE, A LONG TEXT OF OVER THIRTY-SIX")};
  addPage({.page = 2, .link = 2, .request = 1, .lines = last});
  addPage({.lines = first});
  addClaimPage({.page = 2, .link = 2, .lines = last}, 12);
  addClaimPage({.lines = first});

  const clsShopDetail shop = shopDetail(1);
  EXPECT_THAT(linesOf(shop),
              ElementsAre(ElementsAre("REM", "FIRST OF ALL", "-", "-", "-", "-", "0"),
                          ElementsAre("AB", "123", "BELT", "3", "250", "99", "0"),
                          ElementsAre("REM", "CHECK 1.2 IN. HOSE, A LONG TEXT OF OVER THIRTY SIX",
                                      "BELT", "3", "250", "99", "0"),
                          ElementsAre("REM", "NEXT PAGE", "BELT", "3", "250", "99", "1")));
  EXPECT_EQ(shop.ShopPartTotal(), 750) << "only once";
  EXPECT_THAT(linesOf(claimDetail(12), 6).at(3),
              ElementsAre("REM", "NEXT PAGE", "BELT", "3", "250", "99"));
  EXPECT_THAT(linesOf(invoiceDetail(1), 6),
              ElementsAre(ElementsAre("REM", "FIRST OF ALL", "", "0", "0", "0"),
                          ElementsAre("AB", "123", "BELT", "3", "250", "99"),
                          ElementsAre("REM", "CHECK 1.2 IN. HOSE, A LONG TEXT OF OVER THIRTY SIX",
                                      "", "0", "0", "0"),
                          ElementsAre("REM", "NEXT PAGE", "", "0", "0", "0")));
}

TEST_F(DetailBuilderTest, TheInvoiceBuilderAloneChangesThePackedTextTable) {
  addPage({.lines = {remarkLine("1/2 OR A/B")}});
  EXPECT_THAT(parts(shopDetail(1)), ElementsAre("1/2 OR A/B"));
  EXPECT_THAT(parts(invoiceDetail(1)), ElementsAre("1-2 OR A-B"));
  EXPECT_THAT(parts(shopDetail(1)), ElementsAre("1-2 OR A-B")) << "it stays so for all others";
}

TEST_F(DetailBuilderTest, APageNumberAboveTwoHundredEndsTheWalk) {
  addPage({.page = 2, .link = 2, .lines = {pricedLine("AB", "1", 10, 100)}});
  addPage({.page = 201, .link = 3});
  addPage({.page = 1});
  const clsShopDetail shop = shopDetail(1);
  EXPECT_TRUE(shop.DetailError());
  ASSERT_EQ(run.logged.size(), 2U);
  EXPECT_EQ(run.logged[0],
            "11/24/26 : 10:30:00 AM : clsShopDetail : BuildPage9  Subscript out of range  ");
  EXPECT_EQ(
      run.logged[1],
      "11/24/26 : 10:30:00 AM : clsShopDetail : BuildDetail81  Illegal Record Number for File: "
      "INVOL and Record:  0  iLreadFile")
      << "page 1 was never met";
}

TEST_F(DetailBuilderTest, PagesUpToTwoHundredHaveTheirPlace) {
  addPage({.page = 200, .link = 2, .lines = {pricedLine("AB", "LAST", 10, 100)}});
  for (int page = 199; page >= 1; --page)
    addPage({.page = page, .link = 202 - page, .lines = {pricedLine("AB", "X", 10, 100)}});
  const clsShopDetail shop = shopDetail(1);
  EXPECT_FALSE(shop.DetailError());
  ASSERT_EQ(shop.DetailReturn()->size(), 200U);
  EXPECT_EQ(parts(shop).back(), "LAST");
}

TEST_F(DetailBuilderTest, OnPageZeroTheRecordNumberPassesForTheHighestPage) {
  // Record 1 makes 1 the highest page, so that all is well; record 3 makes it 3, which is not
  // there.
  addPage({.page = 0, .link = 2, .lines = {pricedLine("AB", "ZERO", 10, 100)}});
  addPage({.lines = {pricedLine("AB", "FIRST", 10, 100)}});
  addPage({.page = 0, .link = 2, .lines = {pricedLine("AB", "ZERO", 10, 100)}});
  EXPECT_THAT(parts(shopDetail(1)), ElementsAre("FIRST"));
  EXPECT_THAT(run.logged, IsEmpty());
  EXPECT_THAT(parts(shopDetail(3)), IsEmpty()) << "the highest page is tried ahead of all others";
  ASSERT_EQ(run.logged.size(), 1U);
  EXPECT_TRUE(
      run.logged[0].ends_with(" : clsShopDetail : BuildDetail81  Illegal Record Number for "
                              "File: INVOL and Record:  0  iLreadFile"))
      << run.logged[0];
}

TEST_F(DetailBuilderTest, ARecordNumberAboveTwoHundredIsNoHighestPage) {
  for (int record = 1; record <= 200; ++record)
    addPage({.lines = {pricedLine("AB", "FIRST", 10, 100)}});
  addPage({.page = 0, .link = 1});
  EXPECT_THAT(parts(shopDetail(201)), IsEmpty());
  EXPECT_THAT(run.logged,
              ElementsAre("11/24/26 : 10:30:00 AM : clsShopDetail : BuildDetail9  Subscript out of "
                          "range  "));
}

TEST_F(DetailBuilderTest, OfTwoPagesOfOneNumberTheLaterOneCounts) {
  addPage({.page = 2, .link = 2, .lines = {pricedLine("AB", "EARLIER", 10, 1)}});
  addPage({.page = 2, .link = 3, .lines = {pricedLine("AB", "LATER", 10, 1)}});
  addPage({.lines = {pricedLine("AB", "FIRST", 10, 1)}});
  EXPECT_THAT(parts(shopDetail(1)), ElementsAre("FIRST", "LATER"));
  EXPECT_THAT(run.logged, IsEmpty());
}

TEST_F(DetailBuilderTest, AChainThatLoopsEndsAsAnOverflow) {
  addPage({.page = 2, .link = 2, .lines = {pricedLine("AB", "A", 10, 1)}});
  addPage({.page = 3, .link = 1, .lines = {pricedLine("AB", "B", 10, 1)}});
  addClaimPage({.page = 2, .link = 1}, 12);
  EXPECT_TRUE(shopDetail(1).DetailError());
  EXPECT_EQ(run.logged.at(0), "11/24/26 : 10:30:00 AM : clsShopDetail : BuildPage6  Overflow  ");
  run.logged.clear();
  EXPECT_TRUE(claimDetail(12).DetailError());
  EXPECT_EQ(run.logged.at(0), "11/24/26 : 10:30:00 AM : clsWarrDetail : BuildPage6  Overflow  ");
}

TEST_F(DetailBuilderTest, ALinkToNoRecordEndsTheWalk) {
  const std::int32_t beyond = 8'388'607;
  addPage({.page = 2, .link = 0});
  addPage({.page = 2, .link = beyond});
  for (const auto& [record, shown] :
       {std::pair<std::int32_t, std::string>{1, " 0"}, {2, " 8388607"}}) {
    run.logged.clear();
    EXPECT_TRUE(invoiceDetail(record).DetailError());
    EXPECT_EQ(
        run.logged.at(0),
        "11/24/26 : 10:30:00 AM : clsShopDetail : BuildPage81  Illegal Record Number for File: "
        "INVOL and Record: " +
            shown + "  iLreadFile")
        << "the invoice's builder uses the words of the shop job's";
  }
}

TEST_F(DetailBuilderTest, ALineCountBeyondTheRecordKeepsTheLinesBeforeIt) {
  Cells lines;
  for (int i = 1; i <= 19; ++i)
    lines.push_back(pricedLine("AB", std::to_string(i), 10, 1));
  addPage({.lines = lines, .lineCount = 255});
  const clsShopDetail shop = shopDetail(1);
  EXPECT_EQ(parts(shop).size(), 19U);
  EXPECT_EQ(shop.ShopPartTotal(), 19);
  ASSERT_EQ(run.logged.size(), 1U);
  EXPECT_EQ(
      run.logged[0],
      "11/24/26 : 10:30:00 AM : clsShopDetail : BuildDetail31  Invalid Subscript.  UnPack(\"J\", "
      "Data$, 31)   Len(Data$) = 28  UnPack");
}

TEST_F(DetailBuilderTest, ADocumentThatCannotBeReadHasNoLinesToShow) {
  const clsShopDetail shop = shopDetail(-1);
  EXPECT_EQ(errorNumber([&] { shop.DetailReturn(); }), kObjectNotSet);
  EXPECT_TRUE(shop.DetailError());
  const clsInvDetail order = invoiceDetail(0);
  EXPECT_EQ(errorNumber([&] { order.DetailReturn(); }), kObjectNotSet);
  ASSERT_EQ(run.logged.size(), 2U);
  EXPECT_TRUE(
      run.logged[0].ends_with(" : clsShopDetail : GetDetail81  Illegal Record Number for "
                              "File: INVOL and Record: -1  iLreadFile"))
      << run.logged[0];
  EXPECT_TRUE(run.logged[1].find(" : clsShopDetail : GetDetail81  ") != std::string::npos);
}

TEST_F(DetailBuilderTest, AnUnknownClaimShowsTheNextOne) {
  addClaimPage({.lines = {pricedLine("AB", "TWENTY", 10, 1)}}, 20);
  addClaimPage({.lines = {pricedLine("AB", "THIRTY", 10, 1)}}, 30);
  EXPECT_THAT(parts(claimDetail(21)), ElementsAre("THIRTY"));
  EXPECT_THAT(parts(claimDetail(20)), ElementsAre("TWENTY"));
  EXPECT_THAT(run.logged, IsEmpty());
  const clsWarrDetail none = claimDetail(31);
  EXPECT_THAT(*none.DetailReturn(), IsEmpty());
  EXPECT_TRUE(none.DetailError());
  EXPECT_EQ(run.logged.size(), 1U);
  EXPECT_TRUE(run.logged.at(0).find(" : clsWarrDetail : GetDetail81  ") != std::string::npos);
}

TEST_F(DetailBuilderTest, AClaimBuilderForgetsItsErrorButNotItsPages) {
  addClaimPage({.page = 2, .link = 0, .lines = {pricedLine("500", "", 10, 100)}}, 12);
  addClaimPage({.lines = {pricedLine("500", "", 10, 5)}}, 13);
  run.open();
  clsWarrDetail claim;
  claim.ShopRef(12);
  claim.GetDetail();
  EXPECT_TRUE(claim.DetailError());
  claim.ShopRef(13);
  claim.GetDetail();
  EXPECT_FALSE(claim.DetailError());
  EXPECT_EQ(claim.WarrLabTotal(), 105) << "page 2 of the claim before is still in the list";
}

TEST_F(DetailBuilderTest, ASecondRunRestartsPartsAndLaborOnly) {
  addPage({.lines = {pricedLine("500", "", 10, 1), pricedLine("502", "", 10, 10),
                     pricedLine("550", "", 10, 100), pricedLine("AB", "", 10, 1'000)}});
  run.open();
  clsShopDetail shop;
  for (int i = 0; i < 2; ++i) {
    shop.ShopRec(1);
    shop.GetDetail();
  }
  EXPECT_EQ(shop.ShopLabTotal(), 1);
  EXPECT_EQ(shop.ShopPartTotal(), 1'000);
  EXPECT_EQ(shop.ShopFrtTotal(), 20);
  EXPECT_EQ(shop.ShopMiscTotal(), 200);
  EXPECT_EQ(shop.DetailReturn()->size(), 4U);
}

}  // namespace
}  // namespace dg::test
