#include "desktop/grid/grid_delegate.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QToolTip>
#include <algorithm>

#include "desktop/grid/grid_model.h"
#include "desktop/window/text.h"
#include "desktop/window/theme.h"

namespace dg {

GridDelegate::GridDelegate(const Grid& grid, QObject* parent)
    : QStyledItemDelegate(parent), grid_(grid) {}

/// Where no column has the button, a click anywhere opens the row; its first cell shows that.
bool GridDelegate::isLink(int column) const {
  if (!grid_.hasClickAction()) return false;
  const std::vector<Grid::Column>& columns = grid_.columns();
  const bool buttons = std::any_of(columns.begin(), columns.end(),
                                   [](const Grid::Column& each) { return each.button; });
  if (buttons) return columns[static_cast<std::size_t>(column)].button;
  const auto first = std::find_if(columns.begin(), columns.end(),
                                  [](const Grid::Column& each) { return !each.hidden; });
  return first - columns.begin() == column;
}

void GridDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  const Grid::Column& column = grid_.columns()[static_cast<std::size_t>(index.column())];
  if (column.kind != ColumnKind::kText) {
    option->font = figureFont(option->font);
    option->fontMetrics = QFontMetrics(option->font);
  }
  const auto* model = static_cast<const GridModel*>(index.model());
  const bool leads = !grid_.rowOpens || grid_.rowOpens(model->gridRow(index.row()));
  if (!isLink(index.column()) || !leads) return;
  const QColor link = accentColor(option->palette);
  for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
    option->palette.setColor(group, QPalette::Text, link);
  }
  option->font.setUnderline(index.row() == hovered_.row() && hovered_.isValid());
}

bool GridDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                             const QStyleOptionViewItem& option, const QModelIndex& index) {
  if (event->type() != QEvent::ToolTip || !index.isValid()) {
    return QStyledItemDelegate::helpEvent(event, view, option, index);
  }
  const QString text = index.data().toString();
  if (text.isEmpty() || sizeHint(option, index).width() <= option.rect.width()) {
    QToolTip::hideText();
  } else {
    QToolTip::showText(event->globalPos(), plainToolTip(text), view, option.rect);
  }
  return true;
}

}  // namespace dg
