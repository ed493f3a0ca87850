#pragma once

#include <QPainter>
#include <QProxyStyle>
#include <QStyleOption>

#include "desktop/window/theme.h"

namespace dg {

/// The application's style with more room at both sides of a table's texts, so that a figure at the
/// right edge of its column does not touch the text of the next, and with a frame around the cell
/// that the keyboard acts on.
class CellStyle : public QProxyStyle {
  Q_OBJECT

 public:
  explicit CellStyle(QObject* parent) { setParent(parent); }

  int pixelMetric(PixelMetric metric, const QStyleOption* option = nullptr,
                  const QWidget* widget = nullptr) const override {
    constexpr int kRoom = 5;
    if (metric == PM_FocusFrameHMargin || metric == PM_HeaderMargin) return kRoom;
    return QProxyStyle::pixelMetric(metric, option, widget);
  }

  /// The current cell: styles tint it so faintly that on dark ground it is not seen.
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget = nullptr) const override {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (element != PE_FrameFocusRect) return;
    painter->save();
    painter->setPen(accentColor(option->palette));
    painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
    painter->restore();
  }
};

}  // namespace dg
