#include <string>

#include "tests/support/view_run.h"
#include "views/financial/receivables.h"

namespace dg::test {
namespace {

class Receivables : public ViewTest {
 protected:
  /// A summary of so many lines: "L<n>" with a balance of n dollars, line `odd` instead as given.
  static std::string summary(int lines, int odd = 0, const std::string& text = {}) {
    std::string content;
    for (int number = 1; number <= lines; ++number) {
      const std::string label = std::to_string(number);
      content += number == odd ? text : "L" + label + "," + label + "00";
      content += "\r\n";
    }
    return content;
  }
  frmAR& loadWith(const std::string& content) {
    run.builder.addFile("DARR.TRVN", content);
    return run.load<frmAR>();
  }
};

TEST_F(Receivables, LineThirtyIsTheTotalAndTheFuturesFollowIt) {
  auto& view = loadWith(summary(33));
  EXPECT_EQ(view.grdARCur.Rows(), 29);
  EXPECT_EQ(view.grdARCur.rows().front(), (Cells{"L2", "$2.00"}));
  EXPECT_EQ(view.grdARCur.rows().back(), (Cells{"L30", "$30.00"}));
  EXPECT_EQ(view.grdFuture.rows(),
            (std::vector<Cells>{{"L31", "$31.00"}, {"L32", "$32.00"}, {"L33", "$33.00"}}));
  EXPECT_EQ(run.recap(0), "$30.00");
  EXPECT_EQ(view.grdARCur.Bookmark(), 0);
  EXPECT_TRUE(run.logged.empty());
}

TEST_F(Receivables, WithoutLineThirtyThereIsNoTotal) {
  auto& view = loadWith(summary(29));
  EXPECT_EQ(view.grdARCur.Rows(), 28);
  EXPECT_EQ(view.grdFuture.Rows(), 0);
  EXPECT_EQ(run.recap(0), "");
  EXPECT_TRUE(run.logged.empty());
}

TEST_F(Receivables, ExactlyThirtyLinesHaveNoFutures) {
  auto& view = loadWith(summary(30));
  EXPECT_EQ(view.grdARCur.Rows(), 29);
  EXPECT_EQ(view.grdFuture.Rows(), 0);
  EXPECT_EQ(run.recap(0), "$30.00");
}

TEST_F(Receivables, AmountsShowTheirSignAndTheirCents) {
  auto& view = loadWith(summary(30, 30, "Total,-123456789") + "P,5\r\nQ,-1\r\nR,0");
  EXPECT_EQ(run.recap(0), "-$1,234,567.89");
  EXPECT_EQ(view.grdARCur.rows().back(), (Cells{"Total", "-$1,234,567.89"}));
  EXPECT_EQ(column(view.grdFuture, "Balance"), (Cells{"$.05", "-$.01", "$.00"}));
}

TEST_F(Receivables, EmptyFieldsCloseUpAndFurtherOnesAreIgnored) {
  auto& view = loadWith(summary(30, 4, ",Open,,450,77,x"));
  EXPECT_EQ(view.grdARCur.rows()[2], (Cells{"Open", "$4.50"}));
}

TEST_F(Receivables, WithoutAFileTheGridsAreHiddenAndNothingIsSaid) {
  auto& view = run.load<frmAR>();
  EXPECT_FALSE(view.grdARCur.visible());
  EXPECT_FALSE(view.grdFuture.visible());
  EXPECT_EQ(run.recap(0), "");
  EXPECT_TRUE(run.logged.empty());
  EXPECT_TRUE(run.messages.empty());
}

TEST_F(Receivables, AFieldThatIsNoNumberEndsTheLoadThere) {
  auto& view = loadWith(summary(30, 5, "Bad,12x"));
  EXPECT_EQ(column(view.grdARCur, "Description"), (Cells{"L2", "L3", "L4", "Bad"}));
  EXPECT_EQ(column(view.grdARCur, "Balance"), (Cells{"$2.00", "$3.00", "$4.00", ""}));
  run.expectFailure(0, "*Error in frmAr GetAR routine error # :  13  Type mismatch");
}

TEST_F(Receivables, AnEmptyLastLineFailsAndTheTotalGoes) {
  auto& view = loadWith(summary(31) + "\r\n");
  EXPECT_EQ(view.grdARCur.Rows(), 29);
  run.expectFailure(0, "*Error in frmAr GetAR routine error # :  9  Subscript out of range");
}

}  // namespace
}  // namespace dg::test
