#include "desktop/window/label_widget.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>

#include "desktop/window/text.h"
#include "desktop/window/theme.h"

namespace dg {

namespace {

QFont roleFont(LabelRole role, const QFont& base) {
  switch (role) {
    case LabelRole::kTitle:
      return scaledFont(base, 1.5, QFont::DemiBold);
    case LabelRole::kHeading:
      return scaledFont(base, 1.15, QFont::DemiBold);
    case LabelRole::kNote:
    case LabelRole::kHint:
      return scaledFont(base, 0.92);
    case LabelRole::kValue:
    case LabelRole::kCaption:
      break;
  }
  return base;
}

bool isMuted(LabelRole role) {
  return role == LabelRole::kCaption || role == LabelRole::kNote || role == LabelRole::kHint;
}

QString cutToWidth(const QString& text, const QFontMetrics& metrics, int width) {
  QStringList lines = text.split(u'\n');
  for (QString& line : lines) {
    line = metrics.elidedText(line, Qt::ElideRight, width);
  }
  return lines.join(u'\n');
}

}  // namespace

LabelWidget::LabelWidget(Label& label, QWidget* parent)
    : QLabel(parent), label_(label), binding_(label, *this, [this] { update(); }) {
  setTextFormat(Qt::PlainText);
  setFont(roleFont(label.role(), font()));
  setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  if (!label.visible() && label.role() != LabelRole::kHint) {
    // A label that comes and goes keeps its place: it may have to show while the thread is busy.
    QSizePolicy policy = sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    setSizePolicy(policy);
  }
  binding_.apply(label, *this);
}

QSize LabelWidget::minimumSizeHint() const {
  // A caption stays whole: its figure means nothing without it.
  const QSize whole = sizeHint();
  if (label_.role() == LabelRole::kCaption) return whole;
  return {qMin(whole.width(), fontMetrics().averageCharWidth() * 10), whole.height()};
}

void LabelWidget::update() {
  const QString shown = labelText(label_.caption());
  if (text() != shown) {
    setText(shown);
    updateToolTip();
  }
  link_ = place_ || (label_.onClick && label_.inError());
  setFocusPolicy(link_ ? Qt::StrongFocus : Qt::NoFocus);
  if (link_) {
    setCursor(Qt::PointingHandCursor);
  } else {
    unsetCursor();
  }
  updateColor();
}

void LabelWidget::leadTo(std::function<void()> place) {
  place_ = std::move(place);
  setAttribute(Qt::WA_Hover);
  update();
}

void LabelWidget::click() {
  if (place_) {
    place_();
  } else {
    label_.click();
  }
}

void LabelWidget::updateColor() {
  const QPalette system = QApplication::palette(this);
  QColor color = system.color(QPalette::WindowText);
  if (label_.foreColor() == kRed) {
    color = errorColor(system);
  } else if (isMuted(label_.role())) {
    color = mutedColor(system);
  }
  QPalette own = palette();
  if (own.color(QPalette::WindowText) == color) return;
  own.setColor(QPalette::WindowText, color);
  setPalette(own);
}

void LabelWidget::updateToolTip() {
  const QString shown = text();
  const bool cut = cutToWidth(shown, fontMetrics(), contentsRect().width()) != shown;
  setToolTip(cut ? plainToolTip(shown) : QString());
}

void LabelWidget::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  QFont drawn = font();
  drawn.setUnderline(link_ && (!place_ || underMouse() || hasFocus()));
  painter.setFont(drawn);
  const QRect area = contentsRect();
  const int flags = static_cast<int>(QStyle::visualAlignment(layoutDirection(), alignment()));
  style()->drawItemText(&painter, area, flags | Qt::TextExpandTabs, palette(), isEnabled(),
                        cutToWidth(text(), fontMetrics(), area.width()), QPalette::WindowText);
  if (hasFocus()) {
    QStyleOptionFocusRect option;
    option.initFrom(this);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
  }
}

void LabelWidget::changeEvent(QEvent* event) {
  QLabel::changeEvent(event);
  if (event->type() == QEvent::ApplicationPaletteChange || event->type() == QEvent::StyleChange) {
    updateColor();
  }
}

void LabelWidget::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  updateToolTip();
}

void LabelWidget::mouseReleaseEvent(QMouseEvent* event) {
  QLabel::mouseReleaseEvent(event);
  if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) {
    click();
  }
}

void LabelWidget::keyPressEvent(QKeyEvent* event) {
  const bool press = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter ||
                     event->key() == Qt::Key_Space;
  if (link_ && press) {
    click();
  } else {
    QLabel::keyPressEvent(event);
  }
}

void LabelWidget::contextMenuEvent(QContextMenuEvent* event) {
  const QString shown = text();
  if (shown.trimmed().isEmpty()) {
    QLabel::contextMenuEvent(event);
    return;
  }
  QMenu menu(this);
  menu.addAction(tr("&Copy"), this, [shown] { QApplication::clipboard()->setText(shown); });
  menu.exec(event->globalPos());
}

}  // namespace dg
