#pragma once

#include <QDialog>
#include <QWidget>
#include <functional>
#include <memory>
#include <string_view>

#include "desktop/grid/grid_panel.h"
#include "desktop/window/desktop_presenter.h"
#include "desktop/window/main_window.h"
#include "tests/support/program_run.h"

namespace dg {

/// The desktop program over an example store, all in a folder of the test's own, with the user's
/// settings there too.
class DesktopSession {
 public:
  DesktopSession() = default;
  ~DesktopSession();
  DesktopSession(const DesktopSession&) = delete;
  DesktopSession& operator=(const DesktopSession&) = delete;

  /// The operation log's bytes.
  std::string log() const { return run.folder.read("store/temp/dgoperation.log"); }

  /// Starts the program; `missing` files and folders of the store are left out, by name.
  void start(const std::vector<std::string>& missing = {});
  /// Ends it as closing the main window does.
  void end();

  MainWindow& window() const { return *presenter.mainWindow(); }
  frmTRVN& form() const { return *main_; }

  /// Clicks a node of the tree with the mouse.
  void clickNode(const std::string& key) const;
  /// The page of the view on show.
  QWidget& page() const;
  /// The widget of a control on the page on show; fails the test when there is none.
  template <class T>
  T& widget(const char* name) const {
    T* found = page().findChild<T*>(QString::fromLatin1(name));
    if (found == nullptr) throw std::runtime_error(std::string("no widget ") + name);
    return *found;
  }

  ProgramRun run;
  DesktopPresenter presenter;

 private:
  std::unique_ptr<frmTRVN> main_;
};

/// Runs `action`, which opens a dialog, and `atDialog` when it shows. Returns whether one has.
/// A dialog that is still open afterwards is rejected.
bool withDialog(const std::function<void()>& action, const std::function<void(QDialog&)>& atDialog);

/// Clicks the middle of a cell, or of a column's head.
void clickCell(GridView& view, int row, int column, Qt::KeyboardModifiers modifiers = {});
void clickHead(GridView& view, int column);

}  // namespace dg
