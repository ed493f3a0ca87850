#include "desktop/window/notice_strip.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QStyle>

#include "desktop/window/theme.h"

namespace dg {

NoticeStrip::NoticeStrip(QWidget* parent) : QWidget(parent), layout_(new QHBoxLayout(this)) {
  layout_->setContentsMargins(14, 6, 14, 6);
  auto* icon = new QLabel(this);
  const int size = style()->pixelMetric(QStyle::PM_SmallIconSize);
  icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(size));
  text_ = new QLabel(this);
  text_->setTextFormat(Qt::PlainText);
  text_->setWordWrap(true);
  text_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  layout_->addWidget(icon, 0, Qt::AlignTop);
  layout_->addWidget(text_, 1);
  hide();
}

void NoticeStrip::tell(const QString& text) {
  text_->setText(text);
  setAccessibleName(text);
  setVisible(!text.isEmpty());
}

QString NoticeStrip::text() const {
  return text_->text();
}

void NoticeStrip::addButton(const QString& caption, std::function<void()> action) {
  auto* button = new QPushButton(caption, this);
  button->setAutoDefault(false);
  connect(button, &QPushButton::clicked, this, [action = std::move(action)] { action(); });
  layout_->addWidget(button, 0, Qt::AlignTop);
}

void NoticeStrip::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), noticeColor(palette()));
  painter.setPen(lineColor(palette()));
  painter.drawLine(rect().bottomLeft(), rect().bottomRight());
}

}  // namespace dg
