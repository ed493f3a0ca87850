#include "desktop/window/tree_panel.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <map>

#include "desktop/window/text.h"

namespace dg {

namespace {

constexpr int kKeyRole = Qt::UserRole;
constexpr int kWidth = 230;
constexpr int kLeastWidth = 150;

QString keyOf(const QTreeWidgetItem* item) {
  return item->data(0, kKeyRole).toString();
}

QList<QTreeWidgetItem*> allItems(const QTreeWidget& tree) {
  QList<QTreeWidgetItem*> items;
  for (QTreeWidgetItemIterator next(const_cast<QTreeWidget*>(&tree)); *next != nullptr; ++next)
    items.append(*next);
  return items;
}

}  // namespace

TreePanel::TreePanel(TreeView& tree, QWidget* parent)
    : QTreeWidget(parent), tree_(tree), binding_(tree, *this, [this] { update(); }) {
  setHeaderHidden(true);
  setColumnCount(1);
  setUniformRowHeights(true);
  setIconSize({18, 18});
  setIndentation(18);
  setFrameShape(QFrame::NoFrame);
  setTextElideMode(Qt::ElideRight);
  setMinimumWidth(kLeastWidth);
  setAccessibleName(tr("Views"));
  connect(this, &QTreeWidget::itemClicked, this,
          [this](const QTreeWidgetItem* item) { click(item); });
  binding_.apply(tree, *this);
}

QSize TreePanel::sizeHint() const {
  return {kWidth, QTreeWidget::sizeHint().height()};
}

QTreeWidgetItem* TreePanel::itemOf(const std::string& key) const {
  const QString wanted = QString::fromStdString(key);
  for (QTreeWidgetItem* item : allItems(*this)) {
    if (keyOf(item) == wanted) return item;
  }
  return nullptr;
}

void TreePanel::click(const QTreeWidgetItem* item) {
  if (item != nullptr) tree_.click(keyOf(item).toStdString());
}

void TreePanel::update() {
  if (allItems(*this).size() != static_cast<qsizetype>(tree_.nodes().size())) rebuild();
  QTreeWidgetItem* selected = itemOf(tree_.selected());
  if (selected != nullptr && !selected->isSelected()) {
    setCurrentItem(selected);
    selected->setSelected(true);
  }
  showImages();
}

void TreePanel::rebuild() {
  clear();
  std::map<std::string, QTreeWidgetItem*> items;
  for (const TreeView::Node& node : tree_.nodes()) {
    const auto parent = items.find(node.parent);
    auto* item =
        parent == items.end() ? new QTreeWidgetItem(this) : new QTreeWidgetItem(parent->second);
    item->setText(0, cellText(node.text));
    item->setData(0, kKeyRole, QString::fromStdString(node.key));
    items[node.key] = item;
  }
  // Only now: a node without children does not expand.
  for (const TreeView::Node& node : tree_.nodes()) {
    items[node.key]->setExpanded(node.expanded);
  }
}

void TreePanel::unmark() {
  clearSelection();
  showImages();
}

void TreePanel::showImages() {
  // The colours of a selection may be others while the keyboard is elsewhere.
  QPalette colors = palette();
  const bool active = isActiveWindow() && hasFocus();
  colors.setCurrentColorGroup(active ? QPalette::Active : QPalette::Inactive);
  for (const TreeView::Node& node : tree_.nodes()) {
    QTreeWidgetItem* item = itemOf(node.key);
    if (item == nullptr) continue;
    const bool selected = node.key == tree_.selected() && item->isSelected();
    item->setIcon(0, treeImage(selected ? node.selectedImage : node.image, colors));
  }
}

void TreePanel::keyPressEvent(QKeyEvent* event) {
  const QTreeWidgetItem* before = currentItem();
  QTreeWidget::keyPressEvent(event);
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (currentItem() != before || enter) click(currentItem());
}

void TreePanel::changeEvent(QEvent* event) {
  QTreeWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::ActivationChange) {
    showImages();
  }
}

void TreePanel::focusInEvent(QFocusEvent* event) {
  QTreeWidget::focusInEvent(event);
  showImages();
}

void TreePanel::focusOutEvent(QFocusEvent* event) {
  QTreeWidget::focusOutEvent(event);
  showImages();
}

}  // namespace dg
