#include "tests/support/view_test.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "shell/sort_grid.h"

namespace dg::test {

namespace {

/// A cell as the whole number that it sorts by, worked out without the program's conversions.
double wholeNumber(const std::string& cell) {
  std::string digits;
  for (const char c : cell) {
    if (c == '(') digits += '-';
    if (std::string_view("-.0123456789").find(c) != std::string_view::npos) digits += c;
  }
  const double value = std::stod(digits);
  return std::nearbyint(cell.ends_with('%') ? value / 100 : value);
}

template <class T>
bool isOrdered(const std::vector<T>& values, bool descending) {
  return descending ? std::is_sorted(values.rbegin(), values.rend())
                    : std::is_sorted(values.begin(), values.end());
}

bool isOrdered(const Cells& cells, bool text, bool descending) {
  if (text) return isOrdered(cells, descending);
  std::vector<double> numbers;
  std::transform(cells.begin(), cells.end(), std::back_inserter(numbers), wholeNumber);
  return isOrdered(numbers, descending);
}

}  // namespace

const std::string& ViewTest::recap(int index) {
  return run_.recapSheet.lblRecap(index).caption();
}

bool ViewTest::recapIsRed(int index) {
  return run_.recapSheet.lblRecap(index).foreColor() == kRed;
}

void ViewTest::expectFailure(int recapLabel, const std::string& line) {
  EXPECT_EQ(recap(recapLabel), "Data Error !");
  EXPECT_TRUE(recapIsRed(recapLabel));
  EXPECT_EQ(run_.logged, std::vector<std::string>{line});
  EXPECT_TRUE(run_.messages.empty());
}

void expectHeadSorts(Grid& grid, int head, std::string_view sortColumn, bool text) {
  SCOPED_TRACE(testing::Message() << "head " << head << " by " << sortColumn);
  std::vector<Grid::Row> before = grid.rows();
  std::sort(before.begin(), before.end());
  gSortDirection = 0;
  for (const bool descending : {true, false}) {
    grid.headClick(head);
    EXPECT_TRUE(isOrdered(column(grid, sortColumn), text, descending))
        << testing::PrintToString(column(grid, sortColumn));
    EXPECT_FALSE(isOrdered(column(grid, sortColumn), text, !descending)) << "all equal";
    EXPECT_EQ(grid.Bookmark(), 0);
  }
  std::vector<Grid::Row> after = grid.rows();
  std::sort(after.begin(), after.end());
  EXPECT_EQ(after, before) << "rows were torn apart";
}

void expectHeadDoesNothing(Grid& grid, int head) {
  const std::vector<Grid::Row> before = grid.rows();
  const std::int16_t direction = gSortDirection;
  grid.headClick(head);
  EXPECT_EQ(grid.rows(), before) << "head " << head;
  EXPECT_EQ(gSortDirection, direction) << "head " << head;
}

}  // namespace dg::test
