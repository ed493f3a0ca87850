#include "desktop/grid/group_header.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionHeader>
#include <QToolTip>
#include <algorithm>

#include "desktop/window/text.h"
#include "desktop/window/theme.h"

namespace dg {

namespace {

constexpr int kMargin = 6;

}  // namespace

GroupHeader::GroupHeader(const Grid& grid, QWidget* parent)
    : QHeaderView(Qt::Horizontal, parent), grid_(grid) {
  hasGroups_ = std::any_of(grid.columns().begin(), grid.columns().end(),
                           [](const Grid::Column& column) { return !column.group.empty(); });
  setSectionsClickable(static_cast<bool>(grid.onHeadClick));
  setHighlightSections(false);
  setSectionsMovable(false);
  setMinimumSectionSize(fontMetrics().averageCharWidth() * 4);
  setResizeContentsPrecision(200);
  setTextElideMode(Qt::ElideRight);
}

int GroupHeader::groupHeight() const {
  return hasGroups_ ? fontMetrics().height() + 8 : 0;
}

QFont GroupHeader::groupFont() const {
  QFont bold = font();
  bold.setWeight(QFont::DemiBold);
  return bold;
}

int GroupHeader::groupWidth(int column) const {
  const std::string& group = grid_.columns()[static_cast<std::size_t>(column)].group;
  if (group.empty()) return 0;
  return QFontMetrics(groupFont()).horizontalAdvance(cellText(group)) + 2 * kMargin + 2;
}

QSize GroupHeader::sectionSizeFromContents(int section) const {
  QSize size = QHeaderView::sectionSizeFromContents(section);
  size.setHeight(qMax(size.height(), fontMetrics().height() + 10) + groupHeight());
  // Room for the sort arrow in every column, so that a sort does not cut a heading.
  size.rwidth() += arrowRoom(section);
  return size;
}

int GroupHeader::arrowRoom(int section) const {
  const bool sorted = isSortIndicatorShown() && sortIndicatorSection() == section;
  if (sorted || !sectionsClickable()) return 0;
  const auto metric = [this](QStyle::PixelMetric each) {
    return style()->pixelMetric(each, nullptr, this);
  };
  return metric(QStyle::PM_HeaderMarkSize) + metric(QStyle::PM_HeaderMargin);
}

void GroupHeader::paintSection(QPainter* painter, const QRect& rect, int section) const {
  QHeaderView::paintSection(painter, rect.adjusted(0, groupHeight(), 0, 0), section);
}

void GroupHeader::initStyleOptionForIndex(QStyleOptionHeader* option, int section) const {
  QHeaderView::initStyleOptionForIndex(option, section);
  if (sectionsClickable() && (!grid_.headSorts || grid_.headSorts(section))) {
    option->palette.setColor(QPalette::ButtonText, accentColor(option->palette));
  }
#ifdef Q_OS_WIN
  // As the file manager there has it: the arrow points to the top where the smallest stands there.
  if (option->sortIndicator == QStyleOptionHeader::SortDown) {
    option->sortIndicator = QStyleOptionHeader::SortUp;
  } else if (option->sortIndicator == QStyleOptionHeader::SortUp) {
    option->sortIndicator = QStyleOptionHeader::SortDown;
  }
#endif
}

QList<GroupHeader::Span> GroupHeader::spans() const {
  QList<Span> result;
  for (int column = 0; column < count(); ++column) {
    const auto& group = grid_.columns()[static_cast<std::size_t>(column)].group;
    if (!group.empty() || result.isEmpty()) {
      const int left = sectionViewportPosition(column);
      result.append({cellText(group), left, left});
    }
    if (!isSectionHidden(column)) {
      result.last().right = sectionViewportPosition(column) + sectionSize(column);
    }
  }
  return result;
}

void GroupHeader::paintEvent(QPaintEvent* event) {
  QHeaderView::paintEvent(event);
  QPainter painter(viewport());
  if (length() < viewport()->width()) {
    // Behind the last column the header goes on.
    QStyleOptionHeader rest;
    rest.initFrom(this);
    rest.orientation = Qt::Horizontal;
    rest.rect = viewport()->rect().adjusted(length() - offset(), 0, 0, 0);
    style()->drawControl(QStyle::CE_HeaderSection, &rest, &painter, this);
  }
  if (!hasGroups_) return;
  painter.setFont(groupFont());
  const QFontMetrics metrics(groupFont());
  for (const Span& span : spans()) {
    const QRect area(span.left, 0, span.right - span.left, groupHeight());
    if (area.width() <= 0 || !area.intersects(viewport()->rect())) continue;
    painter.fillRect(area, palette().color(QPalette::Button));
    painter.setPen(lineColor(palette()));
    painter.drawLine(area.topRight(), area.bottomRight());
    painter.drawLine(area.bottomLeft(), area.bottomRight());
    painter.setPen(palette().color(QPalette::ButtonText));
    // A heading stays readable while its columns are scrolled half out of sight.
    const QRect seen = area.intersected(viewport()->rect()).adjusted(kMargin, 0, -kMargin, 0);
    painter.drawText(seen, Qt::AlignCenter,
                     metrics.elidedText(span.text, Qt::ElideRight, seen.width()));
  }
}

bool GroupHeader::viewportEvent(QEvent* event) {
  if (event->type() == QEvent::ToolTip) {
    const auto* help = static_cast<QHelpEvent*>(event);
    const int section = logicalIndexAt(help->pos());
    QString text;
    if (hasGroups_ && help->pos().y() < groupHeight()) {
      for (const Span& span : spans()) {
        if (help->pos().x() < span.left || help->pos().x() >= span.right) continue;
        if (fontMetrics().horizontalAdvance(span.text) > span.right - span.left - 2 * kMargin) {
          text = span.text;
        }
      }
    } else if (section >= 0 && sectionSizeFromContents(section).width() > sectionSize(section)) {
      text = model()->headerData(section, Qt::Horizontal).toString();
    }
    if (text.isEmpty()) {
      QToolTip::hideText();
    } else {
      QToolTip::showText(help->globalPos(), plainToolTip(text), viewport());
    }
    return true;
  }
  return QHeaderView::viewportEvent(event);
}

}  // namespace dg
