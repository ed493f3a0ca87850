#include "forms/grid_columns.h"

#include <utility>

#include "platform/text.h"

namespace dg {

std::vector<ShownColumn> shownColumns(const Grid& grid) {
  std::vector<ShownColumn> columns;
  std::string begins;  // a heading that no column stands under yet
  std::string_view over;
  for (int i = 0; i < grid.Cols(); ++i) {
    const Grid::Column& column = grid.columns()[static_cast<std::size_t>(i)];
    if (!column.group.empty()) {
      begins = column.group;
      over = column.group;
    }
    if (column.hidden) continue;
    std::string title(trim(over));
    if (!title.empty()) title += ' ';
    columns.push_back({.index = i,
                       .caption = column.caption,
                       .group = std::exchange(begins, {}),
                       .title = title + column.caption,
                       .alignRight = alignsRight(column.kind)});
  }
  return columns;
}

bool alignsRight(ColumnKind kind) {
  return kind != ColumnKind::kText && kind != ColumnKind::kDate;
}

}  // namespace dg
