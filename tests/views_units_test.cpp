#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "shell/sort_grid.h"
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

class UnitsTest : public testing::Test {
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

  ViewRun run;
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

TEST_F(UnitsTest, OnlyTheLetterUMarksALineOfUnits) {
  int number = 0;
  for (const char* type : {"u", "P", " ", "R", "U"})
    addLine(run.builder, ++number, type, type);
  const frmUnits& view = run.load<frmUnits>();
  EXPECT_THAT(column(view.grdUnits, "Line"), ElementsAre("5"));
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

TEST_F(UnitsTest, ALineOfANegativePointerCountsByItsMagnitude) {
  addLine(run.builder, 7, "WHOLE GOODS", "U");
  const std::int32_t record = addLine(run.builder, lineRecord(9, "").raw(142, 1, "U"));
  run.builder.index("LINEI").add(integerKey('C', 8, 2), -record);
  EXPECT_THAT(column(run.load<frmUnits>().grdUnits, "Line"), ElementsAre("7", "9", "9"));
}

TEST_F(UnitsTest, CentsAreAddedExactly) {
  addLine(run.builder, 7, "WHOLE GOODS", "U");
  addLedger(10, 2);
  addLedger(20, 3);
  addLedger(2'147'483'647, 4);
  addLedger(2'147'483'647, 0);
  add(7, "A", unit(7, "A", 1));
  run.load<frmUnits>();
  EXPECT_EQ(run.recap(12), "$42,949,673.24");
}

TEST_F(UnitsTest, HeadsSort) {
  addLine(run.builder, 10, "A", "U");
  addLine(run.builder, 9, "C", "U");
  addLine(run.builder, 200, "B", "U");
  addLedger(100'000, 0);
  addLedger(99'900, 0);
  add(10, "A", unit(10, "A", 1));
  add(200, "B", unit(200, "B", 2));
  frmUnits& view = run.load<frmUnits>();
  const auto sorted = [&view](int head) { return sortedBy(view.grdUnits, head, "Line"); };
  EXPECT_THAT(sorted(1), ElementsAre("10", "200", "9"));
  EXPECT_THAT(sorted(0), ElementsAre("9", "10", "200"));
  EXPECT_THAT(sorted(2), ElementsAre("9", "200", "10")) << ".00, 999.00, 1,000.00";
}

TEST_F(UnitsTest, TheDetailListsTheLinesUnsoldUnits) {
  addLine(run.builder, 7, "WHOLE GOODS", "U");
  addLedger(1'000'000, 2);
  addLedger(-5, 0);
  RecordWriter first = unit(7, "A1", 1);
  first.packed(5, 12, "MODEL/1").packed(28, 14, "CHAIN SAW").raw(42, 15, "MAKE");
  add(7, "A1", first);
  add(7, "B2", unit(7, "B2", 2));
  add(7, "C3", unit(7, "C3", 1).integer(149, 'C', 21'000));
  add(7, "D4", unit(7, "D4"));
  add(8, "E5", unit(8, "E5", 1));
  const ShownWindow window = run.click(run.load<frmUnits>().grdUnits);
  EXPECT_EQ(window.name, "frmUnitDtl");
  EXPECT_EQ(window.caption, "Unit Detail");
  EXPECT_EQ(window.labels.at("Label1"), "Line  7 - WHOLE GOODS");
  EXPECT_THAT(window.grids.at("grdUnitDtl"),
              ElementsAre(ElementsAre("MODEL/1", "A1", "MAKE", "CHAIN SAW", "9,999.95", "7"),
                          ElementsAre("", "B2", "", "", "-.05", "7"),
                          ElementsAre("", "D4", "", "", ".00", "7")));
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

TEST_F(UnitInformationTest, ShowsCaptionsAndValues) {
  RecordWriter captions(512);
  captions.raw(433, 8, "Hull ID")
      .raw(441, 8, "not this")
      .raw(453, 8, "TrailerX")
      .raw(473, 8, "Hours")
      .raw(493, 8, "Key");
  run.builder.controlFile().setBlock(4, captions.bytes());
  addLine(run.builder, 7, "WHOLE GOODS", "U");
  RecordWriter record = unit(7, "A1");
  record.packed(57, 12, "SERIAL 1")
      .raw(69, 5, "MFG")
      .integer(74, 'C', 2025)
      .raw(76, 4, "S9")
      .raw(80, 2, "G")
      .raw(82, 12, "ENGINE")
      .raw(94, 2, "4")
      .raw(96, 5, "GREEN")
      .integer(101, 'D', 12'345)
      .raw(104, 1, "A")
      .raw(105, 1, "N")
      .raw(106, 7, "LOTWEST")
      .integer(112, 'L', -7)
      .integer(116, 'L', 42)
      .raw(120, 12, "ALPHA 1")
      .raw(132, 12, "ALPHA 2")
      .integer(144, 'D', 501)
      .date(147, 'J', *Date::fromCalendar(2026, 10, 5))
      .integer(151, 'L', 77)
      .integer(155, 'L', 123'450)
      .integer(159, 'L', 100)
      .integer(163, 'L', -5)
      .integer(210, 'B', 9);
  add(7, "A1", record);
  const Rows rows = information();
  EXPECT_EQ(run.windows.back().name, "frmUnitInfo");
  EXPECT_EQ(run.windows.back().caption, "Unit : A1");
  const auto row = [](const char* caption, const char* value) { return Cells{caption, value}; };
  EXPECT_THAT(rows,
              testing::ElementsAreArray(Rows{
                  row("Serial Number (VID)", "SERIAL 1"), row("Manufacturer ID", "MFG"),
                  row("Model Year", "2025"), row("Series #", "S9"), row("Engine Type", "G"),
                  row("Engine ID #", "ENGINE"), row("Drive Type 2/4", "4"), row("Color", "GREEN"),
                  row("Meter", "12345.0"), row("Status", "A"), row("Unit Type", "N"),
                  // The last byte of the location is the first one of the number behind it.
                  row("Location", "LOTWES\xFF"), row("Hull ID", "ALPHA 1"),
                  row("TrailerX", "ALPHA 2"), row("Hours", "-7"), row("Key", "42"), row("", ""),
                  row("Sold To", "501"), row("Salesman", "9"), row("Date IN", "10/5/26"),
                  row("Date Sold", ""), row("Invoice #", "77"), row("Dealer List", "1234.5"),
                  row("Suggested List", "1"), row("Sold For", "-0.05")}));
}

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
