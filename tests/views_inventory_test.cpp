#include <string>

#include "tests/support/line_records.h"
#include "tests/support/view_run.h"
#include "views/financial/inventory.h"

namespace dg::test {
namespace {

class Inventory : public ViewTest {
 protected:
  void addLine(const sample::RecordWriter& record) { test::addLine(run.builder, record); }
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
  auto& view = run.load<frmInv>();
  EXPECT_EQ(view.grdInvest.rows(),
            (std::vector<Cells>{{"7", "K7", "$1,000.00", "$1,234,567.89", "$123.45", "3.65", "8",
                                 "5", "62.50", "300", "100", "33.33", "1000", "2000", "200.00"}}));
  EXPECT_EQ(run.recap(1), "$1,000.00");
  EXPECT_EQ(view.lblinvtot[0]->caption(), "Investment Total : $1,000.00");
  EXPECT_EQ(view.lblinvtot[1]->caption(), "Sales YTD : $1,234,567.89");
  EXPECT_EQ(view.lblinvtot[2]->caption(), "Sales MTD : $123.45");
}

TEST_F(Inventory, NothingInStockHasNoTurnsAndNothingOrderedNoRate) {
  addLine(lineRecord(1, "A1").integer(103, 'L', 5'000'000).integer(173, 'K', 9));
  addLine(lineRecord(2, "A2")
              .integer(75, 'L', -100'000)
              .integer(103, 'L', 94'000)
              .integer(87, 'L', -5)
              .integer(170, 'K', -4)
              .integer(173, 'K', 2));
  auto& view = run.load<frmInv>();
  EXPECT_EQ(column(view.grdInvest, "Est. Turns"), (Cells{".00", "-3.65"}));
  EXPECT_EQ(column(view.grdInvest, "Fill %/I"), (Cells{".00", ".00"}));
  EXPECT_EQ(column(view.grdInvest, "Investment"), (Cells{"$0.00", "($1,000.00)"}));
  EXPECT_EQ(column(view.grdInvest, "Mtd"), (Cells{"$.00", "-$.05"}));
  EXPECT_EQ(run.recap(1), "-$1,000.00");
}

TEST_F(Inventory, LineThousandEndsTheList) {
  for (const std::int32_t number : {1001, 1000, 999, 3})
    addLine(lineRecord(number, "AA").integer(75, 'L', 100));
  addLine(lineRecord(0, "ZZ").integer(75, 'L', 100));
  auto& view = run.load<frmInv>();
  EXPECT_EQ(column(view.grdInvest, "Line"), (Cells{"3", "999"}));
  EXPECT_EQ(run.recap(1), "$2.00");
}

TEST_F(Inventory, AFailureHalfWayKeepsTheRows) {
  for (const std::int32_t number : {1, 2})
    addLine(lineRecord(number, "AA").integer(75, 'L', 100));
  run.builder.index("LINEI").add(sample::integerKey('C', 3, 2), 500);
  run.builder.index("LINEI").add(sample::integerKey('C', 4, 2), 1);
  auto& view = run.load<frmInv>();
  EXPECT_EQ(column(view.grdInvest, "Line"), (Cells{"1", "2"}));
  EXPECT_EQ(view.lblinvtot[0]->caption(), "");
  run.expectFailure(1,
                    "*Error in frmInv GetLineData routine error # :  81  Illegal Record Number for "
                    "File: LINEL and Record:  500");
}

TEST_F(Inventory, ARowThatFailsStaysWithTheCellsSetSoFar) {
  addLine(lineRecord(1, "AA").integer(75, 'L', 100).integer(170, 'K', 3));
  run.missing = {"FILE0"};  // the turns ask for it
  auto& view = run.load<frmInv>();
  EXPECT_EQ(view.grdInvest.rows(), (std::vector<Cells>{{"1", "AA", "$1.00", "$.00", "$.00", "", "",
                                                        "", "", "", "", "", "", "", ""}}));
  run.expectFailure(
      1,
      "*Error in frmInv GetLineData routine error # :  91  Object variable or With block "
      "variable not set");
}

}  // namespace
}  // namespace dg::test
