#include "desktop/window/menu_bar.h"

#include <QMenu>

#include "desktop/window/added_items.h"
#include "desktop/window/text.h"
#include "shell/main_window.h"

namespace dg {

namespace {

QString actionName(std::string_view menu, int index) {
  return QString::fromUtf8(menu.data(), static_cast<int>(menu.size())) +
         QStringLiteral("(%1)").arg(index);
}

struct Accelerator {
  std::string_view menu;
  int index;
  int key;
};
constexpr const char* kTable = QT_TRANSLATE_NOOP("MenuBar", "&Table");

constexpr Accelerator kAccelerators[] = {
    {"mfile", 0, Qt::Key_F5},
    {"mfile", 5, int(Qt::CTRL) | Qt::Key_Q},
    {"mopt", 0, int(Qt::CTRL) | Qt::Key_L},
    {"mhelp", 0, Qt::Key_F1},
};

}  // namespace

MenuBar::MenuBar(QWidget* parent) : QMenuBar(parent) {
  for (const MenuHead& head : menuHeads()) {
    QMenu* menu = addMenu(fromBytes(head.caption));
    menu->setObjectName(QString::fromUtf8(head.name.data(), static_cast<int>(head.name.size())));
    fill(*menu, head.items);
    if (head.items == "mview") fillAdded(*menu);
    if (head.items == "mopt") {
      table_ = addMenu(tr(kTable));
      table_->setObjectName(QStringLiteral("table"));
    }
  }
}

QStringList MenuBar::captions() {
  QStringList all{tr(kTable)};
  for (const MenuHead& head : menuHeads())
    all.append(fromBytes(head.caption));
  return all;
}

void MenuBar::fill(QMenu& target, std::string_view items) {
  for (const MenuEntry& entry : menuEntries()) {
    if (entry.menu != items) continue;
    if (entry.caption == "-") {
      target.addSeparator();
      continue;
    }
    if (!entry.submenu.empty()) {
      fill(*target.addMenu(fromBytes(entry.caption)), entry.submenu);
      continue;
    }
    QAction* action = target.addAction(fromBytes(entry.caption));
    action->setObjectName(actionName(entry.menu, entry.index));
    // Where the platform moves some items to a menu of its own, these stay.
    action->setMenuRole(QAction::NoRole);
    for (const Accelerator& accelerator : kAccelerators) {
      if (accelerator.menu == entry.menu && accelerator.index == entry.index) {
        action->setShortcut(QKeySequence(accelerator.key));
      }
    }
    const QString menu = QString::fromUtf8(entry.menu.data(), static_cast<int>(entry.menu.size()));
    connect(action, &QAction::triggered, this,
            [this, menu, index = entry.index] { Q_EMIT picked(menu, index); });
  }
}

void MenuBar::fillAdded(QMenu& target) {
  for (const AddedItem& item : addedItems()) {
    QAction* action = target.addAction(item.text());
    action->setObjectName(QString::fromLatin1(item.name));
    action->setMenuRole(QAction::NoRole);
    connect(action, &QAction::triggered, this, [this, &item] { Q_EMIT addedPicked(item); });
  }
}

void MenuBar::setStoreThere(bool there) {
  item("mfile", 0)->setEnabled(there);
  for (QAction* action : findChild<QMenu*>(QStringLiteral("mnuView"))->actions())
    action->setEnabled(there);
}

QAction* MenuBar::item(std::string_view menu, int index) const {
  return findChild<QAction*>(actionName(menu, index));
}

QAction* MenuBar::item(std::string_view added) const {
  return findChild<QAction*>(QString::fromUtf8(added.data(), static_cast<qsizetype>(added.size())));
}

}  // namespace dg
