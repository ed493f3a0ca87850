#include <array>
#include <string>

#include "tests/support/view_test.h"
#include "views/financial/sales.h"

namespace dg::test {
namespace {

class Sales : public ViewTest {
 protected:
  /// A counterman's record, main and extension in one, with everything 0.
  static RecordWriter man(std::int32_t number, const std::string& name = "JUNE") {
    RecordWriter record(404);
    record.integer(1, 'J', 1).integer(3, 'C', number).packed(7, 20, name);
    return record;
  }
  std::int32_t add(const RecordWriter& record) {
    const std::int32_t number = run_.builder.extended("MANL", "EMANL").add(record.bytes());
    run_.builder.index("MANI").add(record.bytes().substr(2, 2), number);
    return number;
  }
  void addKey(std::int32_t number, std::int32_t record) {
    run_.builder.index("MANI").add(sample::integerKey('C', number, 2), record);
  }
};

TEST_F(Sales, ACountermansDayFillsBothGrids) {
  add(man(12, "VERN HOLLOWIN")
          .integer(30, 'L', 7)
          .integer(34, 'L', 31)
          .integer(38, 'L', 500'000)
          .integer(46, 'L', 1'050)
          .integer(54, 'L', 123'456)
          .integer(62, 'L', 2'000)
          .integer(70, 'L', 5)
          .integer(74, 'L', 40'000)
          .integer(333, 'L', 25));
  const auto view = load<frmSales>();
  EXPECT_EQ(
      view->grdSales.rows(),
      (std::vector<Cells>{{"12", "VERN HOLLOWIN", "7", "31", "1,234.56", "20.00", ".05", "", ""}}));
  EXPECT_EQ(view->grdCash.rows(), (std::vector<Cells>{{"12", "VERN HOLLOWIN", "5,000.00", "10.50",
                                                       "400.00", ".25", "5,389.75", "", ""}}));
  EXPECT_EQ(recap(7), "$1,234.56");
  EXPECT_EQ(recap(10), "$5,389.75");
  EXPECT_EQ(view->lblSaleTot.caption(), "Sales Total  1,234.56");
  EXPECT_EQ(view->lblCashTot.caption(), "Cash Total  5,389.75");
}

TEST_F(Sales, TheNetTakesEveryAmountAsPositive) {
  add(man(1)
          .integer(38, 'L', -10'000)
          .integer(46, 'L', -3'000)
          .integer(74, 'L', -2'000)
          .integer(333, 'L', -5'000));
  add(man(2).integer(46, 'L', 7'000));
  const auto view = load<frmSales>();
  EXPECT_EQ(column(view->grdCash, "Cash"), (Cells{"-100.00", ".00"}));
  EXPECT_EQ(column(view->grdCash, "Refunds"), (Cells{"-30.00", "70.00"}));
  EXPECT_EQ(column(view->grdCash, "ROA"), (Cells{"20.00", ".00"}));
  EXPECT_EQ(column(view->grdCash, "Deposits"), (Cells{"-50.00", ".00"}));
  EXPECT_EQ(column(view->grdCash, "Net"), (Cells{"140.00", "-70.00"}));
  EXPECT_EQ(recap(10), "$70.00");
}

TEST_F(Sales, AnEntryOfAnotherNumberIsLeftOutAndTheScanGoesOn) {
  const std::int32_t first = add(man(4).integer(54, 'L', 100).integer(38, 'L', 100));
  addKey(5, first);
  add(man(6).integer(54, 'L', 200).integer(38, 'L', 200));
  // Nobody has number 0; the scan begins behind it.
  addKey(0, first);
  const auto view = load<frmSales>();
  EXPECT_EQ(column(view->grdSales, "Man"), (Cells{"4", "6"}));
  EXPECT_EQ(column(view->grdCash, "Man"), (Cells{"4", "6"}));
  EXPECT_EQ(recap(7), "$3.00");
  EXPECT_EQ(recap(10), "$3.00");
}

TEST_F(Sales, AFailureMarksTheSalesAndLeavesTheCash) {
  add(man(4).integer(54, 'L', 100));
  addKey(9, 300);
  const auto view = load<frmSales>();
  EXPECT_EQ(view->grdCash.Rows(), 1);
  EXPECT_EQ(recap(10), "");
  EXPECT_FALSE(recapIsRed(10));
  expectFailure(7,
                "*Error in frmSales GetSales routine error # :  81  Illegal Record Number for "
                "File: MANL and Record:  300");
}

TEST_F(Sales, EachHeadSortsItself) {
  const std::array<std::int32_t, 11> kPositions = {30, 34, 38, 46, 54, 62, 70, 74, 333, 42, 50};
  constexpr std::int32_t kOrders[][3] = {{2, 1, 3}, {3, 1, 2}, {1, 3, 2}, {2, 3, 1},
                                         {3, 2, 1}, {1, 2, 3}, {2, 1, 3}, {3, 1, 2},
                                         {1, 3, 2}, {1, 1, 1}, {1, 1, 1}};
  const std::array<const char*, 3> names = {"NORA", "ADA", "TESS"};
  for (std::size_t i = 0; i < names.size(); ++i) {
    RecordWriter record = man(static_cast<std::int32_t>(i) + 1, names[i]);
    for (std::size_t field = 0; field < kPositions.size(); ++field)
      record.integer(kPositions[field], 'L', kOrders[field][i] * 10'000);
    add(record);
  }
  const auto view = load<frmSales>();
  const std::array sales = {"Man", "Name", "Invoices", "Items", "mdse", "Labor", "Disc"};
  const std::array cash = {"Man", "Name", "Cash", "Refunds", "ROA", "Deposits", "Net"};
  for (int head = 0; head < 7; ++head) {
    const auto index = static_cast<std::size_t>(head);
    expectHeadSorts(view->grdSales, head, sales[index], head == 1);
    expectHeadSorts(view->grdCash, head, cash[index], head == 1);
    EXPECT_EQ(view->grdSales.columnIndex(sales[index]), head);
    EXPECT_EQ(view->grdCash.columnIndex(cash[index]), head);
  }
  EXPECT_TRUE(run_.messages.empty());
}

}  // namespace
}  // namespace dg::test
