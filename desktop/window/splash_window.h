#pragma once

#include <QWidget>

#include "shell/splash.h"

class QProgressBar;

namespace dg {

/// The window that is up while the views load. Each progress text is painted at once, and the keys
/// and clicks that have come in meanwhile are looked at: any key or a click dismisses it.
class SplashWindow : public QWidget {
  Q_OBJECT

 public:
  explicit SplashWindow(frmSplash& form);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  QWidget* buildTitle();
  void progressed();
  void dismissSoon();

  frmSplash& form_;
  QProgressBar* bar_;
  bool dismissed_ = false;  // by the user; the form follows with the next progress text
  Connection progressed_;
};

}  // namespace dg
