#include <string>

#include "engine/catalog_configuration.h"
#include "tests/support/faulty_file_system.h"
#include "tests/support/line_records.h"
#include "tests/support/view_test.h"
#include "views/financial/inventory.h"

namespace dg::test {
namespace {

class Inventory : public ViewTest {
 protected:
  void addLine(const sample::RecordWriter& record) { test::addLine(run_.builder, record); }
};

TEST_F(Inventory, ALinesFiguresFillItsRow) {
  // Cost of year and month together 940.00: times 365, over 94 days, against 1,000.00 of stock.
  addLine(lineRecord(7, "K7")
              .integer(75, 'L', 100'000)
              .integer(87, 'L', 12'345)
              .integer(91, 'L', 40'000)
              .integer(99, 'L', 123'456'789)
              .integer(103, 'L', 54'000)
              .integer(170, 'K', 8)
              .integer(173, 'K', 5)
              .integer(184, 'L', 300)
              .integer(188, 'L', 100)
              .integer(176, 'L', 1'000)
              .integer(180, 'L', 2'000));
  const auto view = load<frmInv>();
  EXPECT_EQ(view->grdInvest.rows(),
            (std::vector<Cells>{{"7", "K7", "$1,000.00", "$1,234,567.89", "$123.45", "3.65", "8",
                                 "5", "62.50", "300", "100", "33.33", "1000", "2000", "200.00"}}));
  EXPECT_EQ(recap(1), "$1,000.00");
  EXPECT_EQ(view->lblinvtot[0]->caption(), "Investment Total : $1,000.00");
  EXPECT_EQ(view->lblinvtot[1]->caption(), "Sales YTD : $1,234,567.89");
  EXPECT_EQ(view->lblinvtot[2]->caption(), "Sales MTD : $123.45");
}

TEST_F(Inventory, NothingInStockHasNoTurnsAndNothingOrderedNoRate) {
  addLine(lineRecord(1, "A1").integer(103, 'L', 5'000'000).integer(173, 'K', 9));
  addLine(lineRecord(2, "A2")
              .integer(75, 'L', -100'000)
              .integer(103, 'L', 94'000)
              .integer(87, 'L', -5)
              .integer(170, 'K', -4)
              .integer(173, 'K', 2));
  const auto view = load<frmInv>();
  EXPECT_EQ(column(view->grdInvest, "Est. Turns"), (Cells{".00", "-3.65"}));
  EXPECT_EQ(column(view->grdInvest, "Fill %/I"), (Cells{".00", ".00"}));
  EXPECT_EQ(column(view->grdInvest, "Investment"), (Cells{"$0.00", "($1,000.00)"}));
  EXPECT_EQ(column(view->grdInvest, "Mtd"), (Cells{"$.00", "-$.05"}));
  EXPECT_EQ(recap(1), "-$1,000.00");
}

TEST_F(Inventory, LineThousandEndsTheList) {
  for (const std::int32_t number : {1001, 1000, 999, 3})
    addLine(lineRecord(number, "AA").integer(75, 'L', 100));
  addLine(lineRecord(0, "ZZ").integer(75, 'L', 100));
  const auto view = load<frmInv>();
  EXPECT_EQ(column(view->grdInvest, "Line"), (Cells{"3", "999"}));
  EXPECT_EQ(recap(1), "$2.00");
}

TEST_F(Inventory, AFailureHalfWayKeepsTheRows) {
  for (const std::int32_t number : {1, 2})
    addLine(lineRecord(number, "AA").integer(75, 'L', 100));
  run_.builder.index("LINEI").add(sample::integerKey('C', 3, 2), 500);
  run_.builder.index("LINEI").add(sample::integerKey('C', 4, 2), 1);
  const auto view = load<frmInv>();
  EXPECT_EQ(column(view->grdInvest, "Line"), (Cells{"1", "2"}));
  EXPECT_EQ(view->lblinvtot[0]->caption(), "");
  expectFailure(1,
                "*Error in frmInv GetLineData routine error # :  81  Illegal Record Number for "
                "File: LINEL and Record:  500");
}

TEST_F(Inventory, ARowThatFailsStaysWithTheCellsSetSoFar) {
  addLine(lineRecord(1, "AA").integer(75, 'L', 100).integer(170, 'K', 3));
  run_.missing = {"FILE0"};  // the turns ask for it
  const auto view = load<frmInv>();
  EXPECT_EQ(view->grdInvest.rows(), (std::vector<Cells>{{"1", "AA", "$1.00", "$.00", "$.00", "", "",
                                                         "", "", "", "", "", "", "", ""}}));
  expectFailure(1,
                "*Error in frmInv GetLineData routine error # :  91  Object variable or With block "
                "variable not set");
}

TEST_F(Inventory, ABrokenReadAtAnyPlaceIsTrapped) {
  for (const std::int32_t number : {1, 2, 3})
    addLine(lineRecord(number, "AA").integer(75, 'L', 100));
  open();
  auto owned = std::make_unique<FaultyFileSystem>(setFileSystem(nullptr));
  FaultyFileSystem& files = *owned;
  setFileSystem(std::move(owned));
  ReadCatalogConfiguration();  // opens the files again, by the faulty way
  frmInv().Form_Load();        // opens the files
  const std::uint64_t before = files.reads();
  frmInv().Form_Load();
  const std::uint64_t reads = files.reads() - before;
  ASSERT_GT(reads, 3U);
  ASSERT_EQ(recap(1), "$3.00");
  for (std::uint64_t good = 0; good < reads; ++good) {
    run_.logged.clear();
    files.failAfter(good);
    frmInv view;
    view.Form_Load();
    // A commodity index that cannot be read is a failure of the line's record alone.
    if (recap(1) == "$3.00") {
      EXPECT_EQ(run_.logged,
                Cells{"*Error in clsLines Unpack routine error # :  57  Device I/O error"})
          << good;
      continue;
    }
    expectFailure(1, "*Error in frmInv GetLineData routine error # :  57  Device I/O error");
    EXPECT_LE(view.grdInvest.Rows(), 3);
  }
}

TEST_F(Inventory, EveryHeadSortsItsColumn) {
  // Each column orders the four lines in its own way.
  static constexpr std::int32_t kOrders[][4] = {{1, 2, 3, 4}, {2, 1, 4, 3}, {4, 1, 2, 3},
                                                {3, 4, 1, 2}, {4, 3, 2, 1}, {2, 3, 4, 1},
                                                {1, 3, 2, 4}, {3, 1, 4, 2}};
  for (int line = 0; line < 4; ++line) {
    const auto at = [line](int order) { return kOrders[order][line]; };
    addLine(lineRecord(line + 1, std::string(1, static_cast<char>('A' + at(1))) + "A")
                .integer(75, 'L', at(2) * 10'000)
                .integer(99, 'L', at(3) * 10'000)
                .integer(87, 'L', at(4) * 10'000)
                .integer(103, 'L', at(2) * at(5) * 30'000)
                .integer(170, 'K', at(6) * 60)
                .integer(173, 'K', at(6) * at(7) * 10)
                .integer(184, 'L', at(0) * 600)
                .integer(188, 'L', at(0) * at(1) * 100)
                .integer(176, 'L', at(3) * 60)
                .integer(180, 'L', at(3) * at(5) * 9));
  }
  const auto view = load<frmInv>();
  ASSERT_EQ(view->grdInvest.Rows(), 4);
  const char* const columns[] = {"Line",       "Alpha",    "Merchandise", "Ytd",      "Mtd",
                                 "Est. Turns", "Ord/I",    "Shp/I",       "Fill %/I", "Ord/D",
                                 "Shp/D",      "Fill %/D", "Ord/P",       "Shp/P",    "Fill %/P"};
  for (int head = 0; head < 15; ++head)
    expectHeadSorts(view->grdInvest, head, columns[head], head == 1);
  EXPECT_TRUE(run_.messages.empty());
}

}  // namespace
}  // namespace dg::test
