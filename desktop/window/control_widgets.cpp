#include "desktop/window/control_widgets.h"

#include <QFontDatabase>
#include <QKeyEvent>
#include <QScrollBar>
#include <QSignalBlocker>

#include "desktop/window/text.h"

namespace dg {

namespace {

/// Keeps the place of a control that comes and goes, so that its neighbours stay where they are.
void keepPlaceWhenHidden(QWidget& widget) {
  QSizePolicy policy = widget.sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  widget.setSizePolicy(policy);
}

}  // namespace

ButtonWidget::ButtonWidget(Button& button, QWidget* parent)
    : QPushButton(parent), button_(button), binding_(button, *this, [this] {
        // The text may have lost its Alt key meanwhile.
        if (const QString caption = fromBytes(button_.caption()); caption_ != caption)
          setText(caption_ = caption);
      }) {
  // No button of a dialog is pressed by an Enter that was meant for something else.
  setAutoDefault(false);
  connect(this, &QPushButton::clicked, this, [this] { button_.click(); });
  binding_.apply(button, *this);
}

void ButtonWidget::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    click();
  } else {
    QPushButton::keyPressEvent(event);
  }
}

ComboWidget::ComboWidget(ComboBox& combo, QWidget* parent)
    : QComboBox(parent), combo_(combo), binding_(combo, *this, [this] { update(); }) {
  setSizeAdjustPolicy(QComboBox::AdjustToContents);
  setMaxVisibleItems(20);
  setAccessibleName(tr("Show"));
  keepPlaceWhenHidden(*this);
  connect(this, &QComboBox::activated, this, [this](int index) {
    if (index >= 0) combo_.select(static_cast<std::size_t>(index));
  });
  binding_.apply(combo, *this);
}

void ComboWidget::update() {
  const QSignalBlocker quiet(this);
  const std::vector<std::string>& items = combo_.items();
  bool same = count() == static_cast<int>(items.size());
  for (int i = 0; same && i < count(); ++i) {
    same = itemText(i) == cellText(items[static_cast<std::size_t>(i)]);
  }
  if (!same) {
    clear();
    for (const std::string& item : items)
      addItem(cellText(item));
  }
  // Two items may have the same text; the one that the user has picked stays.
  const QString text = cellText(combo_.text());
  if (currentText() != text) setCurrentIndex(findText(text));
}

ProgressWidget::ProgressWidget(ProgressBar& bar, QWidget* parent)
    : QProgressBar(parent), bar_(bar), binding_(bar, *this, [this] { update(); }) {
  setRange(0, 100);
  setTextVisible(false);
  setAccessibleName(tr("Progress"));
  keepPlaceWhenHidden(*this);
  binding_.apply(bar, *this);
}

void ProgressWidget::update() {
  const int percent = static_cast<int>(bar_.value());
  if (percent == value()) return;
  setValue(percent);
  if (isVisible()) repaint();
}

TextAreaWidget::TextAreaWidget(TextArea& area, QWidget* parent)
    : QPlainTextEdit(parent), area_(area), binding_(area, *this, [this] { update(); }) {
  setReadOnly(true);
  setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  setLineWrapMode(QPlainTextEdit::NoWrap);
  setTabChangesFocus(true);
  setAccessibleName(tr("Text"));
  binding_.apply(area, *this);
}

void TextAreaWidget::update() {
  const QString text = fromBytes(area_.text());
  if (text == toPlainText()) return;
  setPlainText(text);
}

FrameWidget::FrameWidget(Frame& frame, QWidget* parent)
    : QGroupBox(parent), binding_(frame, *this, [this, &frame] {
        const QString caption = fromBytes(frame.caption());
        if (title() != caption) setTitle(caption);
      }) {
  binding_.apply(frame, *this);
}

}  // namespace dg
