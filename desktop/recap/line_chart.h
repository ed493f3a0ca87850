#pragma once

#include <QImage>
#include <QWidget>

#include "desktop/recap/line_chart_data.h"

namespace dg {

/// Draws one or two lines over days, in the colours of the palette: two axes where the lines are of
/// different kind or size. The day under the pointer is marked, its tool tip gives the exact
/// values; the arrow keys move the mark, the accessible description tells it.
class LineChart : public QWidget {
  Q_OBJECT

 public:
  explicit LineChart(QWidget* parent = nullptr);

  void setData(LineData data);
  const LineData& data() const { return data_; }

  /// The chart as a picture, `scale` pixels for each of the widget's.
  QImage picture(double scale) const;
  /// What is told of a day: the values kept nearest to it.
  QString describe(int day) const;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool event(QEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 Q_SIGNALS:
  void saveRequested();

 private:
  struct Frame;
  Frame frameFor(QSize size) const;
  void paint(QPainter& painter, QSize size, std::optional<int> marked) const;
  void paintHead(QPainter& painter, int width) const;
  void paintAxes(QPainter& painter, const Frame& frame) const;
  void paintDays(QPainter& painter, const Frame& frame) const;
  void paintLine(QPainter& painter, const Frame& frame, int series) const;
  void paintMark(QPainter& painter, const Frame& frame, int day) const;
  void mark(std::optional<int> day);
  std::optional<int> dayAt(int x) const;

  LineData data_;
  std::optional<int> marked_;  ///< a kept day
};

}  // namespace dg
