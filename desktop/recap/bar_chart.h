#pragma once

#include <QImage>
#include <QWidget>

#include "desktop/recap/chart_data.h"

namespace dg {

/// Draws horizontal bars with their names and values, in the colours of the palette. A bar's tool
/// tip gives its exact value, the accessible description all of them.
class BarChart : public QWidget {
  Q_OBJECT

 public:
  explicit BarChart(QWidget* parent = nullptr);

  void setData(ChartData data);
  const ChartData& data() const { return data_; }
  /// Puts a widget into the chart's upper right corner.
  void setTools(QWidget* tools);

  /// The chart as a picture, `scale` pixels for each of the widget's.
  QImage picture(double scale) const;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  bool event(QEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 Q_SIGNALS:
  void saveRequested();

 private:
  struct Scale;
  Scale scaleFor(int width) const;
  void paint(QPainter& painter, QSize size) const;
  void paintHead(QPainter& painter, int width) const;
  void paintAxis(QPainter& painter, const Scale& scale) const;
  void paintBar(QPainter& painter, const Scale& scale, int bar) const;
  QString describe(const ChartBar& bar) const;
  int headHeight() const;
  int barPitch() const;
  int contentHeight() const;

  ChartData data_;
  QWidget* tools_ = nullptr;
};

/// The colour of a chart's series.
QColor seriesColor(int series, const QPalette& palette);

}  // namespace dg
