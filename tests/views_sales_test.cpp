#include <array>
#include <string>

#include "tests/support/view_run.h"
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
    const std::int32_t number = run.builder.extended("MANL", "EMANL").add(record.bytes());
    run.builder.index("MANI").add(record.bytes().substr(2, 2), number);
    return number;
  }
  void addKey(std::int32_t number, std::int32_t record) {
    run.builder.index("MANI").add(sample::integerKey('C', number, 2), record);
  }
};

TEST_F(Sales, TheNetTakesEveryAmountAsPositive) {
  add(man(1)
          .integer(38, 'L', -10'000)
          .integer(46, 'L', -3'000)
          .integer(74, 'L', -2'000)
          .integer(333, 'L', -5'000));
  add(man(2).integer(46, 'L', 7'000));
  auto& view = run.load<frmSales>();
  EXPECT_EQ(column(view.grdCash, "Cash"), (Cells{"-100.00", ".00"}));
  EXPECT_EQ(column(view.grdCash, "Refunds"), (Cells{"-30.00", "70.00"}));
  EXPECT_EQ(column(view.grdCash, "ROA"), (Cells{"20.00", ".00"}));
  EXPECT_EQ(column(view.grdCash, "Deposits"), (Cells{"-50.00", ".00"}));
  EXPECT_EQ(column(view.grdCash, "Net"), (Cells{"140.00", "-70.00"}));
  EXPECT_EQ(run.recap(10), "$70.00");
}

TEST_F(Sales, AnEntryOfAnotherNumberIsLeftOutAndTheScanGoesOn) {
  const std::int32_t first = add(man(4).integer(54, 'L', 100).integer(38, 'L', 100));
  addKey(5, first);
  add(man(6).integer(54, 'L', 200).integer(38, 'L', 200));
  // Nobody has number 0; the scan begins behind it.
  addKey(0, first);
  auto& view = run.load<frmSales>();
  EXPECT_EQ(column(view.grdSales, "Man"), (Cells{"4", "6"}));
  EXPECT_EQ(column(view.grdCash, "Man"), (Cells{"4", "6"}));
  EXPECT_EQ(run.recap(7), "$3.00");
  EXPECT_EQ(run.recap(10), "$3.00");
}

TEST_F(Sales, AFailureMarksTheSalesAndLeavesTheCash) {
  add(man(4).integer(54, 'L', 100));
  addKey(9, 300);
  auto& view = run.load<frmSales>();
  EXPECT_EQ(view.grdCash.Rows(), 1);
  EXPECT_EQ(run.recap(10), "");
  run.expectFailure(7,
                    "*Error in frmSales GetSales routine error # :  81  Illegal Record Number for "
                    "File: MANL and Record:  300");
}

}  // namespace
}  // namespace dg::test
