#pragma once

#include <string>
#include <vector>

#include "forms/grid.h"

namespace dg {

/// A column as the user sees it, for whoever draws, prints or writes a grid.
struct ShownColumn {
  int index = 0;        ///< in the grid
  std::string caption;  ///< code page bytes, as all texts here
  std::string group;    ///< the heading that begins over it; one over a hidden column moves here
  std::string title;    ///< what names it alone: its group's heading and its caption
  bool alignRight = false;
};

/// The columns that are not hidden, in their order.
std::vector<ShownColumn> shownColumns(const Grid& grid);

/// Whether a column of this kind stands right-aligned, heading included.
bool alignsRight(ColumnKind kind);

}  // namespace dg
