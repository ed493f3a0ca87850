#include "shell/sort_grid.h"

#include <algorithm>
#include <functional>
#include <numeric>
#include <string>
#include <vector>

#include "forms/form.h"
#include "platform/values/convert.h"

namespace dg {

std::int16_t gSortDirection = 0;

namespace {

constexpr std::int16_t kDescending = 1;
constexpr std::int16_t kTrue = -1;
constexpr std::int16_t kFalse = 0;

/// Holds back the grid's redraw and shows the hourglass while it lives.
class SortingState {
 public:
  explicit SortingState(Grid& grid) : grid_(grid) {
    grid_.setRedraw(false);
    presenter().setMousePointer(kHourglass);
  }
  ~SortingState() {
    grid_.setRedraw(true);
    presenter().setMousePointer(kDefaultPointer);
  }
  SortingState(const SortingState&) = delete;
  SortingState& operator=(const SortingState&) = delete;

 private:
  Grid& grid_;
};

/// The order in which rows with these keys stand after sorting; equal keys keep their order.
template <class Key>
std::vector<int> sortedOrder(const std::vector<Key>& keys, bool descending) {
  std::vector<int> order(keys.size());
  std::iota(order.begin(), order.end(), 0);
  const auto key = [&keys](int row) -> const Key& { return keys[static_cast<std::size_t>(row)]; };
  if (descending) {
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) { return key(a) > key(b); });
  } else {
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) { return key(a) < key(b); });
  }
  return order;
}

/// The column's cells as whole numbers. They convert from the last row to the first, so that the
/// error of a grid with several bad cells is always that of the lowest.
std::vector<std::int32_t> numbers(const Grid& grid, int rows, int column) {
  std::vector<std::int32_t> values(static_cast<std::size_t>(rows));
  for (int row = rows - 1; row >= 0; --row) {
    values[static_cast<std::size_t>(row)] = CLng(grid.CellValue(column, row));
  }
  return values;
}

/// The column's cells; std::string compares bytes as unsigned characters.
std::vector<std::string> texts(const Grid& grid, int rows, int column) {
  std::vector<std::string> values;
  values.reserve(static_cast<std::size_t>(rows));
  for (int row = 0; row < rows; ++row) {
    values.push_back(grid.CellValue(column, row));
  }
  return values;
}

}  // namespace

void SortGrid(Grid& grid, int rows, int columns, int sortColumn, std::int16_t& direction,
              std::int16_t& textFlag) {
  if (rows != grid.Rows()) throw RunTimeError(kSubscriptOutOfRange);
  const SortingState sorting(grid);
  // Nothing is compared, and nothing converted, where there are not two rows.
  if (rows > 1) {
    const bool single = columns < 2;
    const int column = single ? 0 : std::max(sortColumn, 0);
    const bool descending = !single && direction == kDescending;
    grid.reorder(single || textFlag != kFalse
                     ? sortedOrder(texts(grid, rows, column), descending)
                     : sortedOrder(numbers(grid, rows, column), descending));
  }
  grid.MoveLast();
}

void sortByHead(Grid& grid, int clicked, std::span<const HeadSort> table) {
  gSortDirection = gSortDirection == kDescending ? std::int16_t{0} : kDescending;
  if (clicked < 0 || static_cast<std::size_t>(clicked) >= table.size()) return;
  const HeadSort& entry = table[static_cast<std::size_t>(clicked)];
  if (entry.column.empty()) return;

  std::int16_t textFlag = entry.text ? kTrue : kFalse;
  const int column = grid.columnIndex(entry.column);
  SortGrid(grid, grid.Rows(), grid.Cols(), column, gSortDirection, textFlag);
  grid.MoveFirst();
  // Not always the clicked one: some tables stand out of step with their grid.
  grid.markSorted(column, grid.Cols() > 1 && gSortDirection == kDescending);
}

void sortOnHeads(Grid& grid, std::span<const HeadSort> table) {
  grid.onHeadClick = [&grid, table](int column) { sortByHead(grid, column, table); };
  grid.headSorts = [table](int column) {
    return column >= 0 && static_cast<std::size_t>(column) < table.size() &&
           !table[static_cast<std::size_t>(column)].column.empty();
  };
}

}  // namespace dg
