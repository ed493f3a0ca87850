#include "desktop/window/desktop_presenter.h"

#include <QApplication>
#include <QMessageBox>
#include <algorithm>

#include "desktop/print/log_printing.h"
#include "desktop/window/form_dialog.h"
#include "desktop/window/main_window.h"
#include "desktop/window/splash_window.h"
#include "desktop/window/tree_panel.h"
#include "desktop/window/view_stack.h"
#include "shell/setup.h"
#include "shell/view_log.h"

namespace dg {

namespace {

bool askToForget(int accounts) {
  const QString text = accounts == 1
                           ? QObject::tr(
                                 "No account is chosen. The one that was chosen before would be "
                                 "forgotten.")
                           : QObject::tr(
                                 "No account is chosen. The %1 that were chosen before would be "
                                 "forgotten.")
                                 .arg(accounts);
  return QMessageBox::question(QApplication::activeWindow(), QObject::tr("Select Accounts"),
                               text + u'\n' + QObject::tr("Forget them?"),
                               QMessageBox::Yes | QMessageBox::No,
                               QMessageBox::No) == QMessageBox::Yes;
}

}  // namespace

DesktopPresenter::DesktopPresenter() = default;
DesktopPresenter::~DesktopPresenter() = default;

void DesktopPresenter::show(Form& form) {
  if (auto* splash = dynamic_cast<frmSplash*>(&form)) {
    splash_ = std::make_unique<SplashWindow>(*splash);
    splash_->show();
    splash_->activateWindow();
    splash_->repaint();
    QCoreApplication::processEvents();
  } else if (auto* main = dynamic_cast<frmTRVN*>(&form)) {
    if (!mainWindow_) mainWindow_ = std::make_unique<MainWindow>(*main, work_);
    mainWindow_->show();
    mainWindow_->tree().setFocus();
  }
  // A view shows when the main window is told that it is the current one.
}

void DesktopPresenter::hide(Form& form) {
  if (dynamic_cast<frmSplash*>(&form) != nullptr) splash_.reset();
  if (mainWindow_ && dynamic_cast<View*>(&form) != nullptr) mainWindow_->views().hideView();
}

void DesktopPresenter::showModal(Form& form) {
  if (auto* log = dynamic_cast<frmViewLog*>(&form)) {
    log->onPrint = [](const std::string& text) { printLog(text); };
  }
  if (auto* setup = dynamic_cast<frmSetup*>(&form)) {
    setup->mayForget = [](int accounts) { return askToForget(accounts); };
  }
  FormDialog dialog(form, QApplication::activeWindow());
  dialogs_.push_back(&dialog);
  dialog.exec();
  std::erase(dialogs_, &dialog);
}

void DesktopPresenter::unload(Form& form) {
  if (dynamic_cast<frmSplash*>(&form) != nullptr) {
    splash_.reset();
    return;
  }
  const auto dialog = std::find_if(dialogs_.begin(), dialogs_.end(),
                                   [&form](const FormDialog* d) { return &d->form() == &form; });
  if (dialog != dialogs_.end()) (*dialog)->closeForm();
  if (mainWindow_) mainWindow_->views().drop(form);
}

void DesktopPresenter::close() {
  splash_.reset();
  mainWindow_.reset();
}

void DesktopPresenter::setFocus(Form& form) {
  if (mainWindow_ && &mainWindow_->form() == &form) mainWindow_->activateWindow();
}

void DesktopPresenter::setMousePointer(int pointer) {
  const bool wait = pointer == kHourglass;
  if (wait == waiting_) return;
  waiting_ = wait;
  if (wait) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
  } else {
    QApplication::restoreOverrideCursor();
  }
}

}  // namespace dg
