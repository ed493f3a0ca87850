#include "desktop/grid/grid_model.h"

#include <algorithm>

#include "desktop/window/text.h"

namespace dg {

GridModel::GridModel(Grid& grid, QObject* parent) : QAbstractTableModel(parent), grid_(grid) {
  collectRows();
}

int GridModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}

int GridModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : grid_.Cols();
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  switch (role) {
    case Qt::DisplayRole:
      return text(index);
    case Qt::TextAlignmentRole: {
      const ColumnKind kind = grid_.columns()[static_cast<std::size_t>(index.column())].kind;
      return QVariant((alignsRight(kind) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    }
    default:
      return {};
  }
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= grid_.Cols()) return {};
  const Grid::Column& column = grid_.columns()[static_cast<std::size_t>(section)];
  if (role == Qt::DisplayRole) return cellText(column.caption);
  if (role == Qt::TextAlignmentRole) {
    return QVariant((alignsRight(column.kind) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
  }
  return {};
}

int GridModel::gridRow(int modelRow) const {
  if (modelRow < 0 || static_cast<std::size_t>(modelRow) >= shown_.size()) return -1;
  return shown_[static_cast<std::size_t>(modelRow)];
}

int GridModel::modelRow(int gridRow) const {
  // Rows are shown in the grid's order, so that their numbers ascend.
  const auto found = std::lower_bound(shown_.begin(), shown_.end(), gridRow);
  if (found == shown_.end() || *found != gridRow) return -1;
  return static_cast<int>(found - shown_.begin());
}

void GridModel::synchronize() {
  beginResetModel();
  collectRows();
  endResetModel();
}

void GridModel::setFilter(const QString& text) {
  const QStringList words = text.split(u' ', Qt::SkipEmptyParts);
  filter_ = text;
  if (words == words_) return;
  beginResetModel();
  words_ = words;
  collectRows();
  endResetModel();
}

void GridModel::collectRows() {
  shown_.clear();
  const std::vector<Grid::Row>& rows = grid_.rows();
  shown_.reserve(rows.size());
  for (std::size_t row = 0; row < rows.size(); ++row) {
    if (passes(rows[row])) shown_.push_back(static_cast<int>(row));
  }
}

bool GridModel::passes(const Grid::Row& row) const {
  if (words_.isEmpty()) return true;
  QString whole;
  for (std::size_t column = 0; column < row.size(); ++column) {
    if (grid_.columns()[column].hidden) continue;
    whole += cellText(row[column]);
    whole += u'\n';  // no word can reach from one cell into the next
  }
  return std::all_of(words_.begin(), words_.end(), [&whole](const QString& word) {
    return whole.contains(word, Qt::CaseInsensitive);
  });
}

QString GridModel::text(const QModelIndex& index) const {
  const auto row = static_cast<std::size_t>(gridRow(index.row()));
  const auto column = static_cast<std::size_t>(index.column());
  const std::vector<Grid::Row>& rows = grid_.rows();
  if (row >= rows.size() || column >= rows[row].size()) return {};
  return cellText(rows[row][column]);
}

}  // namespace dg
