#include "desktop/recap/line_chart.h"

#include <QAccessible>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QMenu>
#include <QPainter>
#include <QPainterPath>
#include <QToolTip>
#include <algorithm>
#include <cmath>

#include "desktop/recap/bar_chart.h"
#include "desktop/window/text.h"
#include "desktop/window/theme.h"

namespace dg {

namespace {

constexpr int kMargin = 18;
constexpr int kLeastWidth = 360;
constexpr int kLeastHeight = 220;
constexpr int kValueParts = 4;
constexpr double kDot = 2.5;
/// Dots on each day where they stand at least this far apart.
constexpr double kDotRoom = 7;

int nextKept(const LineData& data, int day, int direction) {
  int best = day;
  for (const LineSeries& series : data.series) {
    for (const LinePoint& point : series.points) {
      const bool beyond = direction > 0 ? point.day > day : point.day < day;
      const bool nearer = best == day || std::abs(point.day - day) < std::abs(best - day);
      if (beyond && nearer) best = point.day;
    }
  }
  return best;
}

}  // namespace

/// Where the lines stand: the pixels of their area, and the values and days at its ends.
struct LineChart::Frame {
  QRectF area;
  QList<ValueAxis> axes;  ///< one, or one for each of two lines
  int firstDay;
  int lastDay;

