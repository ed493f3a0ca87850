#pragma once

#include <QTableView>
#include <QTimer>
#include <cstdint>

#include "desktop/window/control_binding.h"
#include "forms/grid.h"

namespace dg {

class GridDelegate;
class GridModel;
class GroupHeader;

/// The table of a grid. It draws what stands in the grid and turns clicks into the grid's events:
/// a click on a head sorts, a click on a row or on its button opens it, as does Enter.
class GridView : public QTableView {
  Q_OBJECT

 public:
  /// `memory`: the name under which the user's column widths are kept.
  GridView(Grid& grid, const QString& memory, QWidget* parent = nullptr);
  ~GridView() override;

  Grid& grid() const { return grid_; }
  GridModel& gridModel() const { return *model_; }

  /// Brings model, current row and sort arrow in line with the grid.
  void synchronize();
  void setFilter(const QString& text);
  /// Whether all rows there are could be read; else a table without rows does not say that there
  /// is nothing.
  void setWhole(bool whole);
  /// What stands in the place of rows; empty when there are some.
  QString emptyText() const;
  void resetColumnWidths();
  void scrollToColumn(int column);

  /// Opens the current row, as a click does.
  void openCurrentRow();
  /// Sorts by the current column, as a click on its head does.
  void sortByCurrentColumn();

  QSize sizeHint() const override;

 Q_SIGNALS:
  /// The rows on show have changed.
  void rowsChanged();
  /// Other cells are selected.
  void selectionShown();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

 private:
  void headClicked(int column);
  void showSortArrow();
  void showCurrentRow();
  /// A reset of the model clears the selection without a word. Rows that are still on show get it
  /// back, others lose it, so that nothing is moved that is not seen selected.
  void restoreSelection();
  void setHovered(const QModelIndex& index);
  bool opensRow(const QModelIndex& index) const;
  int firstVisibleColumn() const;
  /// The rows' alternating colours go on behind the last column.
  void paintStripesBehindColumns(QPainter& painter) const;
  void fitColumns();
  void spreadColumns();
  void rememberColumns();

  Grid& grid_;
  GridModel* model_;
  GroupHeader* header_;
  GridDelegate* delegate_;
  QString memory_;
  bool hasButtons_ = false;
  bool fitted_ = false;       // column widths have been worked out for the rows on show
  bool userWidths_ = false;   // the user has set widths of his own
  bool spreading_ = false;    // widths change, but not by the user's hand
  QList<int> fittingWidths_;  // widths that the contents ask for, by column
  QList<int> leastWidths_;    // and without room for a sort arrow
  bool whole_ = true;
  std::uint64_t revision_ = 0;
  int shownBookmark_ = -1;
  QPersistentModelIndex pressed_;
  QTimer synchronizeSoon_;
  ControlBinding binding_;
  Connection refreshed_;
};

}  // namespace dg
