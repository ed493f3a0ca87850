#pragma once

#include <memory>
#include <vector>

#include "desktop/recap/todays_work.h"
#include "forms/form.h"

namespace dg {

class FormDialog;
class MainWindow;
class SplashWindow;

/// Shows forms on the desktop: the splash and the main window in windows of their own, views in the
/// main window, all others as modal dialogs.
class DesktopPresenter final : public Presenter {
 public:
  DesktopPresenter();
  ~DesktopPresenter() override;

  void show(Form& form) override;
  void hide(Form& form) override;
  void showModal(Form& form) override;
  void unload(Form& form) override;
  void setFocus(Form& form) override;
  void setMousePointer(int pointer) override;

  /// The main window once it has been shown, else null.
  MainWindow* mainWindow() const { return mainWindow_.get(); }
  /// Drops all windows; the forms may go then.
  void close();
  SplashWindow* splashWindow() const { return splash_.get(); }

 private:
  TodaysWork work_;  ///< told of every load from the first one on
  std::unique_ptr<MainWindow> mainWindow_;
  std::unique_ptr<SplashWindow> splash_;
  std::vector<FormDialog*> dialogs_;  ///< open ones, the innermost last
  bool waiting_ = false;              ///< the hourglass is on
};

}  // namespace dg
