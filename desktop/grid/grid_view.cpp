#include "desktop/grid/grid_view.h"

#include <QGuiApplication>
#include <QHeaderView>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>

#include "desktop/grid/cell_style.h"
#include "desktop/grid/grid_delegate.h"
#include "desktop/grid/grid_model.h"
#include "desktop/grid/group_header.h"
#include "desktop/window/text.h"
#include "desktop/window/theme.h"

namespace dg {

GridView::GridView(Grid& grid, const QString& memory, QWidget* parent)
    : QTableView(parent),
      grid_(grid),
      model_(new GridModel(grid, this)),
      header_(new GroupHeader(grid, this)),
      delegate_(new GridDelegate(grid, this)),
      memory_(memory),
      binding_(grid, *this, [this] { synchronizeSoon_.start(); }),
      refreshed_(grid.refreshed.connect([this] {
        synchronize();
        viewport()->repaint();
      })) {
  hasButtons_ = std::any_of(grid.columns().begin(), grid.columns().end(),
                            [](const Grid::Column& column) { return column.button; });
  setHorizontalHeader(header_);
  // A click on a head sorts; selecting the whole column is not what it is for.
  disconnect(header_, &QHeaderView::sectionPressed, this, nullptr);
  disconnect(header_, &QHeaderView::sectionEntered, this, nullptr);
  setModel(model_);
  setItemDelegate(delegate_);
  auto* style = new CellStyle(this);
  setStyle(style);
  header_->setStyle(style);
  bool captions = false;
  for (int column = 0; column < grid.Cols(); ++column) {
    const Grid::Column& source = grid.columns()[static_cast<std::size_t>(column)];
    setColumnHidden(column, source.hidden);
    captions = captions || (!source.hidden && !cellText(source.caption).trimmed().isEmpty());
  }
  // A table of names and values needs no heads.
  header_->setVisible(captions);

  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
  setAlternatingRowColors(true);
  setShowGrid(false);
  setWordWrap(false);
  setCornerButtonEnabled(false);
  setTabKeyNavigation(false);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  setSelectionMode(QAbstractItemView::ExtendedSelection);
  setSelectionBehavior(grid.multiSelect ? QAbstractItemView::SelectRows
                                        : QAbstractItemView::SelectItems);
  setMouseTracking(true);

  connect(header_, &QHeaderView::sectionClicked, this, &GridView::headClicked);
  connect(header_, &QHeaderView::sectionResized, this, [this] {
    if (!spreading_ && QGuiApplication::mouseButtons() != Qt::NoButton) rememberColumns();
  });
  synchronizeSoon_.setSingleShot(true);
  connect(&synchronizeSoon_, &QTimer::timeout, this, &GridView::synchronize);
  grid_.filteredRows = [this] { return model_->shownRows(); };
  binding_.apply(grid, *this);
  synchronize();
  // A grid that was filled row by row stands on its last; the user starts at the top.
  if (model_->rowCount() > 0) {
    selectionModel()->setCurrentIndex(model_->index(0, firstVisibleColumn()),
                                      QItemSelectionModel::NoUpdate);
    scrollToTop();
  }
}

GridView::~GridView() {
  grid_.filteredRows = nullptr;
}

void GridView::synchronize() {
  synchronizeSoon_.stop();
  const bool rowsDiffer = revision_ != grid_.revision();
  if (rowsDiffer) {
    revision_ = grid_.revision();
    model_->synchronize();
    restoreSelection();
    if (grid_.Rows() == 0) fitted_ = false;
    if (!fitted_) fitColumns();
    Q_EMIT rowsChanged();
  }
  if (rowsDiffer || shownBookmark_ != grid_.Bookmark()) showCurrentRow();
  showSortArrow();
}

void GridView::setWhole(bool whole) {
  whole_ = whole;
  viewport()->update();
}

void GridView::setFilter(const QString& text) {
  const int row = model_->gridRow(currentIndex().row());
  const int column = currentIndex().column();
  model_->setFilter(text);
  restoreSelection();
  const QModelIndex kept =
      model_->index(model_->modelRow(row), column < 0 ? firstVisibleColumn() : column);
  if (kept.isValid()) {
    selectionModel()->setCurrentIndex(kept, grid_.multiSelect
                                                ? QItemSelectionModel::NoUpdate
                                                : QItemSelectionModel::ClearAndSelect);
    scrollTo(kept);
  }
  Q_EMIT rowsChanged();
}

void GridView::showCurrentRow() {
  shownBookmark_ = grid_.Bookmark();
  const int column = currentIndex().isValid() ? currentIndex().column() : firstVisibleColumn();
  const QModelIndex current = model_->index(model_->modelRow(shownBookmark_), column);
  if (current.isValid()) {
    selectionModel()->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    scrollTo(current);
  }
}

int GridView::firstVisibleColumn() const {
  for (int column = 0; column < model_->columnCount(); ++column) {
    if (!isColumnHidden(column)) return column;
  }
  return 0;
}

void GridView::headClicked(int column) {
  // The header has set its arrow already; a message box of a sort that fails must not show with it.
  showSortArrow();
  grid_.headClick(column);
  synchronize();
}

void GridView::sortByCurrentColumn() {
  if (currentIndex().isValid()) headClicked(currentIndex().column());
}

void GridView::showSortArrow() {
  int column = grid_.sortedColumn();
  // Where a hidden key is sorted by, the arrow stands over the column that it belongs to.
  if (column >= 0 && column < grid_.Cols() && isColumnHidden(column)) {
    const std::string& seen = grid_.columns()[static_cast<std::size_t>(column)].keyOf;
    column = seen.empty() ? -1 : grid_.columnIndex(seen);
  }
  header_->setSortIndicatorShown(column >= 0);
  header_->setSortIndicator(column,
                            grid_.sortedDescending() ? Qt::DescendingOrder : Qt::AscendingOrder);
}

bool GridView::opensRow(const QModelIndex& index) const {
  if (!index.isValid() || !grid_.hasClickAction()) return false;
  if (grid_.rowOpens && !grid_.rowOpens(model_->gridRow(index.row()))) return false;
  return !hasButtons_ || grid_.columns()[static_cast<std::size_t>(index.column())].button;
}

void GridView::openCurrentRow() {
  const int row = model_->gridRow(currentIndex().row());
  if (row < 0 || !grid_.hasClickAction()) return;
  grid_.rowClick(row);
  synchronize();
}

void GridView::mousePressEvent(QMouseEvent* event) {
  QTableView::mousePressEvent(event);
  pressed_ = event->button() == Qt::LeftButton && event->modifiers() == Qt::NoModifier
                 ? indexAt(event->position().toPoint())
                 : QModelIndex();
}

void GridView::mouseReleaseEvent(QMouseEvent* event) {
  QTableView::mouseReleaseEvent(event);
  const QModelIndex released = indexAt(event->position().toPoint());
  // A press that was dragged elsewhere selects cells and opens nothing.
  const bool click =
      event->button() == Qt::LeftButton && released.isValid() && pressed_ == released;
  pressed_ = QModelIndex();
  if (click && opensRow(released)) openCurrentRow();
}

void GridView::mouseDoubleClickEvent(QMouseEvent* event) {
  QTableView::mouseDoubleClickEvent(event);
  const int row = model_->gridRow(indexAt(event->position().toPoint()).row());
  if (event->button() != Qt::LeftButton || row < 0) return;
  if (grid_.onDblClick) {
    grid_.dblClick(row);
    synchronize();
  } else if (hasButtons_) {
    openCurrentRow();
  }
}

void GridView::mouseMoveEvent(QMouseEvent* event) {
  QTableView::mouseMoveEvent(event);
  setHovered(indexAt(event->position().toPoint()));
}

void GridView::leaveEvent(QEvent* event) {
  QTableView::leaveEvent(event);
  setHovered({});
}

void GridView::setHovered(const QModelIndex& index) {
  delegate_->setHovered(index);
  viewport()->setCursor(opensRow(index) ? Qt::PointingHandCursor : Qt::ArrowCursor);
  if (grid_.hasClickAction()) viewport()->update();
}

void GridView::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (enter && event->modifiers() == Qt::NoModifier) {
    // Enter is the grid's alone: it must not reach a button of the dialog around it.
    openCurrentRow();
    return;
  }
  QTableView::keyPressEvent(event);
}

