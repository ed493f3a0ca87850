#include "desktop/window/splash_window.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QProgressBar>
#include <QScreen>
#include <QVBoxLayout>
#include <set>

#include "desktop/window/label_widget.h"
#include "desktop/window/resources.h"
#include "desktop/window/text.h"
#include "desktop/window/theme.h"
#include "shell/main_window.h"

namespace dg {

namespace {

constexpr QSize kSize{460, 280};
constexpr int kLogo = 96;

/// Progress texts of a load: one a view, the recap excepted.
int loadSteps() {
  std::set<std::string_view> views;
  for (const TreeEntry& entry : treeEntries()) {
    if (!entry.view.empty() && entry.view != "frmRecap") views.insert(entry.view);
  }
  return static_cast<int>(views.size());
}

}  // namespace

SplashWindow::SplashWindow(frmSplash& form)
    : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint),
      form_(form),
      bar_(new QProgressBar(this)),
      progressed_(form.lblProgress.refreshed.connect([this] { progressed(); })) {
  setObjectName(QString::fromStdString(form.name()));
  setWindowTitle(QString::fromLatin1(kProgramName));
  setAccessibleName(windowTitle());
  setFocusPolicy(Qt::StrongFocus);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(28, 26, 28, 20);
  layout->addWidget(buildTitle());
  layout->addStretch(1);
  layout->addWidget(new LabelWidget(form.lblProgress, this));
  bar_->setRange(0, loadSteps());
  bar_->setTextVisible(false);
  bar_->setFixedHeight(6);
  bar_->setAccessibleName(tr("Progress"));
  layout->addWidget(bar_);
  layout->addSpacing(10);
  layout->addWidget(new LabelWidget(form.Label3, this));
  setFixedSize(kSize.expandedTo(sizeHint()));
  if (const QScreen* where = screen()) {
    move(where->availableGeometry().center() - rect().center());
  }
}

QWidget* SplashWindow::buildTitle() {
  auto* row = new QWidget(this);
  auto* layout = new QHBoxLayout(row);
  layout->setContentsMargins({});
  layout->setSpacing(20);
  auto* logo = new QLabel(row);
  logo->setPixmap(programIcon().pixmap(QSize(kLogo, kLogo), devicePixelRatio()));
  layout->addWidget(logo);
  auto* texts = new QVBoxLayout;
  texts->setSpacing(0);
  texts->addStretch(1);
  for (Label* label : {&form_.lblProductName, &form_.Label2, &form_.lblVersion}) {
    auto* widget = new LabelWidget(*label, row);
    if (label != &form_.lblVersion) widget->setFont(scaledFont(font(), 2.1, QFont::DemiBold));
    texts->addWidget(widget);
  }
  texts->addStretch(1);
  layout->addLayout(texts, 1);
  return row;
}

void SplashWindow::progressed() {
  if (dismissed_) {
    form_.dismiss();
    return;  // this window is gone
  }
  bar_->setValue(qMin(bar_->value() + 1, bar_->maximum()));
  if (!isVisible()) return;
  repaint();
  QCoreApplication::processEvents();
}

void SplashWindow::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), cardColor(palette()));
  painter.setPen(lineColor(palette()));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
  painter.fillRect(0, 0, width(), 5, accentColor(palette()));
}

void SplashWindow::keyPressEvent(QKeyEvent*) {
  dismissSoon();
}

void SplashWindow::mousePressEvent(QMouseEvent*) {
  dismissSoon();
}

void SplashWindow::dismissSoon() {
  // Dismissing the form deletes this window, which must not happen inside its own event.
  dismissed_ = true;
  hide();
}

}  // namespace dg
