#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "forms/grid.h"

namespace dg {

/// Sort direction, shared by all grids of all views: 1 is descending.
extern std::int16_t gSortDirection;

/// Sorts a grid's rows by a column: as texts by character codes, or as whole numbers. Equal rows
/// keep their order. A grid of one column is always sorted ascending as texts. A cell that does not
/// convert raises 13 and leaves the rows as they were.
void SortGrid(Grid& grid, std::int16_t rows, std::int16_t columns, int sortColumn,
              std::int16_t& direction, std::int16_t& textFlag);

/// What a click on a column head sorts by. An empty column: the click only flips the direction.
struct HeadSort {
  std::string_view column;
  bool text = false;
};

/// The column-head click of every grid: flips gSortDirection, sorts by the entry of the clicked
/// index in `table` (none beyond its end), and moves to the first row.
void sortByHead(Grid& grid, int clicked, std::span<const HeadSort> table);

}  // namespace dg
