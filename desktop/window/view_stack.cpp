#include "desktop/window/view_stack.h"

#include "desktop/recap/charts_page.h"
#include "desktop/recap/history_keeper.h"
#include "desktop/recap/history_page.h"
#include "desktop/recap/morning_report.h"
#include "desktop/recap/recap_view.h"
#include "desktop/recap/stores_page.h"
#include "desktop/recap/today_page.h"
#include "desktop/window/access_keys.h"
#include "desktop/window/form_view.h"
#include "desktop/window/menu_bar.h"
#include "desktop/window/text.h"

namespace dg {

ViewStack::ViewStack(const frmTRVN& main, TodaysWork& work, QWidget* parent)
    : QStackedWidget(parent),
      main_(main),
      work_(work),
      empty_(new QWidget(this)),
      keeper_(new HistoryKeeper(main, work, this)) {
  addWidget(empty_);
}

void ViewStack::showView(View& view) {
  QWidget*& page = pages_[&view];
  if (page == nullptr) {
    page = makePage(view);
    addWidget(page);
  }
  setCurrentWidget(page);
  tellToday();
}

void ViewStack::tellToday() {
  if (auto* recap = qobject_cast<RecapView*>(currentWidget()))
    recap->setToday(fromBytes(work_.summary()));
}

void ViewStack::hideView() {
  // The charts go as well: they show figures that a refresh is about to replace.
  setCurrentWidget(empty_);
}

QWidget* ViewStack::makePage(View& view) {
  if (view.name() != "frmRecap") {
    auto* page = new FormView(view, this);
    keepKeysUnique(*page, MenuBar::captions());
    return page;
  }
  auto* recap = new RecapView(view, this);
  connect(recap, &RecapView::chartsRequested, this, &ViewStack::showCharts);
  connect(recap, &RecapView::todayRequested, this, &ViewStack::showToday);
  recap->setChanges(keeper_->changes());
  connect(keeper_, &HistoryKeeper::changed, recap,
          [this, recap] { recap->setChanges(keeper_->changes()); });
  connect(recap, &RecapView::viewRequested, this, &ViewStack::viewRequested);
  return recap;
}

void ViewStack::showCharts() {
  if (charts_ == nullptr) {
    charts_ = new ChartsPage(main_, this);
    connect(charts_, &ChartsPage::recapRequested, this, &ViewStack::recapRequested);
    addWidget(charts_);
  } else {
    charts_->reload();
  }
  setCurrentWidget(charts_);
  charts_->setFocus();
  Q_EMIT chartsOpened();
}

void ViewStack::showToday() {
  if (today_ == nullptr) {
    today_ = new TodayPage(main_, work_, this);
    connect(today_, &TodayPage::recapRequested, this, &ViewStack::recapRequested);
    connect(today_, &TodayPage::logRequested, this, &ViewStack::logRequested);
    addWidget(today_);
  } else {
    today_->reload();
  }
  setCurrentWidget(today_);
  today_->setFocus();
  Q_EMIT chartsOpened();
}

void ViewStack::showHistory() {
  if (history_ == nullptr) {
    history_ = new HistoryPage(*keeper_, this);
    connect(history_, &HistoryPage::recapRequested, this, &ViewStack::recapRequested);
    addWidget(history_);
  } else {
    history_->reload();
  }
  setCurrentWidget(history_);
  history_->setFocus();
  Q_EMIT chartsOpened();
}

void ViewStack::showStores() {
  if (stores_ == nullptr) {
    stores_ = new StoresPage(StoresPage::findTool(), this);
    connect(stores_, &StoresPage::recapRequested, this, &ViewStack::recapRequested);
    connect(stores_, &StoresPage::storeRequested, this, &ViewStack::storeRequested);
    addWidget(stores_);
    stores_->load();
  }
  setCurrentWidget(stores_);
  stores_->setFocus();
  Q_EMIT chartsOpened();
}

void ViewStack::offerMorningReport() {
  dg::offerMorningReport(window(), main_, work_, *keeper_);
}

bool ViewStack::storesShown() const {
  return stores_ != nullptr && currentWidget() == stores_;
}

bool ViewStack::historyShown() const {
  return history_ != nullptr && currentWidget() == history_;
}

void ViewStack::showStandIn(QWidget* page) {
  addWidget(page);
  setCurrentWidget(page);
  page->setFocus();
}

bool ViewStack::chartsShown() const {
  return charts_ != nullptr && currentWidget() == charts_;
}

bool ViewStack::todayShown() const {
  return today_ != nullptr && currentWidget() == today_;
}

QWidget* ViewStack::pageOf(const Form& form) const {
  const auto found = pages_.find(&form);
  return found == pages_.end() ? nullptr : found->second;
}

void ViewStack::drop(const Form& form) {
  const auto found = pages_.find(&form);
  if (found == pages_.end()) return;
  delete found->second;
  pages_.erase(found);
}

void ViewStack::dropAll() {
  for (const auto& [form, page] : pages_)
    delete page;
  pages_.clear();
}

}  // namespace dg
