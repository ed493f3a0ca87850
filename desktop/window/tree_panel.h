#pragma once

#include <QIcon>
#include <QTreeWidget>

#include "desktop/window/control_binding.h"
#include "forms/tree_view.h"

namespace dg {

/// Draws a TreeView. A click on a node, and moving onto one with the keyboard, is its click event.
class TreePanel : public QTreeWidget {
  Q_OBJECT

 public:
  explicit TreePanel(TreeView& tree, QWidget* parent = nullptr);

  QSize sizeHint() const override;
  /// The item of a node, or null.
  /// Marks no node: a page is on show that none stands for. The next click marks one again.
  void unmark();
  QTreeWidgetItem* itemOf(const std::string& key) const;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void update();
  void rebuild();
  void showImages();
  void click(const QTreeWidgetItem* item);

  TreeView& tree_;
  ControlBinding binding_;
};

/// The tree's pictures, numbered from 1: a ledger sheet, the same opened, a gauge.
QIcon treeImage(int number, const QPalette& palette);

}  // namespace dg
