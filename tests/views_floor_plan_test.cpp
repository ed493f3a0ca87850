#include <string>
#include <string_view>
#include <vector>

#include "engine/state.h"
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

class FloorPlanTest : public ViewTest {
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

TEST_F(FloorPlanTest, ALineOfANegativePointerCountsByItsMagnitude) {
  addLine(run.builder, 7, "MOWERS", "U");
  const std::int32_t record =
      addLine(run.builder, lineRecord(9, "").packed(7, 20, "SAWS").raw(142, 1, "U"));
  run.builder.index("LINEI").add(integerKey('C', 8, 2), -record);
  add(7, entry(7, 100));
  add(8, entry(8, 200));
  EXPECT_THAT(column(run.load<frmFp>().grdFp, "Name"), ElementsAre("MOWERS", "SAWS"));
}

}  // namespace
}  // namespace dg::test
