#pragma once

#include <QMenuBar>
#include <functional>
#include <string_view>

namespace dg {

struct AddedItem;

/// The main window's menus, as the shell's tables have them, the added items behind the last one of
/// the View menu, and the menu "Table" behind "Options".
class MenuBar : public QMenuBar {
  Q_OBJECT

 public:
  explicit MenuBar(QWidget* parent = nullptr);

  /// The action of an item, or null.
  QAction* item(std::string_view menu, int index) const;
  /// The action of an added item, by its name, or null.
  QAction* item(std::string_view added) const;
  /// The captions of all menus.
  static QStringList captions();
  /// The added menu of what can be done with a table; filled by who shows it.
  QMenu* tableMenu() const { return table_; }
  /// Disables what needs a store that was read: File/Refresh and the whole View menu.
  void setStoreThere(bool there);

 Q_SIGNALS:
  void picked(const QString& menu, int index);
  void addedPicked(const AddedItem& item);

 private:
  void fill(QMenu& target, std::string_view items);
  void fillAdded(QMenu& target);

  QMenu* table_ = nullptr;
};

}  // namespace dg
