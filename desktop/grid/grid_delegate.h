#pragma once

#include <QFont>
#include <QStyledItemDelegate>

#include "forms/grid.h"

namespace dg {

/// Draws a grid's cells: figures in digits of one width, the cells of a button column as links. A
/// text that is cut is shown whole in a tool tip.
class GridDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  explicit GridDelegate(const Grid& grid, QObject* parent = nullptr);

  /// The index under the mouse, whose link is underlined.
  void setHovered(const QModelIndex& index) { hovered_ = index; }

  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

 private:
  bool isLink(int column) const;

  const Grid& grid_;
  QPersistentModelIndex hovered_;
};

}  // namespace dg
