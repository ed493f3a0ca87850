#include "desktop/recap/bar_chart.h"

#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QMenu>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <cmath>

#include "desktop/window/text.h"
#include "desktop/window/theme.h"

namespace dg {

namespace {

constexpr int kMargin = 18;
constexpr int kBarGap = 10;
constexpr int kLeastWidth = 320;

}  // namespace

/// Where values stand: the pixels of the bars' area and the values at its ends.
struct BarChart::Scale {
  int left;   ///< where bars may begin; names stand before it
  int right;  ///< where they end; values stand behind it
  int top;
  double least;
  double most;
  double step;

  double x(double value) const { return left + (value - least) / (most - least) * (right - left); }
};

QColor seriesColor(int series, const QPalette& palette) {
  if (series == 0) return accentColor(palette);
  return isDark(palette) ? QColor(0xf0, 0xb3, 0x5c) : QColor(0xd9, 0x83, 0x1f);
}

BarChart::BarChart(QWidget* parent) : QWidget(parent) {
  setFocusPolicy(Qt::StrongFocus);
  const QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  setSizePolicy(policy);
}

void BarChart::setData(ChartData data) {
  data_ = std::move(data);
  setAccessibleName(data_.title + QStringLiteral(" ") + data_.note);
  QStringList lines;
  for (const ChartBar& bar : data_.bars)
    lines.append(describe(bar));
  setAccessibleDescription(lines.join(u'\n'));
  updateGeometry();
  update();
}

void BarChart::setTools(QWidget* tools) {
  tools_ = tools;
  tools->setParent(this);
}

void BarChart::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  if (tools_ == nullptr) return;
  tools_->resize(tools_->sizeHint());
  tools_->move(width() - kMargin - tools_->width(), kMargin - 6);
}

QString BarChart::describe(const ChartBar& bar) const {
  if (data_.series.size() == 1) return bar.name + QStringLiteral(": ") + exactMoney(bar.values[0]);
  QStringList parts;
  for (int i = 0; i < bar.values.size(); ++i)
    parts.append(data_.series[i] + u' ' + exactMoney(bar.values[i]));
  return bar.name + QStringLiteral(": ") + parts.join(QStringLiteral(", "));
}

int BarChart::headHeight() const {
  return kMargin + fontMetrics().height() * 3 + 14;
}

int BarChart::barPitch() const {
  const int thickness = fontMetrics().height() + 2;
  return static_cast<int>(qMax(qsizetype{1}, data_.series.size())) * thickness + kBarGap;
}

int BarChart::contentHeight() const {
  const int bars = static_cast<int>(qMax(qsizetype{3}, data_.bars.size()));
  return headHeight() + bars * barPitch() + fontMetrics().height() + kMargin;
}

QSize BarChart::sizeHint() const {
  return {kLeastWidth * 3 / 2, contentHeight()};
}

QSize BarChart::minimumSizeHint() const {
  return {kLeastWidth, contentHeight()};
}

BarChart::Scale BarChart::scaleFor(int width) const {
  const QFontMetrics metrics(figureFont(font()));
  int names = 0;
  int figures = 0;
  double least = 0;
  double most = 0;
  for (const ChartBar& bar : data_.bars) {
    names = qMax(names, metrics.horizontalAdvance(bar.name));
    for (const double value : bar.values) {
      figures = qMax(figures, metrics.horizontalAdvance(shortMoney(value)));
      least = qMin(least, value);
      most = qMax(most, value);
    }
  }
  if (most <= least) most = least + 1;
  const int leftFigures = least < 0 ? figures + 6 : 0;
  const int left = kMargin + qMin(names + 2, width * 2 / 5) + 10 + leftFigures;
  const int right = width - kMargin - figures - 6;
  // Few enough parts that the figures under the axis stand apart.
  const int parts = std::clamp((right - left) / (figures + 24), 1, 5);
  const double step = roundStep(most - least, parts);
  least = std::floor(least / step) * step;
  most = std::ceil(most / step) * step;
  return {left, right, headHeight(), least, most, step};
}

void BarChart::paint(QPainter& painter, QSize size) const {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(lineColor(palette()));
  painter.setBrush(cardColor(palette()));
  painter.drawRoundedRect(QRectF({}, size).adjusted(0.5, 0.5, -0.5, -0.5), 8, 8);
  paintHead(painter, size.width());
  if (data_.isEmpty()) {
    painter.setFont(font());
    painter.setPen(mutedColor(palette()));
    const QRect rest(QPoint(0, headHeight()), QPoint(size.width(), size.height() - kMargin));
    painter.drawText(rest, Qt::AlignCenter, tr("No figures to show"));
    return;
  }
  const Scale scale = scaleFor(size.width());
  paintAxis(painter, scale);
  for (int bar = 0; bar < data_.bars.size(); ++bar)
    paintBar(painter, scale, bar);
}

