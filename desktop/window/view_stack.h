#pragma once

#include <QStackedWidget>
#include <map>

#include "shell/main_window.h"

namespace dg {

class ChartsPage;
class TodayPage;
class TodaysWork;
class HistoryKeeper;
class HistoryPage;
class StoresPage;

/// The client area of the main window: the views, one of which is on show, the charts, and what
/// needs attention today.
/// A view's page is made when it is first shown and dropped with the view.
class ViewStack : public QStackedWidget {
  Q_OBJECT

 public:
  ViewStack(const frmTRVN& main, TodaysWork& work, QWidget* parent = nullptr);

  void showView(View& view);
  /// Takes the page on show off the screen; the area is empty until the next one shows.
  void hideView();
  void showCharts();
  void showToday();
  void showHistory();
  /// Reads the stores when they are first shown.
  void showStores();
  void offerMorningReport();
  /// Shows a page that is no view's in the place of one.
  void showStandIn(QWidget* page);
  /// Forgets a form that is about to go; nothing when it has no page.
  void drop(const Form& form);
  /// Forgets all pages.
  void dropAll();

  /// Tells the recap on show of what needs attention now.
  void tellToday();

  bool chartsShown() const;
  bool todayShown() const;
  bool historyShown() const;
  bool storesShown() const;
  HistoryKeeper& keeper() const { return *keeper_; }
  /// The page of a view, or null.
  QWidget* pageOf(const Form& form) const;

 Q_SIGNALS:
  void chartsOpened();
  void recapRequested();
  void logRequested();
  void viewRequested(const QString& view);
  void storeRequested(const QString& directory);

 private:
  QWidget* makePage(View& view);

  const frmTRVN& main_;
  TodaysWork& work_;
  std::map<const Form*, QWidget*> pages_;
  QWidget* empty_;
  HistoryKeeper* keeper_;
  ChartsPage* charts_ = nullptr;
  TodayPage* today_ = nullptr;
  HistoryPage* history_ = nullptr;
  StoresPage* stores_ = nullptr;
};

}  // namespace dg
