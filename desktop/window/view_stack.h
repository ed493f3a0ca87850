#pragma once

#include <QStackedWidget>
#include <map>

#include "shell/main_window.h"

namespace dg {

class AddedPage;
class TodaysWork;
class HistoryKeeper;
struct AddedItem;

/// The client area of the main window: the views and the added pages, one of which is on show.
/// A view's page is made when it is first shown and dropped with the view; an added one stays.
class ViewStack : public QStackedWidget {
  Q_OBJECT

 public:
  ViewStack(const frmTRVN& main, TodaysWork& work, QWidget* parent = nullptr);

  void showView(View& view);
  /// Takes the page on show off the screen; the area is empty until the next one shows.
  void hideView();
  /// Shows an added page, or opens an added dialog.
  void open(const AddedItem& item);
  void open(std::string_view name);
  /// Shows a page that is no view's in the place of one.
  void showStandIn(QWidget* page);
  /// Forgets a form that is about to go; nothing when it has no page.
  void drop(const Form& form);
  /// Forgets all pages.
  void dropAll();

  /// Tells the recap on show of what needs attention now.
  void tellToday();

  /// The name of the added page on show; empty when it is none.
  std::string_view addedOnShow() const;
  HistoryKeeper& keeper() const { return *keeper_; }
  /// The page of a view, or null.
  QWidget* pageOf(const Form& form) const;

 Q_SIGNALS:
  void addedOpened();
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
  std::map<std::string_view, AddedPage*> added_;
};

}  // namespace dg
