#include "desktop/window/added_items.h"

#include <QCoreApplication>

#include "desktop/recap/charts_page.h"
#include "desktop/recap/history_page.h"
#include "desktop/recap/morning_report.h"
#include "desktop/recap/stores_page.h"
#include "desktop/recap/today_page.h"

namespace dg {

namespace {

AddedPage* makeCharts(const PageSources& sources, QWidget* parent) {
  return new ChartsPage(sources.main, parent);
}
AddedPage* makeToday(const PageSources& sources, QWidget* parent) {
  return new TodayPage(sources.main, sources.work, parent);
}
AddedPage* makeHistory(const PageSources& sources, QWidget* parent) {
  return new HistoryPage(sources.keeper, parent);
}
AddedPage* makeStores(const PageSources& /*sources*/, QWidget* parent) {
  return new StoresPage(StoresPage::findTool(), parent);
}
void offerReport(const PageSources& sources, QWidget* parent) {
  offerMorningReport(parent, sources.main, sources.work, sources.keeper);
}

constexpr AddedItem kItems[] = {
    {kChartsPage.data(), QT_TRANSLATE_NOOP("AddedItem", "Charts"), &makeCharts, nullptr},
    {kTodayPage.data(), QT_TRANSLATE_NOOP("AddedItem", "Today"), &makeToday, nullptr},
    {"history", QT_TRANSLATE_NOOP("AddedItem", "History"), &makeHistory, nullptr},
    {"morningReport", QT_TRANSLATE_NOOP("AddedItem", "Morning Report..."), nullptr, &offerReport},
    {"stores", QT_TRANSLATE_NOOP("AddedItem", "Stores"), &makeStores, nullptr},
};

}  // namespace

QString AddedItem::text() const {
  return QCoreApplication::translate("AddedItem", caption);
}

std::span<const AddedItem> addedItems() {
  return kItems;
}

}  // namespace dg
