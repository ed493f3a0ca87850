#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

#include "engine/codec.h"
#include "engine/state.h"
#include "shell/sort_grid.h"
#include "shell/splash.h"
#include "tests/support/line_records.h"
#include "tests/support/paged_records.h"
#include "tests/support/view_run.h"
#include "views/operational/floor_plan.h"
#include "views/operational/shop.h"

namespace dg::test {
namespace {

using sample::integerKey;

constexpr int kEntryLength = 256;
constexpr int kExtentLength = 32;

/// An entry with a cost in hundredths.
RecordWriter entry(std::int32_t line, int cost) {
  RecordWriter record(kEntryLength);
  record.integer(1, 'J', 1).integer(3, 'C', line).integer(51, 'K', cost);
  return record;
}

class FloorPlanTest : public testing::Test {
 protected:
  void add(std::int32_t line, const RecordWriter& record) {
    const std::int32_t at = run.builder.records("FPLNL").add(record.bytes());
    run.builder.index("FPLNI").add(integerKey('C', line, 2) + integerKey('L', at, 4), at);
  }
  /// Adds a part under a key of 14 bytes; returns its record.
  std::int32_t addPart(const std::string& key, int cost) {
    const std::int32_t at = run.builder.records("PARTL").add(
        RecordWriter(256).integer(1, 'J', 1).raw(3, 14, key).integer(61, 'D', cost).bytes());
    run.builder.index("PARTI").add(key, at);
    return at;
  }
  void addExtent(std::string_view line, std::string_view part, int quantity, int cost, int net,
                 std::int32_t next) {
    run.builder.records("FPEXL").add(RecordWriter(kExtentLength)
                                         .packed(3, 2, line)
                                         .packed(5, 12, part)
                                         .integer(17, 'J', quantity)
                                         .integer(19, 'D', cost)
                                         .integer(22, 'D', net)
                                         .integer(29, 'D', next)
                                         .bytes());
  }
  /// Opens a line's entries, and from there what a click on each of the given rows opens.
  void clickThrough(const std::vector<int>& rows) {
    run.onModal = [rows](Form& form) {
      if (auto* detail = dynamic_cast<frmFpdtl*>(&form)) {
        for (const int row : rows)
          detail->grdFpdtl.rowClick(row);
      }
    };
    run.click(run.load<frmFp>().grdFp);
  }

