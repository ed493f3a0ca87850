#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "shell/splash.h"
#include "tests/support/line_records.h"
#include "tests/support/view_run.h"
#include "views/operational/units.h"

namespace dg::test {
namespace {

using sample::integerKey;

constexpr int kUnitLength = 512;

RecordWriter unit(std::int32_t line, std::string_view number, std::int32_t ledger = 0) {
  RecordWriter record(kUnitLength);
  record.integer(1, 'J', 1).integer(3, 'C', line).raw(20, 8, number).integer(505, 'L', ledger);
  return record;
}

class UnitsTest : public ViewTest {
 protected:
  /// Adds a unit with its entries in both indexes.
  void add(std::int32_t line, std::string_view number, const RecordWriter& record) {
    const std::int32_t at = run.builder.records("UNITL").add(record.bytes());
    const std::string key = RecordWriter(8).raw(1, 8, number).bytes();
    run.builder.index("LUNITI").add(integerKey('C', line, 2) + key, at);
    run.builder.index("UNITI").add(key, at);
  }
  /// Adds a ledger entry; returns its record.
  std::int32_t addLedger(std::int32_t amount, std::int32_t next) {
    return run.builder.records("LUNITL").add(
        RecordWriter(64).integer(57, 'L', amount).integer(61, 'L', next).bytes());
  }
};

TEST_F(UnitsTest, ALineCostsWhatTheLedgersOfItsUnsoldUnitsSay) {
  addLine(run.builder, 7, "WHOLE GOODS", "U");
  addLine(run.builder, 9, "EMPTY LINE", "U");
  addLine(run.builder, 8, "PARTS", "P");
  addLine(run.builder, 999, "LAST", "U");
  addLine(run.builder, 1000, "RESERVED", "U");
  addLedger(1'234'567, 3);   // 1
  addLedger(7, 0);           // 2
  addLedger(-1'000'033, 2);  // 3
  addLedger(500, 0);         // 4
  add(7, "A", unit(7, "A", 1));
  add(7, "B", unit(7, "B", 4).integer(149, 'C', 1));  // reads as the empty date all the same
  add(7, "C", unit(7, "C", 4).integer(149, 'C', 2));
  add(7, "D", unit(7, "D", 0));
  add(8, "E", unit(8, "E", 4));
  add(999, "F", unit(999, "F", 4));
  add(1000, "G", unit(1000, "G", 4));
  const frmUnits& view = run.load<frmUnits>();
  EXPECT_THAT(view.grdUnits.rows(), ElementsAre(ElementsAre("7", "WHOLE GOODS", "2,350.41"),
                                                ElementsAre("9", "EMPTY LINE", ".00"),
                                                ElementsAre("999", "LAST", "5.00")));
  EXPECT_EQ(view.grdUnits.Bookmark(), 0);
  EXPECT_EQ(run.recap(12), "$2,355.41");
  EXPECT_EQ(view.lblFpTot.caption(), "Total  : $2,355.41");
  EXPECT_EQ(splash().lblProgress.caption(), "Loading Unit Data...");
  EXPECT_THAT(run.logged, IsEmpty());
}

TEST_F(UnitsTest, ALoopOrAMissingRecordInALedgerEndsTheLoad) {
  const std::pair<std::int32_t, const char*> cases[] = {
      {1, "6  Overflow"},
      {99, "81  Illegal Record Number for File: LUNITL and Record:  99"},
      {-1, "81  Illegal Record Number for File: LUNITL and Record: -1"}};
  for (const auto& [next, error] : cases) {
    SCOPED_TRACE(error);
    ViewRun other;
    addLine(other.builder, 1, "FIRST", "U");
    addLine(other.builder, 2, "SECOND", "U");
    other.builder.records("LUNITL").add(
        RecordWriter(64).integer(57, 'L', 100).integer(61, 'L', next).bytes());
    const std::int32_t at = other.builder.records("UNITL").add(unit(2, "A", 1).bytes());
    other.builder.index("LUNITI").add(integerKey('C', 2, 2) + "A       ", at);
    const frmUnits& view = other.load<frmUnits>();
    EXPECT_THAT(view.grdUnits.rows(), ElementsAre(ElementsAre("1", "FIRST", ".00")));
    EXPECT_EQ(other.recap(12), "! Data Error !");
    EXPECT_EQ(view.lblFpTot.caption(), "");
    EXPECT_THAT(
        other.logged,
        ElementsAre(std::string("*Error in frmUnits GetUnitData routine error # :  ") + error));
  }
}

class UnitInformationTest : public UnitsTest {
 protected:
  /// The information window of a line's unit by its row.
  Rows information(int row = 0) {
    run.onModal = [row](Form& form) {
      if (auto* detail = dynamic_cast<frmUnitDtl*>(&form)) detail->grdUnitDtl.rowClick(row);
    };
    run.click(run.load<frmUnits>().grdUnits);
    EXPECT_THAT(run.windows, SizeIs(2));
    return run.windows.back().grids["grdUnitinfo"];
  }
};

TEST_F(UnitInformationTest, FindsTheUnitByItsNumber) {
  addLine(run.builder, 7, "WHOLE GOODS", "U");
  add(7, "B", unit(7, "B").raw(69, 5, "OTHER"));
  add(7, "A 1", unit(7, "A 1").raw(69, 5, "THIS"));
  add(7, "A", unit(7, "A").raw(69, 5, "ANOTH"));
  EXPECT_EQ(information(1).at(1).at(1), "THIS");
  EXPECT_EQ(run.windows.back().caption, "Unit : A 1");
}

TEST_F(UnitInformationTest, AUnitThatIsNotInItsIndexOpensNoWindow) {
  addLine(run.builder, 7, "WHOLE GOODS", "U");
  const std::int32_t at = run.builder.records("UNITL").add(unit(7, "A").bytes());
  run.builder.index("LUNITI").add(integerKey('C', 7, 2) + "A       ", at);
  run.onModal = [](Form& form) {
    if (auto* detail = dynamic_cast<frmUnitDtl*>(&form)) detail->grdUnitDtl.rowClick(0);
  };
  run.click(run.load<frmUnits>().grdUnits);
  EXPECT_THAT(run.windows, SizeIs(1));
  ASSERT_THAT(run.messages, SizeIs(1));
  EXPECT_THAT(run.messages[0].text, testing::StartsWith("Run-time error '81':"));
}

}  // namespace
}  // namespace dg::test
