#include "desktop/print/print_layout.h"

#include <QCoreApplication>
#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <numeric>

#include "desktop/window/theme.h"

namespace dg {

namespace {

constexpr double kFullPoints = 9;
constexpr double kLeastPoints = 5;
constexpr double kMostPoints = 13;
constexpr int kMeasuredRows = 3000;

QFont fontOf(double points) {
  QFont font = figureFont(QFont());
  font.setPointSizeF(points);
  return font;
}

double cellMargin(const QFont& font, QPaintDevice& device) {
  return QFontMetricsF(font, &device).averageCharWidth() * 0.8;
}

QList<double> naturalWidths(const PrintTable& table, const QFont& font, QPaintDevice& device) {
  QFont bold = font;
  bold.setWeight(QFont::DemiBold);
  const QFontMetricsF metrics(font, &device);
  const QFontMetricsF heads(bold, &device);
  const double margins = 2 * cellMargin(font, device);
  QList<double> widths;
  const int rows = qMin(table.rows, kMeasuredRows);
  for (int column = 0; column < table.columns.size(); ++column) {
    double width = heads.horizontalAdvance(table.columns[column].caption);
    for (int row = 0; row < rows; ++row) {
      width = qMax(width, metrics.horizontalAdvance(table.cell(row, column)));
    }
    widths.append(width + margins);
  }
  // The columns under a group heading are wide enough for it together.
  for (int first = 0; first < widths.size();) {
    int next = first + 1;
    double have = widths[first];
    while (next < widths.size() && table.columns[next].group.isEmpty())
      have += widths[next++];
    const double needed = heads.horizontalAdvance(table.columns[first].group) + margins;
    for (int column = first; column < next && needed > have; ++column)
      widths[column] += (needed - have) / (next - first);
    first = next;
  }
  return widths;
}

double sum(const QList<double>& values) {
  return std::accumulate(values.begin(), values.end(), 0.0);
}

bool hasGroups(const PrintTable& table) {
  return std::any_of(table.columns.begin(), table.columns.end(),
                     [](const PrintColumn& column) { return !column.group.isEmpty(); });
}

QString tr(const char* text) {
  return QCoreApplication::translate("PrintDocument", text);
}

}  // namespace

PrintLayout::PrintLayout(const PrintDocument& document, QPaintDevice& device, QSizeF page)
    : document_(document), device_(device), size_(page) {
  const QFont full = fontOf(kFullPoints);
  double widest = 0;
  for (const PrintTable& table : document.tables) {
    widths_.append(naturalWidths(table, full, device));
    widest = qMax(widest, sum(widths_.last()));
  }
  const bool grows = document.fillsWidth && widest > 0;
  const double fit = widest > page.width() || grows ? page.width() / widest : 1;
  const double points = qBound(kLeastPoints, kFullPoints * fit, kMostPoints);
  font_ = fontOf(points);
  bold_ = font_;
  bold_.setWeight(QFont::DemiBold);
  const double scale = points / kFullPoints;
  for (QList<double>& widths : widths_) {
    // Columns that do not fit at the least letter size give up room in proportion.
    const double total = sum(widths) * scale;
    const double squeeze = total > page.width() || (grows && total > 0) ? page.width() / total : 1;
    for (double& width : widths)
      width *= scale * squeeze;
  }
  line_ = QFontMetricsF(font_, &device).height() * 1.25;
  margin_ = cellMargin(font_, device);
  const double step = QFontMetricsF(full, &device).height();
  top_ = qMax(titleArea().height(), storeArea().height()) + noteHeight() + step * 1.4;
  const double foot = QFontMetricsF(full, &device).height() * 1.8;
  breakPages(page.height() - top_ - foot);
}

bool PrintLayout::isWiderThan(const PrintDocument& document, QPaintDevice& device, double width) {
  const QFont full = fontOf(kFullPoints);
  return std::any_of(document.tables.begin(), document.tables.end(), [&](const PrintTable& table) {
    return sum(naturalWidths(table, full, device)) > width;
  });
}

double PrintLayout::headHeight(const PrintTable& table, bool heading) const {
  double height = line_ * 1.2;
  if (hasGroups(table)) height += line_;
  if (heading && !table.heading.isEmpty()) height += line_ * 1.6;
  return height;
}

void PrintLayout::breakPages(double height) {
  Page page;
  double used = 0;
  for (int index = 0; index < document_.tables.size(); ++index) {
    const PrintTable& table = document_.tables[index];
    int row = 0;
    bool heading = true;
    const double above = linesHeight(table.above);
    const double below = linesHeight(table.below);
    const auto turn = [&] {
      pages_.append(page);
      page.clear();
      used = 0;
    };
    do {
      const double head = headHeight(table, heading) + (heading ? above : 0);
      // A heading stands with at least two rows below it.
      if (!page.isEmpty() && used + head + 2 * line_ > height) turn();
      const int room = qMax(1, static_cast<int>((height - used - head) / line_));
      const int rows = qMin(room, table.rows - row);
      page.append({index, row, rows, heading, false});
      used += head + rows * line_ + line_;
      row += rows;
      heading = false;
    } while (row < table.rows);
    // What stands below the table stays together.
    if (below > 0 && used + below > height) {
      turn();
      page.append({index, row, 0, false, false});
    }
    page.last().end = true;
    used += below;
  }
  pages_.append(page);
}

void PrintLayout::paint(QPainter& painter, int page) const {
  paintPageHead(painter);
  double y = top_;
  for (const Piece& piece : pages_[page]) {
    const PrintTable& table = document_.tables[piece.table];
    const QList<double>& widths = widths_[piece.table];
    if (piece.heading) y = paintLines(painter, table.above, y);
    if (piece.rows > 0 || piece.heading) {
      y = paintTableHead(painter, piece.table, y, piece.heading);
    }
    painter.setFont(font_);
    for (int row = 0; row < piece.rows; ++row) {
      double x = 0;
      if (row % 2 == 1)
        painter.fillRect(QRectF(0, y, sum(widths), line_), QColor(0xf3, 0xf4, 0xf6));
      for (int column = 0; column < widths.size(); ++column) {
        paintCell(painter, {x, y, widths[column], line_}, table.cell(piece.firstRow + row, column),
                  table.columns[column].alignRight);
        x += widths[column];
      }
      y += line_;
    }
    if (piece.end) y = paintLines(painter, table.below, y);
    y += line_;
  }
  paintPageFoot(painter, page);
}

double PrintLayout::linesHeight(const QStringList& lines) const {
  if (lines.isEmpty()) return 0;
  const QFontMetricsF metrics(bold_, &device_);
  double height = line_;
  for (const QString& line : lines) {
    height += metrics.boundingRect({0, 0, size_.width(), 1e6}, Qt::TextWordWrap, line).height();
  }
  return height;
}

double PrintLayout::paintLines(QPainter& painter, const QStringList& lines, double top) const {
  if (lines.isEmpty()) return top;
  const QFontMetricsF metrics(bold_, &device_);
  painter.setPen(Qt::black);
  painter.setFont(bold_);
  double y = top + line_ / 2;
  for (const QString& line : lines) {
    const QRectF area = metrics.boundingRect({0, y, size_.width(), 1e6}, Qt::TextWordWrap, line);
    painter.drawText(QRectF(0, y, size_.width(), area.height()), Qt::TextWordWrap, line);
    y += area.height();
  }
  return y + line_ / 2;
}

QRectF PrintLayout::titleArea() const {
  const QFontMetricsF metrics(scaledFont(fontOf(kFullPoints), 1.35, QFont::DemiBold), &device_);
  const double width = size_.width() * (document_.store.isEmpty() ? 1 : 0.6);
  return {0, 0, width,
          metrics.boundingRect({0, 0, width, 1e6}, Qt::TextWordWrap, document_.title).height()};
}

QRectF PrintLayout::storeArea() const {
  const QFontMetricsF metrics(fontOf(kFullPoints), &device_);
  const double left = size_.width() * 0.63;
  const double width = size_.width() - left;
  return {left, 0, width,
          metrics.boundingRect({0, 0, width, 1e6}, Qt::TextWordWrap, document_.store).height()};
}

double PrintLayout::noteHeight() const {
  if (document_.note.isEmpty()) return 0;
  return QFontMetricsF(fontOf(kFullPoints), &device_)
             .boundingRect({0, 0, size_.width(), 1e6}, Qt::TextWordWrap, document_.note)
             .height() *
         1.1;
}

double PrintLayout::paintTableHead(QPainter& painter, int index, double top, bool heading) const {
  const PrintTable& table = document_.tables[index];
  const QList<double>& widths = widths_[index];
  double y = top;
  painter.setPen(Qt::black);
  if (heading && !table.heading.isEmpty()) {
    painter.setFont(scaledFont(font_, 1.15, QFont::DemiBold));
    painter.drawText(QRectF(0, y, size_.width(), line_ * 1.4), Qt::AlignLeft | Qt::AlignVCenter,
                     table.heading);
    y += line_ * 1.6;
  }
  painter.setFont(bold_);
  if (hasGroups(table)) {
    paintGroups(painter, index, y);
    y += line_;
  }
  double x = 0;
  for (int column = 0; column < widths.size(); ++column) {
    paintCell(painter, {x, y, widths[column], line_}, table.columns[column].caption,
              table.columns[column].alignRight);
    x += widths[column];
  }
  y += line_ * 1.1;
  painter.setPen(QPen(Qt::black, line_ / 20));
  painter.drawLine(QPointF(0, y), QPointF(x, y));
  return y + line_ * 0.1;
}

void PrintLayout::paintGroups(QPainter& painter, int index, double top) const {
  const PrintTable& table = document_.tables[index];
  const QList<double>& widths = widths_[index];
  double x = 0;
  for (int column = 0; column < widths.size();) {
    const QString& group = table.columns[column].group;
    double width = widths[column];
    int next = column + 1;
    while (next < widths.size() && table.columns[next].group.isEmpty())
      width += widths[next++];
    const QRectF area(x + margin_, top, width - 2 * margin_, line_);
    if (!group.isEmpty()) {
      const QString text =
          QFontMetricsF(bold_, &device_).elidedText(group, Qt::ElideRight, area.width());
      painter.drawText(area, Qt::AlignCenter, text);
      painter.drawLine(area.bottomLeft(), area.bottomRight());
    }
    x += width;
    column = next;
  }
}

void PrintLayout::paintCell(QPainter& painter, const QRectF& cell, const QString& text,
                            bool right) const {
  const QRectF area = cell.adjusted(margin_, 0, -margin_, 0);
  const QFontMetricsF metrics(painter.font(), &device_);
  // Half a unit of tolerance: widths were measured with the same text.
  const QString fitting = metrics.elidedText(text, Qt::ElideRight, area.width() + 0.5);
  painter.drawText(area, (right ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter, fitting);
}

void PrintLayout::paintPageHead(QPainter& painter) const {
  const QFont full = fontOf(kFullPoints);
  const double step = QFontMetricsF(full, &device_).height();
  painter.setPen(Qt::black);
  painter.setFont(scaledFont(full, 1.35, QFont::DemiBold));
  painter.drawText(titleArea(), Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap, document_.title);
  painter.setFont(full);
  painter.drawText(storeArea(), Qt::AlignRight | Qt::AlignTop | Qt::TextWordWrap, document_.store);
  double y = qMax(titleArea().height(), storeArea().height());
  if (!document_.note.isEmpty()) {
    painter.drawText(QRectF(0, y, size_.width(), noteHeight()),
                     Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap, document_.note);
    y += noteHeight();
  }
  painter.setPen(QPen(QColor(0x80, 0x88, 0x90), step / 18));
  painter.drawLine(QPointF(0, y + step * 0.4), QPointF(size_.width(), y + step * 0.4));
}

void PrintLayout::paintPageFoot(QPainter& painter, int page) const {
  const QFont full = fontOf(kFullPoints * 0.9);
  const double step = QFontMetricsF(full, &device_).height();
  const QRectF foot(0, size_.height() - step * 1.1, size_.width(), step * 1.1);
  painter.setPen(QColor(0x50, 0x58, 0x60));
  painter.setFont(full);
  painter.drawText(foot, Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("Dealer Gauge 2"));
  painter.drawText(foot, Qt::AlignCenter, document_.made);
  painter.drawText(foot, Qt::AlignRight | Qt::AlignVCenter,
                   tr("page %1 of %2").arg(page + 1).arg(pageCount()));
}

}  // namespace dg