  ViewRun run;
};

std::string key(std::string_view text, std::string_view head = " ,/.") {
  return RecordWriter(14).packed(1, 14, text, head).bytes();
}

TEST_F(FloorPlanTest, OnlyWhatIsNeitherSoldNorInvoicedIsOnTheFloor) {
  addLine(run.builder, 7, "MOWERS", "U");
  addLine(run.builder, 8, "BOATS", "P");
  addLine(run.builder, 999, "SAWS", "R");
  addLine(run.builder, 1000, "RESERVED", "U");
  add(7, entry(7, 1'234'567));
  add(7, entry(7, 1'000).integer(41, 'C', 1));  // reads as an empty date, and yet is set
  add(7, entry(7, 1'000).integer(60, 'L', -1));
  add(7, entry(7, 33));
  add(8, entry(8, 1'000).integer(41, 'C', 21'000).integer(60, 'L', 5));
  add(999, entry(999, -500));
  add(1000, entry(1000, 1'000));
  const frmFp& view = run.load<frmFp>();
  EXPECT_THAT(view.grdFp.rows(),
              ElementsAre(ElementsAre("7", "MOWERS", "12,346.00", ".00", "12,346.00"),
                          ElementsAre("999", "SAWS", "-5.00", ".00", "-5.00")));
  EXPECT_EQ(run.recap(11), "$12,341.00");
  EXPECT_EQ(view.lblFpTot.caption(), "Total  : $12,341.00");
  EXPECT_EQ(view.grdFp.Bookmark(), 0);
  EXPECT_EQ(splash().lblProgress.caption(), "Loading Floor Plan Data...");
  EXPECT_THAT(run.logged, IsEmpty());
}

TEST_F(FloorPlanTest, LinesWhoseCostsCancelHaveNoRow) {
  addLine(run.builder, 7, "MOWERS", "U");
  add(7, entry(7, 100));
  add(7, entry(7, -100));
  EXPECT_EQ(run.load<frmFp>().grdFp.Rows(), 0);
  EXPECT_EQ(run.recap(11), "$.00");
}

TEST_F(FloorPlanTest, AnEntryWithoutACostHasThatOfItsPart) {
  addLine(run.builder, 7, "MOWERS", "U");
  // The key is the model and the first two bytes of the serial number.
  addPart(key("AB MODEL1"), 16'777'215);
  addPart(key("AB MODEL2         XYZ"), 500);
  add(7, entry(7, 0).packed(5, 12, "AB MODEL1"));
  add(7, entry(7, 0).packed(5, 12, "AB MODEL1").packed(17, 12, "SN1"));
  add(7, entry(7, 0).packed(5, 12, "AB MODEL2").packed(17, 12, "XYZ99"));
  add(7, entry(7, 0).packed(5, 12, "AB MODEL0"));
  add(7, entry(7, 1).packed(5, 12, "AB MODEL1"));
  const ShownWindow window = run.click(run.load<frmFp>().grdFp);
  Cells costs;
  for (const Grid::Row& row : window.grids.at("grdFpdtl"))
    costs.push_back(row.at(13));
  EXPECT_THAT(costs, ElementsAre("167,772.15", ".00", "5.00", ".00", ".01"));
  EXPECT_EQ(run.recap(11), "$167,777.16");
}

TEST_F(FloorPlanTest, TheDetailShowsTheEntries) {
  addLine(run.builder, 7, "MOWERS", "U");
  RecordWriter full = entry(7, 1'234'500);
  full.packed(5, 12, "A/B 1")
      .packed(17, 12, "C/D 2")
      .packed(29, 6, "REF1")
      .packed(35, 4, "REF2")
      .date(39, 'J', *Date::fromCalendar(2026, 1, 5))
      .date(43, 'J', *Date::fromCalendar(2026, 7, 5))
      .date(45, 'J', *Date::fromCalendar(2026, 6, 30))
      .packed(47, 4, "PMT")
      .integer(54, 'K', 1'500'000)
      .integer(57, 'D', 501)
      .integer(94, 'D', 12);
  add(7, full);
  add(7, entry(7, 5).integer(39, 'C', 1));
  const ShownWindow window = run.click(run.load<frmFp>().grdFp);
  EXPECT_EQ(window.name, "frmFpdtl");
  EXPECT_EQ(window.labels.at("Label1"), "Line  7 - MOWERS");
  // Model and serial number are read with different tables: the same bytes, and not the same text.
  EXPECT_THAT(
      window.grids.at("grdFpdtl"),
      ElementsAre(
          ElementsAre("A/B 1", "C-D 2", "Yes", "", "501", "0", "15,000.00", "1/5/26", "7/5/26",
                      "REF1", "REF2", "6/30/26", "PMT", "12,345.00", "12"),
          ElementsAre("", "", "No", "", "0", "0", ".00", "", "", "", "", "", "", ".05", "0")));
}

TEST_F(FloorPlanTest, ThePackedTextTableStaysChangedForLaterViews) {
  addLine(run.builder, 7, "MOWERS", "U");
  add(7, entry(7, 100));
  run.builder.controlFile().setJob(
      1, run.builder.records("INVOL").add(
             pageRecord({}, RecordWriter(160).packed(27, 10, "A/B").integer(101, 'C', 1).bytes())));
  EXPECT_THAT(column(run.load<frmShop>().grdShop, "Brand"), ElementsAre("A/B"));
  run.load<frmFp>();
  EXPECT_THAT(column(run.load<frmShop>().grdShop, "Brand"), ElementsAre("A-B"));
}

TEST_F(FloorPlanTest, ExtentsFollowTheirChain) {
  addLine(run.builder, 7, "MOWERS", "U");
  // The description comes from the floor plan's own record of the part's number.
  addPart(key("AB 12345"), 100);
  add(7, entry(7, 100)
             .packed(5, 12, "MODEL")
             .packed(17, 12, "SERIAL")
             .integer(94, 'D', 3)
             .packed(179, 14, "SIDE BAGGER"));
  add(7, entry(7, 100).integer(94, 'D', 0));
  addExtent("AB", "12345", 2, 1'050, 1'234'567, 0);
  addExtent("AB", "99999", -1, 0, 5, 1);
  run.builder.records("FPEXL").add(RecordWriter(kExtentLength)
                                       .packed(3, 2, "REM")
                                       .packed(5, 24, "WITH A TEXT OF THIRTY SIX CHARACTERS")
                                       .integer(29, 'D', 2)
                                       .bytes());
  clickThrough({1, 0});
  ASSERT_THAT(run.windows, SizeIs(2)) << "no extents, no window";
  EXPECT_EQ(run.windows[1].name, "frmFpx");
  EXPECT_EQ(run.windows[1].caption, "Extents...     Model MODEL - SERIAL");
  const Rows& rows = run.windows[1].grids.at("grdfpx");
  ASSERT_THAT(rows, SizeIs(3));
  EXPECT_EQ(rows[0][0], "REM");
  EXPECT_EQ(rows[0][2], "WITH A TEXT OF THIRTY SIX CHARACTERS");
  EXPECT_THAT(rows[1], ElementsAre("AB", "99999", "Description Not Found", "-1", ".00", ".05"));
  EXPECT_THAT(rows[2], ElementsAre("AB", "12345", "SIDE BAGGER", "2", "10.50", "12,345.67"));
  EXPECT_THAT(run.messages, IsEmpty());
}

TEST_F(FloorPlanTest, ExtentsThatLoopOrLeaveTheFileOpenNoWindow) {
  addLine(run.builder, 7, "MOWERS", "U");
  add(7, entry(7, 100).integer(94, 'D', 1));
  add(7, entry(7, 100).integer(94, 'D', 16'000'000));
  addExtent("REM", "", 0, 0, 0, 2);
  addExtent("REM", "", 0, 0, 0, 1);
  clickThrough({0, 1});
  EXPECT_THAT(run.windows, SizeIs(1));
  ASSERT_THAT(run.messages, SizeIs(2));
  EXPECT_THAT(run.messages[0].text, testing::StartsWith("Run-time error '6':"));
  EXPECT_THAT(run.messages[1].text, testing::StartsWith("Run-time error '81':"));
}

TEST_F(FloorPlanTest, AMissingEntryEndsTheLoad) {
  addLine(run.builder, 7, "MOWERS", "U");
  addLine(run.builder, 8, "BOATS", "U");
  add(7, entry(7, 100));
  run.builder.index("FPLNI").add(integerKey('C', 8, 2) + integerKey('L', 1, 4), 4'711);
  const frmFp& view = run.load<frmFp>();
  EXPECT_THAT(column(view.grdFp, "Line"), ElementsAre("7"));
  EXPECT_EQ(run.recap(11), "! Data Error !");
  EXPECT_EQ(view.lblFpTot.caption(), "");
  EXPECT_THAT(run.logged,
              ElementsAre("*Error in frmFp GetFpData routine error # :  81  Illegal Record "
                          "Number for File: FPLNL and Record:  4711"));
}

TEST_F(FloorPlanTest, ALineOfANegativePointerCountsByItsMagnitude) {
  addLine(run.builder, 7, "MOWERS", "U");
  const std::int32_t record =
      addLine(run.builder, lineRecord(9, "").packed(7, 20, "SAWS").raw(142, 1, "U"));
  run.builder.index("LINEI").add(integerKey('C', 8, 2), -record);
  add(7, entry(7, 100));
  add(8, entry(8, 200));
  EXPECT_THAT(column(run.load<frmFp>().grdFp, "Name"), ElementsAre("MOWERS", "SAWS"));
}

TEST_F(FloorPlanTest, TheListSortsByItsFirstThreeColumnsOnly) {
  addLine(run.builder, 10, "B", "U");
  addLine(run.builder, 9, "C", "U");
  addLine(run.builder, 200, "A", "U");
  add(10, entry(10, 99'900));
  add(9, entry(9, 50'000));
  add(200, entry(200, 100'000));
  frmFp& view = run.load<frmFp>();
  const auto sorted = [&view](int head) { return sortedBy(view.grdFp, head, "Line"); };
  EXPECT_THAT(sorted(1), ElementsAre("200", "10", "9"));
  EXPECT_THAT(sorted(3), ElementsAre("200", "10", "9"));
  EXPECT_THAT(sorted(4), ElementsAre("200", "10", "9")) << "Total has no sort";
  EXPECT_EQ(gSortDirection, 0);
  EXPECT_THAT(sorted(2), ElementsAre("9", "10", "200"));
  EXPECT_THAT(sorted(0), ElementsAre("9", "10", "200"));
}

TEST_F(FloorPlanTest, TheDetailSortsDatesAndInvoicesAsTexts) {
  addLine(run.builder, 7, "MOWERS", "U");
  const struct {
    int cost, account, amount;
    Date received;
  } entries[] = {{100'000, 9, 5'000, *Date::fromCalendar(2026, 9, 1)},
                 {99'900, 10, 40'000, *Date::fromCalendar(2026, 10, 1)},
                 {1'000'000, 1, 300'000, *Date::fromCalendar(2026, 1, 15)}};
  for (const auto& item : entries) {
    add(7, entry(7, item.cost)
               .date(39, 'J', item.received)
               .integer(54, 'K', item.amount)
               .integer(57, 'D', item.account));
  }
  run.onModal = [](Form& form) {
    Grid& grid = dynamic_cast<frmFpdtl&>(form).grdFpdtl;
    const auto sorted = [&grid](int head) { return sortedBy(grid, head, "Cust #"); };
    EXPECT_THAT(sorted(13), ElementsAre("10", "9", "1")) << "999.00, 1,000.00, 10,000.00";
    EXPECT_THAT(sorted(4), ElementsAre("1", "9", "10"));
    EXPECT_THAT(sorted(7), ElementsAre("1", "10", "9")) << "1/15/26, 10/1/26, 9/1/26";
    EXPECT_THAT(sorted(6), ElementsAre("9", "10", "1"));
    EXPECT_THAT(sorted(14), ElementsAre("9", "10", "1")) << "the hidden column has no sort";
  };
  run.click(run.load<frmFp>().grdFp);
  EXPECT_THAT(run.messages, IsEmpty());
}

}  // namespace
}  // namespace dg::test
