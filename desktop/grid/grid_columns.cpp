// The column widths of a GridView: worked out from the contents, or as the user has set them.

#include <QHeaderView>
#include <QScopedValueRollback>

#include "desktop/grid/grid_model.h"
#include "desktop/grid/grid_view.h"
#include "desktop/grid/group_header.h"
#include "desktop/window/user_settings.h"

namespace dg {

namespace {

constexpr int kWidestInCharacters = 44;
constexpr int kLeastRows = 12;
constexpr int kMostRows = 28;

/// Makes the columns under a group heading wide enough for it together.
void fitGroups(const Grid& grid, const GroupHeader& header, QList<int>& widths) {
  for (int first = 0; first < widths.size();) {
    const int needed = header.groupWidth(first);
    int last = first;
    int have = 0;
    QList<int> visible;
    for (; last < widths.size(); ++last) {
      const Grid::Column& column = grid.columns()[static_cast<std::size_t>(last)];
      if (last > first && !column.group.empty()) break;
      if (column.hidden) continue;
      visible.append(last);
      have += widths[last];
    }
    for (qsizetype i = 0; i < visible.size() && needed > have; ++i) {
      const int more = (needed - have) / static_cast<int>(visible.size() - i);
      widths[visible[i]] += more;
      have += more;
    }
    first = last;
  }
}

QString columnName(const Grid& grid, int column) {
  return QString::fromStdString(grid.columns()[static_cast<std::size_t>(column)].name);
}

}  // namespace

void GridView::fitColumns() {
  const QScopedValueRollback<bool> spreading(spreading_, true);
  const QMap<QString, int> own = UserSettings::columnWidths(memory_);
  userWidths_ = !own.isEmpty();
  fitted_ = model_->rowCount() > 0;
  const int widest = fontMetrics().averageCharWidth() * kWidestInCharacters;
  fittingWidths_.clear();
  leastWidths_.clear();
  for (int column = 0; column < model_->columnCount(); ++column) {
    const int wanted = qMax(sizeHintForColumn(column), header_->sectionSizeHint(column));
    fittingWidths_.append(qMin(wanted, widest));
    const int bare = header_->sectionSizeHint(column) - header_->arrowRoom(column);
    leastWidths_.append(qMin(qMax(sizeHintForColumn(column), bare), widest));
  }
  fitGroups(grid_, *header_, fittingWidths_);
  fitGroups(grid_, *header_, leastWidths_);
  for (int column = 0; column < model_->columnCount(); ++column) {
    if (isColumnHidden(column)) continue;
    setColumnWidth(column, own.value(columnName(grid_, column), fittingWidths_[column]));
  }
  if (!userWidths_) spreadColumns();
}

void GridView::spreadColumns() {
  const QScopedValueRollback<bool> spreading(spreading_, true);
  // What is left of the window's width goes to the text columns, the wider ones first in line.
  int total = 0;
  int textTotal = 0;
  for (int column = 0; column < fittingWidths_.size(); ++column) {
    if (isColumnHidden(column)) continue;
    total += fittingWidths_[column];
    const bool text = !alignsRight(grid_.columns()[static_cast<std::size_t>(column)].kind);
    if (text) textTotal += fittingWidths_[column];
  }
  const int left = viewport()->width() - total;
  int spare = 0;
  for (int column = 0; column < fittingWidths_.size(); ++column) {
    if (!isColumnHidden(column)) spare += fittingWidths_[column] - leastWidths_[column];
  }
  for (int column = 0; column < fittingWidths_.size(); ++column) {
    if (isColumnHidden(column)) continue;
    int width = fittingWidths_[column];
    const bool text = !alignsRight(grid_.columns()[static_cast<std::size_t>(column)].kind);
    if (left > 0 && text && textTotal > 0) {
      width += qMin(left * width / textTotal, width);
    }
    // Where they do not fit, the columns give up the room for a sort arrow that is not there.
    if (left < 0 && spare > 0) {
      width -= qMin(width - leastWidths_[column],
                    (-left * (width - leastWidths_[column]) + spare - 1) / spare);
    }
    setColumnWidth(column, width);
  }
}

void GridView::rememberColumns() {
  userWidths_ = true;
  QMap<QString, int> widths;
  for (int column = 0; column < model_->columnCount(); ++column) {
    if (!isColumnHidden(column)) widths.insert(columnName(grid_, column), columnWidth(column));
  }
  UserSettings::setColumnWidths(memory_, widths);
}

void GridView::resetColumnWidths() {
  UserSettings::forgetColumnWidths(memory_);
  fitColumns();
}

void GridView::scrollToColumn(int column) {
  const int row = currentIndex().isValid() ? currentIndex().row() : 0;
  const QModelIndex target = model_->index(row, column);
  if (!target.isValid()) return;
  setCurrentIndex(target);
  scrollTo(target);
  setFocus();
}

void GridView::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  if (!userWidths_) spreadColumns();
}

QSize GridView::sizeHint() const {
  int width = 2 * frameWidth() + 20;
  for (int column = 0; column < fittingWidths_.size(); ++column) {
    if (!isColumnHidden(column)) width += fittingWidths_[column];
  }
  // Short tables show whole where the screen has the room.
  const int rows = qBound(kLeastRows, model_->rowCount() + 1, kMostRows);
  const int head = header_->isHidden() ? 0 : header_->sizeHint().height();
  return {width, head + rows * verticalHeader()->defaultSectionSize()};
}

}  // namespace dg
