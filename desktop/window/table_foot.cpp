#include "desktop/window/table_foot.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QScrollBar>

#include "desktop/grid/grid_view.h"

namespace dg {

TableFoot::TableFoot(GridView& table, int column, QWidget* parent)
    : QWidget(parent), table_(table), column_(column), layout_(new QHBoxLayout(this)) {
  layout_->setContentsMargins({});
  layout_->setSpacing(14);
  layout_->addStretch(1);
  const QHeaderView& head = *table.horizontalHeader();
  connect(&head, &QHeaderView::sectionResized, this, &TableFoot::follow);
  connect(&head, &QHeaderView::geometriesChanged, this, &TableFoot::follow);
  connect(table.horizontalScrollBar(), &QScrollBar::valueChanged, this, &TableFoot::follow);
}

void TableFoot::addBeside(QWidget* widget) {
  layout_->insertWidget(beside_++, widget);
}

void TableFoot::addTotal(QWidget* widget) {
  layout_->addWidget(widget);
}

void TableFoot::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  follow();
}

void TableFoot::follow() {
  // A cell's text keeps this far from the cell's edge, as the table's delegate draws it.
  const int room = table_.style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &table_) + 1;
  const int edge = table_.columnViewportPosition(column_) + table_.columnWidth(column_) - room;
  const int end = mapFromGlobal(table_.viewport()->mapToGlobal(QPoint(edge, 0))).x();
  const int own = layout_->contentsMargins().right();
  const int most = width() - (layout_->minimumSize().width() - own);
  const int margin = qBound(0, width() - end, qMax(0, most));
  if (margin != own) layout_->setContentsMargins(0, 0, margin, 0);
}

}  // namespace dg
