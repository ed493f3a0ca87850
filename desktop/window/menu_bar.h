#pragma once

#include <QMenuBar>
#include <functional>
#include <string_view>

namespace dg {

/// The main window's menus, as the shell's tables have them, and pages of the program's own behind
/// the last item of the View menu; the menu "Table" behind "Options".
class MenuBar : public QMenuBar {
  Q_OBJECT

 public:
  explicit MenuBar(QWidget* parent = nullptr);

  /// The action of an item, or null.
  QAction* item(std::string_view menu, int index) const;
  QAction* charts() const { return charts_; }
  QAction* today() const { return today_; }
  /// The captions of all menus.
  static QStringList captions();
  QAction* history() const { return history_; }
  QAction* morningReport() const { return morningReport_; }
  QAction* stores() const { return stores_; }
  /// The added menu of what can be done with a table; filled by who shows it.
  QMenu* tableMenu() const { return table_; }
  /// Disables what needs a store that was read: File/Refresh and the whole View menu.
  void setStoreThere(bool there);

 Q_SIGNALS:
  void picked(const QString& menu, int index);

 private:
  void fill(QMenu& target, std::string_view items);

  QAction* charts_ = nullptr;
  QAction* today_ = nullptr;
  QAction* history_ = nullptr;
  QAction* morningReport_ = nullptr;
  QAction* stores_ = nullptr;
  QMenu* table_ = nullptr;
};

}  // namespace dg
