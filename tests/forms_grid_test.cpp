#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "forms/grid.h"
#include "platform/message_box.h"
#include "platform/values/run_time_error.h"
#include "tests/support/error_number.h"

namespace dg {
namespace {

using std::string_literals::operator""s;

constexpr ColumnSpec kColumns[] = {
    {.name = "Line", .kind = ColumnKind::kNumber},
    {.name = "Merchandise", .caption = "Investment", .mask = kCurrencyStyle},
    {.name = "Turns", .mask = "####.00"},
    {.name = "Investment", .caption = "Share"},
};

std::vector<std::string> column(const Grid& grid, int index) {
  std::vector<std::string> cells;
  for (const Grid::Row& row : grid.rows())
    cells.push_back(row[static_cast<std::size_t>(index)]);
  return cells;
}

void fill(Grid& grid, const std::vector<std::string>& cells) {
  for (const std::string& cell : cells) {
    grid.AddNew();
    grid.set(0, cell);
  }
}

TEST(GridTest, ColumnsAreFoundByPositionThenNameThenCaption) {
  const Grid grid("grd", kColumns);
  EXPECT_EQ(grid.columnIndex("Turns"), 2);
  EXPECT_EQ(grid.columnIndex("Share"), 3);
  EXPECT_EQ(grid.columnIndex("Investment"), 3) << "a name goes before a caption";
  EXPECT_EQ(grid.columnIndex(1), 1);
  EXPECT_EQ(errorNumber([&] { grid.columnIndex("turns"); }), kSubscriptOutOfRange);
  EXPECT_EQ(errorNumber([&] { grid.columnIndex(4); }), kSubscriptOutOfRange);
  EXPECT_EQ(errorNumber([&] { grid.columnIndex(-1); }), kSubscriptOutOfRange);
}

TEST(GridTest, CellsHoldWhatTheUserSees) {
  Grid grid("grd", kColumns);
  grid.AddNew();
  grid.set("Line", 120);
  grid.set("Merchandise", Currency::fromTenThousandths(-12'345'000));
  grid.set("Turns", 0.5);
  grid.set(3, "  AB \0 \0"s);
  EXPECT_EQ(grid.rows()[0], (Grid::Row{"120", "($1,234.50)", ".50", "  AB"}));

  grid.set("Line", Currency::fromTenThousandths(125'000));
  grid.set("Merchandise", 7);
  grid.set("Turns", "as it is"s);
  grid.set(3, Date::fromText("12/5/2026"));
  EXPECT_EQ(grid.rows()[0], (Grid::Row{"12.5", "$7.00", "as it is", "12/5/26"}));

  grid.set(3, Variant{});
  EXPECT_EQ(grid.CellValue(3, 0), "");
}

TEST(GridTest, ARowStaysFromItsAddNewOn) {
  Grid grid("grd", kColumns);
  EXPECT_EQ(errorNumber([&] { grid.set("Line", 1); }), kObjectNotSet);
  grid.AddNew();
  grid.set("Line", 1);
  EXPECT_EQ(errorNumber([&] { grid.set("no such", 1); }), kSubscriptOutOfRange);
  EXPECT_EQ(grid.rows(), (std::vector<Grid::Row>{{"1", "", "", ""}}));
  EXPECT_EQ(errorNumber([&] { (void)grid.CellValue(0, 1); }), kSubscriptOutOfRange);
}

TEST(GridTest, AnItemFillsTheColumnsThatThereAre) {
  Grid grid("grd", kColumns);
  grid.AddItem("1\ttwo  \t\tfour\tfive");
  grid.AddItem("");
  EXPECT_EQ(grid.rows(), (std::vector<Grid::Row>{{"1", "two", "", "four"}, {"", "", "", ""}}));
}

TEST(GridTest, TheCurrentRowFollowsMovesAndRemovals) {
  Grid grid("grd", kColumns);
  grid.MoveFirst();
  EXPECT_EQ(grid.Bookmark(), -1);
  fill(grid, {"a", "b", "c", "d"});
  EXPECT_EQ(grid.Bookmark(), 3);
  EXPECT_EQ(errorNumber([&] { grid.setBookmark(4); }), kSubscriptOutOfRange);

  grid.setBookmark(2);
  grid.SelBookmarks = {3, 2};
  grid.removeRow(0);
  EXPECT_EQ(grid.Bookmark(), 1);
  EXPECT_EQ(grid.SelBookmarks, (std::vector<int>{2, 1}));

  grid.reorder({2, 0, 1});
  EXPECT_EQ(column(grid, 0), (std::vector<std::string>{"d", "b", "c"}));
  EXPECT_EQ(grid.Bookmark(), 2);
  EXPECT_EQ(grid.SelBookmarks, (std::vector<int>{0, 2}));

  grid.DeleteSelected();
  EXPECT_EQ(column(grid, 0), (std::vector<std::string>{"b"}));
  EXPECT_EQ(grid.Bookmark(), 0);
  EXPECT_TRUE(grid.SelBookmarks.empty());
  EXPECT_EQ(errorNumber([&] { grid.removeRow(1); }), kSubscriptOutOfRange);
}

TEST(GridTest, AnOrderThatLosesRowsIsRefused) {
  Grid grid("grd", kColumns);
  fill(grid, {"a", "b"});
  for (const std::vector<int>& order : {std::vector<int>{0}, {0, 0}, {0, 2}, {-1, 0}}) {
    EXPECT_EQ(errorNumber([&] { grid.reorder(order); }), kInvalidProcedureCall);
  }
  EXPECT_EQ(column(grid, 0), (std::vector<std::string>{"a", "b"}));
}

TEST(GridTest, ChangesAreToldOnceForAllWhileRedrawWasOff) {
  Grid grid("grd", kColumns);
  int changes = 0;
  const Connection watch = grid.changed.connect([&] { ++changes; });
  grid.setRedraw(false);
  fill(grid, {"a", "b", "c"});
  EXPECT_EQ(changes, 0);
  grid.setRedraw(true);
  EXPECT_EQ(changes, 1);
  grid.setRedraw(false);
  grid.setRedraw(true);
  EXPECT_EQ(changes, 1) << "nothing has changed";
  grid.RemoveAll();
  EXPECT_EQ(changes, 2);
}

TEST(GridTest, NewRowsTakeTheSortMarkAway) {
  Grid grid("grd", kColumns);
  fill(grid, {"a", "b"});
  grid.markSorted(2, true);
  grid.reorder({1, 0});
  EXPECT_EQ(grid.sortedColumn(), 2);
  EXPECT_TRUE(grid.sortedDescending());
  grid.AddNew();
  EXPECT_EQ(grid.sortedColumn(), -1);
}

TEST(GridTest, ErrorsOfAClickEndInAMessage) {
  Grid grid("grd", kColumns);
  fill(grid, {"a", "b"});
  std::vector<MessageBox> boxes;
  const auto former = setMessageBoxHandler([&](const MessageBox& box) { boxes.push_back(box); });
  std::vector<int> clicked;
  grid.onRowClick = [&](int row) {
    clicked.push_back(row);
    EXPECT_EQ(grid.Bookmark(), row);
    throw RunTimeError(kTypeMismatch);
  };
  grid.onHeadClick = [&](int index) { grid.columnIndex(index + 10); };
  grid.rowClick(0);
  grid.rowClick(2);
  grid.headClick(1);
  grid.headClick(4);
  grid.dblClick(0);
  setMessageBoxHandler(former);
  EXPECT_EQ(clicked, (std::vector<int>{0}));
  ASSERT_EQ(boxes.size(), 2U);
  EXPECT_EQ(boxes[0].text, "Run-time error '13':\n\nType mismatch");
  EXPECT_EQ(boxes[1].text, "Run-time error '9':\n\nSubscript out of range");
}

}  // namespace
}  // namespace dg
