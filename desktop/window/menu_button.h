#pragma once

#include <QToolButton>

class QMenu;

namespace dg {

/// A button that opens a menu and is called as the menu is, with an arrow behind its text. Styles
/// draw the arrow of such a button small and into its lower corner, where it reads as a comma.
class MenuButton : public QToolButton {
  Q_OBJECT

 public:
  explicit MenuButton(QMenu* menu, QWidget* parent = nullptr);

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace dg
