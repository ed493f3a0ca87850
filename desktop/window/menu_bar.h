#pragma once

#include <QMenuBar>
#include <functional>
#include <string_view>

namespace dg {

/// The main window's menus, as the shell's tables have them, and "Charts" behind the last item of
/// the View menu.
class MenuBar : public QMenuBar {
  Q_OBJECT

 public:
  explicit MenuBar(QWidget* parent = nullptr);

  /// The action of an item, or null.
  QAction* item(std::string_view menu, int index) const;
  QAction* charts() const { return charts_; }

 Q_SIGNALS:
  void picked(const QString& menu, int index);

 private:
  void fill(QMenu& target, std::string_view items);

  QAction* charts_ = nullptr;
};

}  // namespace dg
