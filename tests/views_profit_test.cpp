#include <array>
#include <string>

#include "tests/support/line_records.h"
#include "tests/support/view_run.h"
#include "views/financial/profit.h"

namespace dg::test {
namespace {

class Profit : public ViewTest {
 protected:
  /// A line with sales and cost, in cents, of the month, the year and the previous year.
  void addLine(std::int32_t number, std::array<std::int32_t, 6> cents) {
    sample::RecordWriter record = lineRecord(number, "AA");
    constexpr std::array kPositions = {87, 91, 99, 103, 111, 115};
    for (std::size_t i = 0; i < cents.size(); ++i)
      record.integer(kPositions[i], 'L', cents[i]);
    test::addLine(run.builder, record);
  }
  Cells recapBlock() {
    Cells captions;
    for (int index = 13; index <= 21; ++index)
      captions.push_back(run.recap(index));
    return captions;
  }
};

TEST_F(Profit, EachPeriodHasItsRateAndTheRecapThatOfTheTotals) {
  addLine(3, {10'000, 7'470, 200'000, 100'000, 0, 0});
  addLine(4, {20'000, 30'000, 0, 5'000, 500, 499});
  auto& view = run.load<frmProfit>();
  EXPECT_EQ(view.grdProfit.rows(),
            (std::vector<Cells>{{"3", "AA", "", "$100.00", "$74.70", "25.3%", "$2,000.00",
                                 "$1,000.00", "50.0%", "$0.00", "$0.00", ".0%"},
                                {"4", "AA", "", "$200.00", "$300.00", "-50.0%", "$0.00", "$50.00",
                                 ".0%", "$5.00", "$4.99", ".2%"}}));
  // The rates of the totals, not the mean of the lines' rates.
  EXPECT_EQ(recapBlock(), (Cells{"$300.00", "$374.70", "-24.90%", "$2,000.00", "$1,050.00",
                                 "47.50%", "$5.00", "$4.99", "00.20%"}));
  EXPECT_EQ(figureValue(&run.recapSheet, Figure::kMonthCost), Currency::fromScaled(37'470, 100));
  EXPECT_EQ(figureValue(&run.recapSheet, Figure::kMonthRate), Currency::fromTenThousandths(-2'490));
  markRecapError(Figure::kMonthRate);
  EXPECT_EQ(figureValue(&run.recapSheet, Figure::kMonthRate), std::nullopt);
  EXPECT_EQ(figureValue(&run.recapSheet, Figure::kUnits), std::nullopt) << "nothing wrote it";
}

TEST_F(Profit, WithoutSalesTheRatesAreZero) {
  addLine(1, {0, 0, 0, 0, 0, 0});
  run.load<frmProfit>();
  EXPECT_EQ(recapBlock(), (Cells{"$0.00", "$0.00", "00.00%", "$0.00", "$0.00", "00.00%", "$0.00",
                                 "$0.00", "00.00%"}));
}

TEST_F(Profit, SalesThatCancelOutHaveNoRate) {
  addLine(1, {5'000, 4'000, 0, 0, 0, 0});
  addLine(2, {-5'000, -3'000, 0, 0, 0, 0});
  auto& view = run.load<frmProfit>();
  EXPECT_EQ(column(view.grdProfit, "mtdgpr"), (Cells{"20.0%", "40.0%"}));
  EXPECT_EQ(run.recap(13), "$0.00");
  EXPECT_EQ(run.recap(14), "$10.00");
  EXPECT_EQ(run.recap(15), "00.00%");
}

TEST_F(Profit, AFailureLeavesTheBlockAsItWas) {
  addLine(1, {5'000, 4'000, 1, 1, 1, 1});
  run.builder.index("LINEI").add(sample::integerKey('C', 2, 2), 77);
  auto& view = run.load<frmProfit>();
  EXPECT_EQ(view.grdProfit.Rows(), 1);
  EXPECT_EQ(recapBlock(), (Cells{"", "", "", " ", " ", " ", "", "", ""}));
  EXPECT_EQ(run.logged, Cells{"*Error in frmProfit GetProfit routine error # :  81  Illegal "
                              "Record Number for File: LINEL and Record:  77"});
}

}  // namespace
}  // namespace dg::test