  const ValueAxis& axisOf(int series) const {
    return axes[qMin<qsizetype>(series, axes.size() - 1)];
  }
  double x(double day) const {
    // A single day stands in the middle.
    if (lastDay == firstDay) return area.center().x();
    return area.left() + (day - firstDay) / (lastDay - firstDay) * area.width();
  }
  double y(double value, const ValueAxis& axis) const {
    return area.bottom() - (value - axis.least) / (axis.most - axis.least) * area.height();
  }
};

LineChart::LineChart(QWidget* parent) : QWidget(parent) {
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void LineChart::setData(LineData data) {
  data_ = std::move(data);
  marked_.reset();
  QStringList names;
  for (const LineSeries& series : data_.series)
    names.append(series.name);
  setAccessibleName(tr("Line of %1, %2").arg(names.join(QStringLiteral(", ")), data_.note));
  setAccessibleDescription(data_.isEmpty() ? tr("No days to show") : describe(data_.lastDay));
  update();
}

QString LineChart::describe(int day) const {
  QStringList lines;
  int last = 0;
  for (const LineSeries& series : data_.series) {
    const LinePoint* point = series.nearest(day);
    if (point == nullptr) continue;
    if (lines.isEmpty() || point->day != last) lines.append(dayText(point->day));
    last = point->day;
    lines.append(series.name + QStringLiteral(": ") +
                 cellText(amountText(Currency::fromDouble(point->value), series.kind)));
  }
  return lines.join(u'\n');
}

QSize LineChart::sizeHint() const {
  return {kLeastWidth * 2, kLeastHeight * 3 / 2};
}

QSize LineChart::minimumSizeHint() const {
  return {kLeastWidth, kLeastHeight};
}

LineChart::Frame LineChart::frameFor(QSize size) const {
  Frame frame{.area = {}, .axes = {}, .firstDay = data_.firstDay, .lastDay = data_.lastDay};
  const bool shared =
      data_.series.size() < 2 || shareAxis(data_.series.first(), data_.series.last());
  QList<const LineSeries*> lines;
  for (const LineSeries& series : data_.series)
    lines.append(&series);
  if (shared) {
    frame.axes.append(valueAxis(lines, kValueParts));
  } else {
    for (const LineSeries* line : lines)
      frame.axes.append(valueAxis({line}, kValueParts));
  }
  const QFontMetrics metrics(scaledFont(figureFont(font()), 0.9));
  const auto widest = [&](int axis) {
    const ValueAxis& values = frame.axes[axis];
    int width = 0;
    for (double value = values.least; value <= values.most + values.step / 2; value += values.step)
      width = qMax(
          width, metrics.horizontalAdvance(axisText(value, data_.series[axis].kind, values.step)));
    return width + 10;
  };
  const int line = fontMetrics().height();
  const double top = kMargin + 2 * line + 22;
  const double left = kMargin + widest(0);
  const double right = size.width() - kMargin - (frame.axes.size() > 1 ? widest(1) : 6);
  frame.area = QRectF(QPointF(left, top), QPointF(right, size.height() - kMargin - line - 4));
  return frame;
}

void LineChart::paint(QPainter& painter, QSize size, std::optional<int> marked) const {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(lineColor(palette()));
  painter.setBrush(cardColor(palette()));
  painter.drawRoundedRect(QRectF({}, size).adjusted(0.5, 0.5, -0.5, -0.5), 8, 8);
  paintHead(painter, size.width());
  if (data_.isEmpty()) {
    painter.setFont(font());
    painter.setPen(mutedColor(palette()));
    painter.drawText(QRect({}, size), Qt::AlignCenter, tr("No days to show"));
    return;
  }
  const Frame frame = frameFor(size);
  paintAxes(painter, frame);
  paintDays(painter, frame);
  for (int series = 0; series < data_.series.size(); ++series)
    paintLine(painter, frame, series);
  if (marked) paintMark(painter, frame, *marked);
}

void LineChart::paintHead(QPainter& painter, int width) const {
  const int line = fontMetrics().height();
  painter.setPen(palette().color(QPalette::WindowText));
  painter.setFont(scaledFont(font(), 1.15, QFont::DemiBold));
  painter.drawText(QRect(kMargin, kMargin - 4, width - 2 * kMargin, line + 8),
                   Qt::AlignLeft | Qt::AlignVCenter, data_.title);
  painter.setFont(font());
  painter.setPen(mutedColor(palette()));
  const int y = kMargin + line + 8;
  painter.drawText(QRect(kMargin, y, width - 2 * kMargin, line + 4),
                   Qt::AlignLeft | Qt::AlignVCenter, data_.note);
  if (data_.series.size() < 2) return;
  int x = width - kMargin;
  for (qsizetype i = data_.series.size() - 1; i >= 0; --i) {
    const QString& name = data_.series[i].name;
    const int text = fontMetrics().horizontalAdvance(name);
    x -= text;
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(QRect(x, y, text + 1, line + 4), Qt::AlignLeft | Qt::AlignVCenter, name);
    x -= 26;
    painter.setPen(QPen(seriesColor(static_cast<int>(i), palette()), 2.5,
                        i == 0 ? Qt::SolidLine : Qt::DashLine));
    painter.drawLine(x, y + (line + 4) / 2, x + 20, y + (line + 4) / 2);
    x -= 16;
  }
}

void LineChart::paintAxes(QPainter& painter, const Frame& frame) const {
  painter.setFont(scaledFont(figureFont(font()), 0.9));
  const double half = fontMetrics().height();
  for (int i = 0; i < frame.axes.size(); ++i) {
    const ValueAxis& axis = frame.axes[i];
    for (double value = axis.least; value <= axis.most + axis.step / 2; value += axis.step) {
      const bool zero = std::fabs(value) < axis.step / 2;
      const double y = std::round(frame.y(value, axis)) + 0.5;
      if (i == 0) {
        painter.setPen(zero ? mutedColor(palette()) : lineColor(palette()));
        painter.drawLine(QPointF(frame.area.left(), y), QPointF(frame.area.right(), y));
      }
      painter.setPen(frame.axes.size() > 1 ? seriesColor(i, palette()) : mutedColor(palette()));
      const QString text = axisText(zero ? 0 : value, data_.series[i].kind, axis.step);
      const QRectF left(0, y - half, frame.area.left() - 8, 2 * half);
      const QRectF right(frame.area.right() + 8, y - half, frame.area.left(), 2 * half);
      painter.drawText(i == 0 ? left : right,
                       Qt::AlignVCenter | (i == 0 ? Qt::AlignRight : Qt::AlignLeft), text);
    }
  }
}

void LineChart::paintDays(QPainter& painter, const Frame& frame) const {
  const QFont small = scaledFont(figureFont(font()), 0.9);
  painter.setFont(small);
  const QFontMetrics metrics(small);
  const int room = metrics.horizontalAdvance(QStringLiteral("Sep 2026")) + 18;
  const int most = qMax(1, static_cast<int>(frame.area.width()) / room);
  for (const DayMark& mark : dayMarks(frame.firstDay, frame.lastDay, most)) {
    const double x = std::round(frame.x(mark.day)) + 0.5;
    painter.setPen(lineColor(palette()));
    painter.drawLine(QPointF(x, frame.area.bottom()), QPointF(x, frame.area.bottom() + 4));
    painter.setPen(mutedColor(palette()));
    const double width = metrics.horizontalAdvance(mark.text) + 2;
    const double left =
        std::clamp(x - width / 2, 4.0, qMax(4.0, frame.area.right() + kMargin - width));
    painter.drawText(QRectF(left, frame.area.bottom() + 5, width, fontMetrics().height()),
                     Qt::AlignHCenter | Qt::AlignTop, mark.text);
  }
}

// Days that follow each other are one stroke; over missing ones goes a fine dotted line, which
// leads the eye and claims nothing.
void LineChart::paintLine(QPainter& painter, const Frame& frame, int index) const {
  const LineSeries& series = data_.series[index];
  const ValueAxis& axis = frame.axisOf(index);
  const QColor color = seriesColor(index, palette());
  const int days = frame.lastDay - frame.firstDay + 1;
  const int width = qMax(1, static_cast<int>(frame.area.width()));
  // Where several days fall on a pixel, what is between them cannot be seen.
  const int closest = qMax(1, days / width + 1);
  const QList<LinePoint> points = thinnedOut(series.points, frame.firstDay, frame.lastDay, width);
  QPainterPath strokes;
  QPainterPath gaps;
  const LinePoint* former = nullptr;
  for (const LinePoint& point : points) {
    const QPointF place(frame.x(point.day), frame.y(point.value, axis));
    if (former == nullptr) {
      strokes.moveTo(place);
    } else if (point.day - former->day <= closest) {
      strokes.lineTo(place);
    } else {
      gaps.moveTo(frame.x(former->day), frame.y(former->value, axis));
      gaps.lineTo(place);
      strokes.moveTo(place);
    }
    former = &point;
  }
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(color, 1, Qt::DotLine));
  painter.drawPath(gaps);
  painter.setPen(
      QPen(color, 2, index == 0 ? Qt::SolidLine : Qt::DashLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPath(strokes);
  if (frame.area.width() / days < kDotRoom && points.size() > 1 && gaps.isEmpty()) return;
  if (frame.area.width() / days < 2) return;
  painter.setPen(Qt::NoPen);
  painter.setBrush(color);
  for (const LinePoint& point : points)
    painter.drawEllipse(QPointF(frame.x(point.day), frame.y(point.value, axis)), kDot, kDot);
}

void LineChart::paintMark(QPainter& painter, const Frame& frame, int day) const {
  const double x = std::round(frame.x(day)) + 0.5;
  painter.setPen(mutedColor(palette()));
  painter.drawLine(QPointF(x, frame.area.top()), QPointF(x, frame.area.bottom()));
  for (int i = 0; i < data_.series.size(); ++i) {
    const LinePoint* point = data_.series[i].nearest(day);
    if (point == nullptr) continue;
    painter.setPen(QPen(cardColor(palette()), 2));
    painter.setBrush(seriesColor(i, palette()));
    painter.drawEllipse(QPointF(frame.x(point->day), frame.y(point->value, frame.axisOf(i))),
                        kDot * 2, kDot * 2);
  }
}

void LineChart::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  paint(painter, size(), marked_);
  if (hasFocus()) {
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 8, 8);
  }
}

QImage LineChart::picture(double scale) const {
  QImage image((QSizeF(size()) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
  image.setDevicePixelRatio(scale);
  image.fill(palette().color(QPalette::Window));
  QPainter painter(&image);
  paint(painter, size(), std::nullopt);
  return image;
}

std::optional<int> LineChart::dayAt(int x) const {
  if (data_.isEmpty()) return std::nullopt;
  const Frame frame = frameFor(size());
  if (x < frame.area.left() - kMargin || x > frame.area.right() + kMargin) return std::nullopt;
  const double share = (x - frame.area.left()) / frame.area.width();
  const int day =
      frame.firstDay + static_cast<int>(std::lround(share * (frame.lastDay - frame.firstDay)));
  // The nearest day that either line has.
  std::optional<int> best;
  for (const LineSeries& series : data_.series) {
    const LinePoint* point = series.nearest(day);
    if (point != nullptr && (!best || std::abs(point->day - day) < std::abs(*best - day)))
      best = point->day;
  }
  return best;
}

void LineChart::mark(std::optional<int> day) {
  if (day == marked_) return;
  marked_ = day;
  if (day) setAccessibleDescription(describe(*day));
  update();
}

bool LineChart::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QWidget::event(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  if (const auto day = dayAt(help->pos().x())) {
    QToolTip::showText(help->globalPos(), plainToolTip(describe(*day)), this);
  } else {
    QToolTip::hideText();
  }
  return true;
}

void LineChart::mouseMoveEvent(QMouseEvent* event) {
  const auto day = dayAt(event->position().toPoint().x());
  if (day && day != marked_ && QToolTip::isVisible()) {
    QToolTip::showText(event->globalPosition().toPoint(), plainToolTip(describe(*day)), this);
  }
  mark(day);
}

void LineChart::leaveEvent(QEvent*) {
  mark(std::nullopt);
}

void LineChart::keyPressEvent(QKeyEvent* event) {
  const bool left = event->key() == Qt::Key_Left;
  if (data_.isEmpty() || (!left && event->key() != Qt::Key_Right)) {
    QWidget::keyPressEvent(event);
    return;
  }
  const int from = marked_.value_or(data_.lastDay + 1);
  const int day = nextKept(data_, from, left ? -1 : 1);
  if (day == from) return;
  mark(day);
  const Frame frame = frameFor(size());
  const QPoint place(static_cast<int>(frame.x(day)), static_cast<int>(frame.area.top()));
  QToolTip::showText(mapToGlobal(place), plainToolTip(describe(day)), this);
}

void LineChart::contextMenuEvent(QContextMenuEvent* event) {
  QMenu menu(this);
  menu.addAction(tr("&Save as Picture..."), this, &LineChart::saveRequested);
  menu.exec(event->globalPos());
}

}  // namespace dg
