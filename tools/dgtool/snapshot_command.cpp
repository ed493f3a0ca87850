#include "tools/dgtool/snapshot_command.h"

#include "history/history.h"
#include "history/snapshot.h"
#include "platform/clock.h"
#include "tools/dgtool/history_option.h"
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
  const frmTRVN& main = session.load(catalogue_, {});
  session.complain();
  if (!session.storeReachable()) throw UsageError("the store cannot be reached");
  const StoreKey store = currentStore();
  const std::vector<KeptFigure> figures = recapSnapshot(main.view("frmRecap"));
  const Date today(now().days());
  if (!figures.empty()) History::create(file).keep(store, today, figures);
  console.out << storeName(store) << ", " << today.isoText() << ": " << figures.size()
              << (figures.size() == 1 ? " figure kept\n" : " figures kept\n");
  return session.isWhole() ? 0 : 1;
}

}  // namespace dg
