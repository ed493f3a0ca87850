#pragma once

#include <QLabel>
#include <functional>

#include "desktop/window/control_binding.h"
#include "forms/label.h"

namespace dg {

/// Draws a Label: plain text in the font and colour of its role, cut with "…" where the room ends
/// and shown whole in a tool tip then.
///
/// A label that tells of a data error and leads somewhere is drawn as a link: the mouse, or Enter
/// and the space bar with the keyboard's focus on it, click it.
class LabelWidget : public QLabel {
  Q_OBJECT

 public:
  explicit LabelWidget(Label& label, QWidget* parent = nullptr);

  QSize minimumSizeHint() const override;
  bool isLink() const { return link_; }
  /// Makes the label lead somewhere: it looks like any other until the mouse or the keyboard's
  /// focus is on it, and then as a link.
  void leadTo(std::function<void()> place);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  void update();
  void updateColor();
  void updateToolTip();

  void click();

  Label& label_;
  std::function<void()> place_;
  bool link_ = false;
  ControlBinding binding_;
};

}  // namespace dg