void GridView::restoreSelection() {
  if (!grid_.multiSelect) return;
  QItemSelection kept;
  std::vector<int> shown;
  for (const int row : grid_.SelBookmarks) {
    const QModelIndex index = model_->index(model_->modelRow(row), firstVisibleColumn());
    if (!index.isValid()) continue;
    kept.select(index, index);
    shown.push_back(row);
  }
  selectionModel()->select(kept, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  grid_.SelBookmarks = std::move(shown);
}

void GridView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
  QTableView::selectionChanged(selected, deselected);
  Q_EMIT selectionShown();
  if (!grid_.multiSelect) return;
  // In the order in which the user selected them; of a range from its top.
  std::vector<int> now;
  for (const QModelIndex& row : selectionModel()->selectedRows(firstVisibleColumn()))
    now.push_back(model_->gridRow(row.row()));
  std::sort(now.begin(), now.end());
  std::vector<int>& kept = grid_.SelBookmarks;
  std::erase_if(kept, [&](int row) { return !std::binary_search(now.begin(), now.end(), row); });
  for (const int row : now) {
    if (std::find(kept.begin(), kept.end(), row) == kept.end()) kept.push_back(row);
  }
}

void GridView::paintStripesBehindColumns(QPainter& painter) const {
  const int left = header_->length() - header_->offset();
  const int width = viewport()->width() - left;
  const int first = rowAt(0);
  if (width <= 0 || first < 0) return;
  const int rowHeight = verticalHeader()->defaultSectionSize();
  int top = rowViewportPosition(first);
  for (int row = first; row < model_->rowCount() && top < viewport()->height(); ++row) {
    if (row % 2 == 1) painter.fillRect(left, top, width, rowHeight, palette().alternateBase());
    top += rowHeight;
  }
}

QString GridView::emptyText() const {
  if (model_->rowCount() > 0) return {};
  if (!model_->filter().isEmpty()) return tr("No row matches the filter");
  return whole_ ? tr("Nothing to show") : tr("Nothing could be read");
}

void GridView::paintEvent(QPaintEvent* event) {
  QTableView::paintEvent(event);
  QPainter painter(viewport());
  if (model_->rowCount() > 0) {
    paintStripesBehindColumns(painter);
    return;
  }
  painter.setPen(mutedColor(palette()));
  painter.drawText(viewport()->rect().adjusted(8, 8, -8, -8), Qt::AlignCenter, emptyText());
}

}  // namespace dg
