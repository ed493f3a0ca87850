#pragma once

#include <QAbstractTableModel>
#include <QStringList>
#include <vector>

#include "forms/grid_columns.h"

namespace dg {

/// A Grid as a table model, all columns included. It holds no cells: each is turned into text when
/// it is drawn.
///
/// The model shows a state of the grid until it is told to synchronize; the grid may change in the
/// meantime, as it does while a view loads, and a cell that is gone reads as empty. A filter leaves
/// rows out; model rows and grid rows differ then, see gridRow.
class GridModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  explicit GridModel(Grid& grid, QObject* parent = nullptr);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation,
                      int role = Qt::DisplayRole) const override;

  Grid& grid() const { return grid_; }
  /// The grid's row that a model row shows, and the other way round (-1: not shown).
  int gridRow(int modelRow) const;
  int modelRow(int gridRow) const;
  /// Rows on show, in their order, as rows of the grid.
  const std::vector<int>& shownRows() const { return shown_; }

  /// Takes over the grid's rows as they are now. Resets the model.
  void synchronize();

  /// Shows only rows of which each word is found in a visible cell, without regard to case. An
  /// empty text shows all rows.
  void setFilter(const QString& text);
  const QString& filter() const { return filter_; }

 private:
  void collectRows();
  bool passes(const Grid::Row& row) const;
  QString text(const QModelIndex& index) const;

  Grid& grid_;
  std::vector<int> shown_;
  QString filter_;
  QStringList words_;
};

}  // namespace dg
