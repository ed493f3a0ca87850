#include "export/brief.h"

#include "export/printable.h"
#include "history/snapshot.h"
#include "platform/text.h"

namespace dg {

namespace {

void takeTroubles(BriefStore& store) {
  if (!store.recap.leftOut.empty()) store.troubles.push_back(store.recap.leftOut);
  for (const RecapFigure& figure : recapFigures()) {
    const StoreFigure& own = store.recap.of(figure);
    const std::string name(figure.name);
    if (own.error) {
      store.troubles.push_back(name + ": Data Error ! The log tells why.");
    } else if (own.incomplete) {
      store.troubles.push_back(name + ": could not be read completely, the log tells why.");
    }
  }
}

void takeHistory(BriefStore& store, const frmTRVN& main, const History& history, Date today) {
  const StoreKey key = currentStore();
  store.changes = recapChanges(history, key, main, today);
  for (const RecapFigure& figure : recapFigures()) {
    FigureHistory line = readFigure(history, key, {FigureSource::kRecap, std::string(figure.name)});
    std::erase_if(line.values, [today](const KeptValue& value) { return today < value.day; });
    if (line.values.size() > 1) store.lines.push_back(std::move(line));
  }
}

}  // namespace

void takeFigures(BriefStore& store, const frmTRVN& main, const History* history, Date today) {
  takeRecap(store.recap, main);
  takeTroubles(store);
  if (history == nullptr) return;
  try {
    takeHistory(store, main, *history, today);
  } catch (const HistoryError& error) {
    store.changes.clear();
    store.lines.clear();
    store.troubles.push_back("The history cannot be read: " + bytesFromUtf8(error.what()));
  }
}

std::string briefTitle(const Brief& brief) {
  const std::string day = brief.moment.shortDateText();
  if (brief.isGroup) {
    return "Morning report of " + std::to_string(brief.stores.size()) +
           (brief.stores.size() == 1 ? " store, " : " stores, ") + day;
  }
  return "Morning report of " + terminalText(trim(brief.stores.front().recap.name)) + ", " + day;
}

}  // namespace dg
