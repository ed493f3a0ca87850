#include "desktop/window/sheet_layout.h"

#include <QMap>
#include <QPushButton>
#include <QSet>

#include "desktop/grid/grid_panel.h"
#include "desktop/window/control_widgets.h"

namespace dg {

namespace {

constexpr int kButtonGap = 8;
constexpr int kEvenShare = 1;
constexpr int kLeastFrameInCharacters = 20;

bool takesRoom(const QWidget* widget) {
  return qobject_cast<const GridPanel*>(widget) != nullptr ||
         qobject_cast<const TextAreaWidget*>(widget) != nullptr;
}

struct Cell {
  QWidget* widget = nullptr;
  int row = 0, column = 0, rowSpan = 0, columnSpan = 0;
};

QList<Cell> cells(const QGridLayout& layout) {
  QList<Cell> found;
  for (int index = 0; index < layout.count(); ++index) {
    Cell cell;
    cell.widget = layout.itemAt(index)->widget();
    layout.getItemPosition(index, &cell.row, &cell.column, &cell.rowSpan, &cell.columnSpan);
    if (cell.widget != nullptr) found.append(cell);
  }
  return found;
}

}  // namespace

SheetLayout::SheetLayout(QWidget* parent) : QGridLayout(parent) {
  setHorizontalSpacing(14);
  setVerticalSpacing(6);
}

void SheetLayout::addControl(QWidget* widget, int row, int column, int rowSpan, int columnSpan) {
  addWidget(widget, row, column, rowSpan, columnSpan);
  rows_ = qMax(rows_, row + rowSpan);
  columns_ = qMax(columns_, column + columnSpan);
}

void SheetLayout::stretchColumn(int column, int share) {
  setColumnStretch(column, qMax(columnStretch(column), share));
  growsRight_ = true;
}

void SheetLayout::gatherButtons() {
  // A row of nothing but buttons is a dialog's foot: they stand at its right end.
  QMap<int, QList<Cell>> rows;
  QSet<int> mixed;
  for (const Cell& cell : cells(*this)) {
    const bool button = qobject_cast<QPushButton*>(cell.widget) != nullptr && cell.rowSpan == 1;
    for (int row = cell.row; row < cell.row + cell.rowSpan; ++row) {
      rows[row].append(cell);
      if (!button) mixed.insert(row);
    }
  }
  for (auto entry = rows.begin(); entry != rows.end(); ++entry) {
    if (mixed.contains(entry.key())) continue;
    auto* foot = new QHBoxLayout;
    foot->setSpacing(kButtonGap);
    foot->addStretch(1);
    for (const Cell& cell : entry.value()) {
      removeWidget(cell.widget);
      foot->addWidget(cell.widget);
    }
    addLayout(foot, entry.key(), 0, 1, columns_);
  }
}

void SheetLayout::finish() {
  gatherButtons();
  const QList<Cell> all = cells(*this);
  for (const Cell& cell : all) {
    const int lastColumn = cell.column + cell.columnSpan - 1;
    const bool frame = qobject_cast<FrameWidget*>(cell.widget) != nullptr;
    // Frames beside each other share the width as their contents need it, so that none cuts its
    // texts while another has room; one that is not on show leaves it to the others.
    if (frame && !cell.widget->isHidden()) {
      const int least = cell.widget->fontMetrics().averageCharWidth() * kLeastFrameInCharacters;
      // Asked for, too: room that the sheet does not know of would be the others' loss.
      setColumnMinimumWidth(lastColumn, qMax(columnMinimumWidth(lastColumn), least));
      stretchColumn(lastColumn, qMax(least, cell.widget->sizeHint().width()));
    }
    if (takesRoom(cell.widget) && cell.columnSpan == 1) stretchColumn(lastColumn, kEvenShare);
  }
  for (const Cell& cell : all) {
    if (!takesRoom(cell.widget)) continue;
    setRowStretch(cell.row + cell.rowSpan - 1, 1);
    growsDown_ = true;
    bool grows = false;
    for (int column = cell.column; column < cell.column + cell.columnSpan; ++column)
      grows = grows || columnStretch(column) > 0;
    if (!grows) stretchColumn(cell.column + cell.columnSpan - 1, kEvenShare);
  }
  for (const Cell& cell : all) {
    // An aligned control sets no limit to the height of a row that is to grow.
    const bool button = qobject_cast<QPushButton*>(cell.widget) != nullptr;
    if (button)
      setAlignment(cell.widget, rowStretch(cell.row) > 0 ? Qt::AlignTop : Qt::AlignVCenter);
  }
  if (!growsDown_) setRowStretch(rows_, 1);
  if (!growsRight_) setColumnStretch(columns_, 1);
}

}  // namespace dg