void BarChart::paintHead(QPainter& painter, int width) const {
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
    const int text = fontMetrics().horizontalAdvance(data_.series[i]);
    x -= text;
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(QRect(x, y, text + 1, line + 4), Qt::AlignLeft | Qt::AlignVCenter,
                     data_.series[i]);
    x -= 18;
    painter.setPen(Qt::NoPen);
    painter.setBrush(seriesColor(static_cast<int>(i), palette()));
    painter.drawRoundedRect(QRect(x, y + (line + 4 - 12) / 2, 12, 12), 2, 2);
    x -= 16;
  }
}

void BarChart::paintAxis(QPainter& painter, const Scale& scale) const {
  const int bottom = scale.top + static_cast<int>(data_.bars.size()) * barPitch();
  const QFont small = scaledFont(figureFont(font()), 0.9);
  painter.setFont(small);
  const int half = QFontMetrics(small).averageCharWidth() * 8;
  for (double value = scale.least; value <= scale.most + scale.step / 2; value += scale.step) {
    const double x = std::round(scale.x(value)) + 0.5;
    const bool zero = std::fabs(value) < scale.step / 2;
    painter.setPen(zero ? mutedColor(palette()) : lineColor(palette()));
    painter.drawLine(QPointF(x, scale.top - 4), QPointF(x, bottom));
    painter.setPen(mutedColor(palette()));
    painter.drawText(QRectF(x - half, bottom + 2, 2 * half, fontMetrics().height()),
                     Qt::AlignHCenter | Qt::AlignTop, shortMoney(zero ? 0 : value));
  }
}

void BarChart::paintBar(QPainter& painter, const Scale& scale, int index) const {
  const ChartBar& bar = data_.bars[index];
  const int top = scale.top + index * barPitch() + kBarGap / 2;
  const int thickness = fontMetrics().height() + 2;
  painter.setFont(figureFont(font()));
  const QFontMetrics metrics(painter.font());
  const int series = static_cast<int>(bar.values.size());
  const QRect name(kMargin, top, scale.left - kMargin - 10, series * thickness);
  painter.setPen(palette().color(QPalette::WindowText));
  painter.drawText(name, Qt::AlignRight | Qt::AlignVCenter,
                   metrics.elidedText(bar.name, Qt::ElideRight, name.width()));
  for (int i = 0; i < series; ++i) {
    const double value = bar.values[i];
    const double from = scale.x(qMin(0.0, value));
    const double to = scale.x(qMax(0.0, value));
    const QRectF area(from, top + i * thickness + 1, qMax(to - from, 1.0), thickness - 2);
    painter.setPen(Qt::NoPen);
    painter.setBrush(seriesColor(i, palette()));
    painter.drawRoundedRect(area, 2, 2);
    painter.setPen(palette().color(QPalette::WindowText));
    const QString text = shortMoney(value);
    if (value < 0) {
      painter.drawText(area.adjusted(-200, 0, -area.width() - 6, 0),
                       Qt::AlignRight | Qt::AlignVCenter, text);
    } else {
      painter.drawText(area.adjusted(area.width() + 6, 0, 200, 0), Qt::AlignLeft | Qt::AlignVCenter,
                       text);
    }
  }
}

void BarChart::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  paint(painter, size());
  if (hasFocus()) {
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 8, 8);
  }
}

QImage BarChart::picture(double scale) const {
  QImage image((QSizeF(size()) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
  image.setDevicePixelRatio(scale);
  image.fill(palette().color(QPalette::Window));
  QPainter painter(&image);
  paint(painter, size());
  return image;
}

bool BarChart::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QWidget::event(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  const int below = help->pos().y() - headHeight();
  const int bar = below < 0 ? -1 : below / barPitch();
  if (bar >= 0 && bar < data_.bars.size()) {
    QToolTip::showText(help->globalPos(), plainToolTip(describe(data_.bars[bar])), this);
  } else {
    QToolTip::hideText();
  }
  return true;
}

void BarChart::contextMenuEvent(QContextMenuEvent* event) {
  QMenu menu(this);
  menu.addAction(tr("&Save as Picture..."), this, &BarChart::saveRequested);
  menu.exec(event->globalPos());
}

}  // namespace dg
