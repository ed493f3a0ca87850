#pragma once

#include <QComboBox>
#include <QGroupBox>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>

#include "desktop/window/control_binding.h"
#include "forms/form.h"
#include "forms/simple_controls.h"

namespace dg {

/// Draws a Button.
class ButtonWidget : public QPushButton {
  Q_OBJECT

 public:
  explicit ButtonWidget(Button& button, QWidget* parent = nullptr);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  Button& button_;
  QString caption_;
  ControlBinding binding_;
};

/// Draws a ComboBox; a pick by the user is its click event.
class ComboWidget : public QComboBox {
  Q_OBJECT

 public:
  explicit ComboWidget(ComboBox& combo, QWidget* parent = nullptr);

 private:
  void update();

  ComboBox& combo_;
  ControlBinding binding_;
};

/// Draws a ProgressBar. Each step is painted at once: the thread that makes it is busy.
class ProgressWidget : public QProgressBar {
  Q_OBJECT

 public:
  explicit ProgressWidget(ProgressBar& bar, QWidget* parent = nullptr);

 private:
  void update();

  ProgressBar& bar_;
  ControlBinding binding_;
};

/// Draws a TextArea in a fixed-pitch font.
class TextAreaWidget : public QPlainTextEdit {
  Q_OBJECT

 public:
  explicit TextAreaWidget(TextArea& area, QWidget* parent = nullptr);

 private:
  void update();

  TextArea& area_;
  ControlBinding binding_;
};

/// Draws a Frame; the controls on it are laid out by the sheet.
class FrameWidget : public QGroupBox {
  Q_OBJECT

 public:
  explicit FrameWidget(Frame& frame, QWidget* parent = nullptr);

 private:
  ControlBinding binding_;
};

}  // namespace dg
