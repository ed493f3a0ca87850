#pragma once

#include <QMainWindow>

#include "shell/main_window.h"

class QLabel;
class QSplitter;

namespace dg {

class HelpWindow;
class MenuBar;
class NoticeStrip;
class StatusPanes;
class TreePanel;
class TodaysWork;
class ViewStack;

/// Draws the program's main window: store name on top, tree on the left, a view beside it, status
/// panes at the foot, and the menus. Closing it ends the program.
///
/// While a load or refresh runs, keys and clicks for this window are thrown away: they would come
/// into the middle of it.
class MainWindow : public QMainWindow {
  Q_OBJECT

 public:
  MainWindow(frmTRVN& form, TodaysWork& work);
  ~MainWindow() override;

  frmTRVN& form() const { return form_; }
  ViewStack& views() const { return *views_; }
  TreePanel& tree() const { return *tree_; }
  MenuBar& menus() const { return *menus_; }
  HelpWindow* help() const { return help_; }

 Q_SIGNALS:
  /// The user wants the program to start anew.
  void startAgain();

 protected:
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget* buildBand();
  void connectForm();
  void pick(const QString& menu, int index);
  void goTo(const QString& view);
  void fillTableMenu();
  void showHelp();
  void find();
  void print();
  void afterLoad();
  void showNotices();
  void showStartProblem();

  frmTRVN& form_;
  MenuBar* menus_;
  TreePanel* tree_;
  ViewStack* views_;
  QSplitter* splitter_;
  StatusPanes* status_;
  QLabel* asOf_ = nullptr;
  NoticeStrip* shareNotice_;  ///< a share that was lost, files that did not open
  NoticeStrip* logNotice_;    ///< a log that cannot be written
  HelpWindow* help_ = nullptr;
  Connection viewShown_;
  Connection loadEnded_;
  Connection logFailed_;
};

}  // namespace dg
