#include <gtest/gtest.h>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "platform/values/convert.h"
#include "platform/values/run_time_error.h"
#include "shell/sort_grid.h"
#include "tests/support/error_number.h"
#include "tests/support/program_run.h"

namespace dg {
namespace {

constexpr ColumnSpec kColumns[] = {{.name = "Key"}, {.name = "Place", .caption = "Row"}};

using Cells = std::vector<std::string>;

Grid& filled(Grid& grid, const Cells& keys) {
  grid.RemoveAll();
  for (std::size_t row = 0; row < keys.size(); ++row) {
    grid.AddNew();
    grid.set(0, keys[row]);
    if (grid.Cols() > 1) grid.set(1, std::to_string(row));
  }
  return grid;
}

Cells column(const Grid& grid, int index) {
  Cells cells;
  for (int row = 0; row < grid.Rows(); ++row)
    cells.push_back(grid.CellValue(index, row));
  return cells;
}

int sort(Grid& grid, int sortColumn, std::int16_t direction, std::int16_t textFlag) {
  return errorNumber(
      [&] { SortGrid(grid, grid.Rows(), grid.Cols(), sortColumn, direction, textFlag); });
}

/// The exchange sort as the program has always had it, row by row: what the order is measured by.
std::vector<Grid::Row> exchangeSorted(std::vector<Grid::Row> rows, std::size_t sortColumn,
                                      int direction, bool asTexts) {
  const auto outOfOrder = [&](const std::string& lower, const std::string& upper) {
    if (asTexts) return direction == 1 ? lower > upper : lower < upper;
    return direction == 1 ? CLng(lower) > CLng(upper) : CLng(lower) < CLng(upper);
  };
  const auto count = static_cast<int>(rows.size());
  for (int i = 0; i <= count - 2; ++i) {
    for (int j = count - 1; j >= i + 1; --j) {
      Grid::Row& lower = rows[static_cast<std::size_t>(j)];
      Grid::Row& upper = rows[static_cast<std::size_t>(j) - 1];
      if (outOfOrder(lower[sortColumn], upper[sortColumn])) std::swap(lower, upper);
    }
  }
  return rows;
}

class SortGridTest : public testing::Test {
 protected:
  ProgramRun run_;
  Grid grid_{"grd", kColumns};
};

TEST_F(SortGridTest, GivesTheOrderOfTheExchangeSort) {
  std::mt19937 random(20261124);
  const auto below = [&random](unsigned limit) { return static_cast<int>(random() % limit); };
  for (int round = 0; round < 200; ++round) {
    const bool asTexts = round % 2 == 0;
    const auto direction = static_cast<std::int16_t>(below(3));  // 2 counts as ascending
    Cells keys(static_cast<std::size_t>(below(30)));
    for (std::string& key : keys) {
      // Few distinct values, so that equal keys are frequent; cents that round away.
      key = asTexts ? std::string(1, static_cast<char>("AaBb\xe4z"[below(6)])) +
                          std::to_string(below(3))
                    : "$" + std::to_string(below(5)) + "." + std::to_string(below(100));
      if (!asTexts && below(4) == 0) key = "(" + key + ")";
    }
    const std::vector<Grid::Row> expected =
        exchangeSorted(filled(grid_, keys).rows(), 0, direction, asTexts);
    ASSERT_EQ(sort(grid_, 0, direction, asTexts ? -1 : 0), 0);
    ASSERT_EQ(grid_.rows(), expected) << "round " << round;
  }
}

TEST_F(SortGridTest, NumbersCompareAsWholeNumbers) {
  filled(grid_, {"$2.50", "1.6", "2", "(1,000)", " 3 ", "350%"});
  ASSERT_EQ(sort(grid_, 0, 1, 0), 0);
  EXPECT_EQ(column(grid_, 0), (Cells{"350%", " 3", "$2.50", "1.6", "2", "(1,000)"}));
}

TEST_F(SortGridTest, ACellWithoutANumberLeavesTheGridAsItWas) {
  for (const auto& [bad, number] : {std::pair<std::string, int>{"n/a", kTypeMismatch},
                                    {"", kTypeMismatch},
                                    {"3000000000", kOverflow}}) {
    filled(grid_, {"3", bad, "1"});
    grid_.setBookmark(1);
    run_.pointers.clear();
    EXPECT_EQ(sort(grid_, 0, 0, 0), number);
    EXPECT_EQ(column(grid_, 1), (Cells{"0", "1", "2"}));
    EXPECT_EQ(grid_.Bookmark(), 1);
    EXPECT_TRUE(grid_.Redraw());
    EXPECT_EQ(run_.pointers, (std::vector<int>{kHourglass, kDefaultPointer}));
  }
  filled(grid_, {"n/a", "1", "3000000000"});
  EXPECT_EQ(sort(grid_, 0, 0, 0), kOverflow) << "the lowest bad cell is met first";
}

TEST_F(SortGridTest, NothingConvertsWhereNothingIsCompared) {
  filled(grid_, {"n/a"});
  EXPECT_EQ(sort(grid_, 5, 0, 0), 0);
  filled(grid_, {});
  EXPECT_EQ(sort(grid_, 0, 0, 0), 0);
  EXPECT_EQ(grid_.Rows(), 0);
  filled(grid_, {"1", "2"});
  EXPECT_EQ(sort(grid_, 5, 0, 0), kSubscriptOutOfRange);
  EXPECT_EQ(sort(grid_, -1, 1, 0), 0) << "a column below 0 is the first";
  EXPECT_EQ(column(grid_, 0), (Cells{"2", "1"}));
}

TEST_F(SortGridTest, AGridOfOneColumnIsAlwaysSortedAscendingAsTexts) {
  Grid narrow("grd", std::span(kColumns).first(1));
  filled(narrow, {"9", "x", "10"});
  EXPECT_EQ(sort(narrow, 3, 1, 0), 0);
  EXPECT_EQ(column(narrow, 0), (Cells{"10", "9", "x"}));
}

constexpr HeadSort kHeads[] = {{"Row"}, {"Key", true}, {""}, {"no such column"}};

TEST_F(SortGridTest, AHeadClickSortsByItsTableAndFlips) {
  // The table is out of step with the grid: the column sorted by is marked, not the one clicked.
  filled(grid_, {"b", "a", "c"});
  sortByHead(grid_, 1, kHeads);
  EXPECT_EQ(column(grid_, 0), (Cells{"c", "b", "a"}));
  EXPECT_EQ(grid_.Bookmark(), 0);
  EXPECT_EQ(grid_.sortedColumn(), 0);
  EXPECT_TRUE(grid_.sortedDescending());
  sortByHead(grid_, 0, kHeads);
  EXPECT_EQ(column(grid_, 1), (Cells{"0", "1", "2"}));
  EXPECT_EQ(grid_.sortedColumn(), 1);
  EXPECT_FALSE(grid_.sortedDescending());
}

TEST_F(SortGridTest, AHeadWithoutASortOnlyFlipsTheDirectionOfTheNextClick) {
  Grid other("grdOther", kColumns);
  for (const int head : {2, 4, -1}) {
    gSortDirection = 0;
    filled(other, {"2", "1"});
    sortByHead(other, head, kHeads);
    EXPECT_EQ(gSortDirection, 1);
    EXPECT_EQ(column(other, 0), (Cells{"2", "1"}));
    EXPECT_EQ(other.sortedColumn(), -1);
    filled(grid_, {"b", "a", "c"});
    sortByHead(grid_, 1, kHeads);
    EXPECT_EQ(column(grid_, 0), (Cells{"a", "b", "c"})) << "the direction is shared by all grids";
  }
}

TEST_F(SortGridTest, AFailedSortHasFlippedAndMarksNothing) {
  filled(grid_, {"b", "a"});
  EXPECT_THROW(sortByHead(grid_, 3, kHeads), RunTimeError);
  EXPECT_EQ(gSortDirection, 1);
  EXPECT_EQ(grid_.sortedColumn(), -1);
}

}  // namespace
}  // namespace dg
