#include "desktop/window/menu_button.h"

#include <QMenu>
#include <QStyleOptionToolButton>
#include <QStylePainter>

namespace dg {

namespace {

constexpr int kArrow = 8;
constexpr int kArrowRoom = kArrow + 6;

}  // namespace

MenuButton::MenuButton(QMenu* menu, QWidget* parent) : QToolButton(parent) {
  setText(menu->title());
  setMenu(menu);
  setPopupMode(QToolButton::InstantPopup);
  setToolButtonStyle(Qt::ToolButtonTextOnly);
}

QSize MenuButton::sizeHint() const {
  return QToolButton::sizeHint() + QSize(kArrowRoom, 0);
}

void MenuButton::paintEvent(QPaintEvent*) {
  QStylePainter painter(this);
  QStyleOptionToolButton option;
  initStyleOption(&option);
  option.features &= ~QStyleOptionToolButton::HasMenu;
  option.text.clear();
  painter.drawComplexControl(QStyle::CC_ToolButton, option);

  option.text = text();
  option.rect =
      QStyle::visualRect(layoutDirection(), rect(), rect().adjusted(0, 0, -kArrowRoom, 0));
  painter.drawControl(QStyle::CE_ToolButtonLabel, option);

  QStyleOption arrow;
  arrow.initFrom(this);
  const QRect place(width() - kArrowRoom, (height() - kArrow) / 2, kArrow, kArrow);
  arrow.rect = QStyle::visualRect(layoutDirection(), rect(), place);
  painter.drawPrimitive(QStyle::PE_IndicatorArrowDown, arrow);
}

}  // namespace dg
