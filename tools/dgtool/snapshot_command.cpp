#include "tools/dgtool/snapshot_command.h"

#include <algorithm>
#include <iterator>

#include "history/history.h"
#include "history/snapshot.h"
#include "platform/clock.h"
#include "tools/dgtool/history_option.h"
#include "tools/dgtool/left_out.h"
#include "tools/dgtool/report_format.h"
#include "tools/dgtool/session.h"

namespace dg {

void SnapshotCommand::addOptions(CLI::App& app) {
  addHistoryOption(app, file_);
  addStoreOptions(app, store_);
}

int SnapshotCommand::run(const Console& console) {
  Session session(store_, console);
  const std::filesystem::path file = historyFile(file_);
  // A file that cannot be used is told before the long work.
  History::open(file);
  OpenItems items;
  const ObservingScope observing(items);
  const frmTRVN& main = session.load(catalogue_, {});
  for (const std::string& line : shareWarnings(main))
    console.complain(line);
  session.complain();
  if (!session.storeReachable()) throw UsageError("the store cannot be reached");
  if (!main.lostShare().empty()) throw UsageError("the store cannot be reached any more");
  const StoreKey store = currentStore();
  const Date today(now().days());
  std::vector<KeptFigure> figures;
  bool whole = session.isWhole() && areComplete(main.loadedViews()) && canBeKept(main);
  if (canBeKept(main)) {
    figures = recapSnapshot(main);
    const std::vector<KindResult> kinds = attentionOf(items, today);
    for (const std::string& line : kindWarnings(kinds))
      console.complain(line);
    whole = whole && std::ranges::all_of(kinds, &KindResult::isWhole);
    std::ranges::move(attentionSnapshot(kinds), std::back_inserter(figures));
  }
  if (!figures.empty()) History::create(file).keep(store, today, figures);
  console.out << storeName(store) << ", " << today.isoText() << ": " << figures.size()
              << (figures.size() == 1 ? " figure kept\n" : " figures kept\n");
  return whole ? 0 : 1;
}

}  // namespace dg
