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
/// convert raises 13, one beyond 32 bits 6, and leaves the rows as they were; so does a row count
/// or sort column that is not the grid's, which raises 9. Afterwards the last row is the current
/// one.
///
/// `direction` 1 is descending, anything else ascending; `textFlag` is -1 for texts, 0 for numbers.
void SortGrid(Grid& grid, int rows, int columns, int sortColumn, std::int16_t& direction,
              std::int16_t& textFlag);

/// What a click on a column head sorts by. An empty column: the click only flips the direction.
struct HeadSort {
  std::string_view column;
  bool text = false;
};

/// The column-head click of every grid: flips gSortDirection, sorts by the entry of the clicked
/// index in `table`, moves to the first row and marks the column sorted by. An index beyond the
/// table and an entry without a column only flip the direction. Raises as SortGrid, and 9 for a
/// column that the grid does not have; the direction is flipped by then.
void sortByHead(Grid& grid, int clicked, std::span<const HeadSort> table);

/// Gives a grid that head click. The table outlives the grid.
void sortOnHeads(Grid& grid, std::span<const HeadSort> table);

}  // namespace dg
