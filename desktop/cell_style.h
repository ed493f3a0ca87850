#pragma once

#include <QProxyStyle>

namespace dg {

/// The application's style with more room at both sides of a table's texts, so that a figure at the
/// right edge of its column does not touch the text of the next.
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
};

}  // namespace dg
