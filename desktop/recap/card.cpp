#include "desktop/recap/card.h"

#include <QGridLayout>
#include <QPainter>

#include "desktop/window/theme.h"

namespace dg {

namespace {

constexpr int kMargin = 18;
constexpr double kRadius = 8;

}  // namespace

Card::Card(QWidget* parent) : QWidget(parent), grid_(new QGridLayout(this)) {
  grid_->setContentsMargins(kMargin, 14, kMargin, 14);
  grid_->setHorizontalSpacing(18);
  grid_->setVerticalSpacing(0);
}

void Card::setRuledRows(int first, int last) {
  firstRuled_ = first;
  lastRuled_ = last;
}

void Card::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(lineColor(palette()));
  painter.setBrush(cardColor(palette()));
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);
  painter.setRenderHint(QPainter::Antialiasing, false);
  for (int row = firstRuled_; row <= lastRuled_; ++row) {
    const int y = grid_->cellRect(row, 0).top();
    painter.setPen(row == sectionRow_ ? mutedColor(palette()) : lineColor(palette()));
    painter.drawLine(kMargin, y, width() - kMargin - 1, y);
  }
}

}  // namespace dg
