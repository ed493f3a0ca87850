// The pictures of the navigation tree, drawn in the colours of the palette.

#include <QIcon>
#include <QPainter>
#include <QPainterPath>

#include "desktop/window/theme.h"
#include "desktop/window/tree_panel.h"

namespace dg {

namespace {

constexpr int kSide = 72;  // drawn large; icons are scaled down

/// A sheet of paper with a turned-down corner and lines of figures.
void drawSheet(QPainter& painter, const QColor& line, const QColor& fill) {
  QPainterPath paper;
  paper.moveTo(16, 6);
  paper.lineTo(44, 6);
  paper.lineTo(58, 20);
  paper.lineTo(58, 66);
  paper.lineTo(16, 66);
  paper.closeSubpath();
  painter.setPen(QPen(line, 5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(fill);
  painter.drawPath(paper);
  for (const int y : {32, 43, 54})
    painter.drawLine(27, y, 47, y);
}

/// A half dial with its needle.
void drawGauge(QPainter& painter, const QColor& line, const QColor& needle) {
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(line, 7, Qt::SolidLine, Qt::RoundCap));
  painter.drawArc(QRect(8, 14, 56, 56), -20 * 16, 220 * 16);
  painter.setPen(QPen(needle, 6, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(36, 44, 49, 29);
  painter.setPen(Qt::NoPen);
  painter.setBrush(needle);
  painter.drawEllipse(QPoint(36, 44), 6, 6);
}

QPixmap picture(int number, const QColor& quiet, const QColor& accent) {
  QPixmap pixmap(kSide, kSide);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  QColor fill = accent;
  fill.setAlphaF(0.25F);
  if (number == 1) drawSheet(painter, quiet, Qt::transparent);
  if (number == 2) drawSheet(painter, accent, fill);
  if (number == 3) drawGauge(painter, quiet, accent);
  return pixmap;
}

}  // namespace

QIcon treeImage(int number, const QPalette& palette) {
  if (number < 1 || number > 3) return {};
  QIcon icon;
  icon.addPixmap(picture(number, mutedColor(palette), accentColor(palette)));
  const QColor marked = palette.color(QPalette::HighlightedText);
  icon.addPixmap(picture(number, marked, marked), QIcon::Selected);
  return icon;
}

}  // namespace dg
