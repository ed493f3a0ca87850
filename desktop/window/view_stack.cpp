#include "desktop/window/view_stack.h"

#include "desktop/recap/added_page.h"
#include "desktop/recap/history_keeper.h"
#include "desktop/recap/recap_view.h"
#include "desktop/recap/todays_work.h"
#include "desktop/window/access_keys.h"
#include "desktop/window/added_items.h"
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
  // An added page goes as well: it shows figures that a refresh is about to replace.
  setCurrentWidget(empty_);
}

QWidget* ViewStack::makePage(View& view) {
  if (view.name() != "frmRecap") {
    auto* page = new FormView(view, this);
    keepKeysUnique(*page, MenuBar::captions());
    return page;
  }
  auto* recap = new RecapView(view, this);
  connect(recap, &RecapView::pageRequested, this, [this](std::string_view page) { open(page); });
  recap->setChanges(keeper_->changes());
  connect(keeper_, &HistoryKeeper::changed, recap,
          [this, recap] { recap->setChanges(keeper_->changes()); });
  connect(recap, &RecapView::viewRequested, this, &ViewStack::viewRequested);
  return recap;
}

void ViewStack::open(const AddedItem& item) {
  const PageSources sources{main_, work_, *keeper_};
  if (item.openDialog != nullptr) {
    item.openDialog(sources, window());
    return;
  }
  AddedPage*& page = added_[item.name];
  if (page == nullptr) {
    page = item.makePage(sources, this);
    page->setObjectName(QString::fromLatin1(item.name));
    connect(page, &AddedPage::recapRequested, this, &ViewStack::recapRequested);
    connect(page, &AddedPage::logRequested, this, &ViewStack::logRequested);
    connect(page, &AddedPage::storeRequested, this, &ViewStack::storeRequested);
    addWidget(page);
  }
  page->opened();
  setCurrentWidget(page);
  page->setFocus();
  Q_EMIT addedOpened();
}

void ViewStack::open(std::string_view name) {
  for (const AddedItem& item : addedItems()) {
    if (item.name == name) open(item);
  }
}

std::string_view ViewStack::addedOnShow() const {
  for (const auto& [name, page] : added_) {
    if (page == currentWidget()) return name;
  }
  return {};
}

void ViewStack::showStandIn(QWidget* page) {
  addWidget(page);
  setCurrentWidget(page);
  page->setFocus();
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
