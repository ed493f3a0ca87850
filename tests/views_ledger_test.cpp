#include <string>

#include "platform/settings.h"
#include "shell/setup.h"
#include "tests/support/view_run.h"
#include "views/financial/ledger_accounts.h"

namespace dg::test {
namespace {

struct Posting {
  std::int32_t cents = 0;
  std::int32_t sign = 0;
  std::int32_t millions = 0;
};

class Ledger : public ViewTest {
 protected:
  void addAccount(std::int32_t company, std::int32_t account, const std::string& kind = "A") {
    addChartEntry(company, account,
                  chartRecord(company, account, kind, "ACCOUNT " + std::to_string(account)));
  }
  RecordWriter chartRecord(std::int32_t company, std::int32_t account, const std::string& kind,
                           const std::string& description) {
    RecordWriter record(64);
    record.integer(1, 'J', 1).integer(3, 'C', company).integer(5, 'L', account);
    record.raw(9, 1, kind).raw(10, 30, description);
    return record;
  }
  void addChartEntry(std::int32_t company, std::int32_t account, const RecordWriter& record) {
    run.builder.index("CHRTI").add(
        RecordWriter(6).integer(1, 'C', company).integer(3, 'L', account).bytes(),
        run.builder.records("CHRTL").add(record.bytes()));
  }
  /// A detail record of `owner` under the key of an account.
  void addDetail(std::int32_t company, std::int32_t account, std::int32_t owner, Posting posting) {
    addDetailKey(company, account,
                 run.builder.records("GLDTL").add(RecordWriter(64)
                                                      .integer(5, 'L', owner)
                                                      .integer(53, 'B', posting.sign)
                                                      .integer(54, 'C', posting.millions)
                                                      .integer(56, 'L', posting.cents)
                                                      .bytes()));
  }
  void addDetailKey(std::int32_t company, std::int32_t account, std::int32_t record) {
    run.builder.index("GLDTI").add(
        RecordWriter(10).integer(1, 'C', company).integer(3, 'L', account).raw(7, 4, "SJ").bytes(),
        record);
  }
  /// An account with a posting.
  void addPosted(std::int32_t company, std::int32_t account, Posting posting) {
    addAccount(company, account);
    addDetail(company, account, account, posting);
  }
  /// Details behind all others, so that no account of a test is the last.
  void addEnd() { addDetail(60'000, 1, 1, {}); }
  void choose(const char* section, const std::string& list) {
    SaveSetting("DealerGauge", section, "Accounts", list);
  }
};

TEST_F(Ledger, BalancesAddUpSignsAndMillions) {
  addPosted(1, 10'100, {.cents = 50'000, .sign = 1, .millions = 2});
  addPosted(1, 10'200, {.cents = 12'345});
  addDetail(1, 10'200, 10'200, {.cents = 45, .sign = 2});
  addDetail(1, 10'200, 10'200, {.cents = -100});
  addPosted(2, 10'100, {.cents = 700, .sign = 1});
  addEnd();
  choose("Asset", "0210100,0110100,0110200");
  auto& view = run.load<frmGLA>();
  EXPECT_EQ(view.grdGLCash.rows(),
            (std::vector<Cells>{{"2", "10100", "ACCOUNT 10100", "-$7.00"},
                                {"1", "10100", "ACCOUNT 10100", "$19,500.00"},
                                {"1", "10200", "ACCOUNT 10200", "$122.90"}}));
  EXPECT_EQ(run.recap(4), "$19,615.90");
  EXPECT_EQ(view.lblTotal.caption(), "$19,615.90");
  EXPECT_TRUE(run.logged.empty());
}

TEST_F(Ledger, TheLastAccountAndOneWithoutDetailsHaveNoBalance) {
  addAccount(1, 100);
  addPosted(1, 200, {.cents = 500});
  addAccount(2, 300);
  addPosted(2, 400, {.cents = 900});
  addDetail(2, 400, 400, {.cents = 900});
  choose("Asset", "01100,01200,02300,02400");
  auto& view = run.load<frmGLA>();
  EXPECT_EQ(column(view.grdGLCash, "Balance"), (Cells{"$.00", "$5.00", "$.00", "$.00"}));
  EXPECT_EQ(run.recap(4), "$5.00");
}

TEST_F(Ledger, TheLiabilitiesHaveTheirOwnListLabelAndTotal) {
  addPosted(1, 100, {.cents = 100});
  addPosted(1, 200, {.cents = 250});
  addEnd();
  choose("Asset", "01100");
  choose("Liability", "01200");
  auto& assets = run.load<frmGLA>();
  auto& liabilities = run.load<frmGLL>();
  EXPECT_EQ(column(assets.grdGLCash, "Account"), Cells{"100"});
  EXPECT_EQ(column(liabilities.grdGLCash, "Account"), Cells{"200"});
  EXPECT_EQ(run.recap(4), "$1.00");
  EXPECT_EQ(run.recap(9), "$2.50");
  EXPECT_EQ(liabilities.get<Label>("lbltotal").caption(), "Total $2.50");
}

TEST_F(Ledger, AListNeverStoredAsksForCompanyOneAccountZero) {
  addPosted(1, 0, {.cents = 100});
  addPosted(1, 1, {.cents = 100});
  addEnd();
  auto& view = run.load<frmGLA>();
  EXPECT_EQ(column(view.grdGLCash, "Account"), Cells{"0"});
  choose("Asset", "");
  auto& emptied = run.load<frmGLA>();
  EXPECT_EQ(emptied.grdGLCash.Rows(), 0);
  EXPECT_EQ(run.recap(4), "$.00");
}

TEST_F(Ledger, EntriesAreReadAsFarAsTheyAreNumbers) {
  addPosted(0, 1'234, {.cents = 1});
  addPosted(1, 0, {.cents = 10});
  addPosted(1, 234, {.cents = 100});
  addPosted(1, 567, {.cents = 1'000});
  addPosted(12, 568, {.cents = 10'000});
  addEnd();
  // Letters are 0, blanks inside a number do not count, a blank in front shifts the company, and
  // empty entries are none.
  choose("Asset", ",01X,,012 34, 01234,01567AB,12568,0199999,");
  auto& view = run.load<frmGLA>();
  EXPECT_EQ(column(view.grdGLCash, "Balance"),
            (Cells{"$.10", "$1.00", "$.01", "$10.00", "$100.00"}));
  EXPECT_EQ(run.recap(4), "$111.11");
  EXPECT_TRUE(run.logged.empty());
}

TEST_F(Ledger, AnAccountNumberBeyondTheRangeFailsTheView) {
  addPosted(1, 5, {.cents = 100});
  addEnd();
  choose("Asset", "015,0199999999999,015");
  auto& view = run.load<frmGLA>();
  EXPECT_EQ(view.grdGLCash.Rows(), 1);
  run.expectFailure(4, "*Error in frmGLA GetGLData routine error # :  6  Overflow");
}

TEST_F(Ledger, TheChartsRecordDecidesWhereItDisagreesWithItsIndex) {
  addChartEntry(1, 500, chartRecord(2, 600, "A", "MOVED"));
  addDetail(1, 500, 500, {.cents = 100});
  addDetail(2, 600, 600, {.cents = 200});
  addEnd();
  choose("Asset", "01500");
  auto& view = run.load<frmGLA>();
  EXPECT_EQ(view.grdGLCash.rows(), (std::vector<Cells>{{"2", "600", "MOVED", "$2.00"}}));
}

TEST_F(Ledger, ASignedPointerIsADetailLikeAnyOther) {
  addPosted(1, 500, {.cents = 100});
  const std::int32_t second = run.builder.records("GLDTL").add(
      RecordWriter(64).integer(5, 'L', 500).integer(56, 'L', 4'000).bytes());
  addDetailKey(1, 500, -second);
  addDetail(1, 500, 500, {.cents = 20'000});
  addEnd();
  choose("Asset", "01500");
  auto& view = run.load<frmGLA>();
  EXPECT_EQ(column(view.grdGLCash, "Balance"), Cells{"$241.00"});
}

TEST_F(Ledger, ADetailOfAnotherAccountEndsTheSum) {
  addPosted(1, 500, {.cents = 100});
  addDetail(1, 500, 501, {.cents = 200});
  addDetail(1, 500, 500, {.cents = 400});
  // Companies are not looked at: the same account that follows in the next one counts as well.
  addPosted(1, 700, {.cents = 100});
  addPosted(2, 700, {.cents = 5'000});
  addEnd();
  choose("Asset", "01500,01700");
  auto& view = run.load<frmGLA>();
  EXPECT_EQ(column(view.grdGLCash, "Balance"), (Cells{"$1.00", "$51.00"}));
}

TEST_F(Ledger, ABalanceThatFailsIsLoggedAndTheListGoesOn) {
  addPosted(1, 500, {.cents = 100});
  addDetailKey(1, 500, 88);
  addPosted(1, 600, {.cents = 300});
  addEnd();
  choose("Liability", "01500,01600");
  auto& view = run.load<frmGLL>();
  EXPECT_EQ(column(view.grdGLCash, "Balance"), (Cells{"$.00", "$3.00"}));
  EXPECT_EQ(run.recap(9), "$3.00");
  EXPECT_EQ(run.logged, Cells{"*Error in frmGLL GetGLBalance function error # :  81  \r\n"
                              "Illegal Record Number for File: GLDTL and Record:  88"
                              "  at line :0\r\ngldtl record =88\r\nAcct=500"});
}

TEST_F(Ledger, ChosenAccountsAreWorkedOutAnew) {
  addPosted(1, 100, {.cents = 100});
  addAccount(1, 200, "L");
  addDetail(1, 200, 200, {.cents = 700});
  addEnd();
  auto& view = run.load<frmGLL>();
  ASSERT_EQ(run.recap(9), "$.00");
  Label& busy = view.lblReCalc;
  bool wasBusy = false;
  const Connection watch = busy.changed.connect([&] { wasBusy = wasBusy || busy.visible(); });
  run.onModal = [](Form& form) {
    auto& setup = dynamic_cast<frmSetup&>(form);
    EXPECT_EQ(column(setup.grdA(0), "Account #"), Cells{"200"}) << "liabilities alone";
    setup.cmdMove(1).click();
    setup.cmdDone.click();
  };
  view.cmdCashSetup.click();
  EXPECT_EQ(view.grdGLCash.rows(), (std::vector<Cells>{{"1", "200", "ACCOUNT 200", "$7.00"}}));
  EXPECT_EQ(run.recap(9), "$7.00");
  EXPECT_TRUE(wasBusy);
  EXPECT_FALSE(busy.visible());
  EXPECT_EQ(view.mousePointer(), kDefaultPointer);
}

TEST_F(Ledger, ACancelledSelectionChangesNothing) {
  addPosted(1, 100, {.cents = 100});
  addEnd();
  choose("Asset", "01100");
  auto& view = run.load<frmGLA>();
  choose("Asset", "");
  run.onModal = [](Form& form) { dynamic_cast<frmSetup&>(form).cmdCancel.click(); };
  view.cmdCashSetup.click();
  EXPECT_EQ(view.grdGLCash.Rows(), 1);
  EXPECT_EQ(run.recap(4), "$1.00");
}

}  // namespace
}  // namespace dg::test
