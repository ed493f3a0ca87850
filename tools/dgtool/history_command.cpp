#include "tools/dgtool/history_command.h"

#include <algorithm>

#include "engine/catalog_configuration.h"
#include "engine/state.h"
#include "history/snapshot.h"
#include "platform/text.h"
#include "tools/dgtool/history_option.h"
#include "tools/dgtool/session.h"

namespace dg {

namespace {

/// The store that the catalog file names; the share itself is not needed.
StoreKey catalogStore(const Session& session) {
  if (readCatalogFile() && !SystemInfo->mDirectory.empty()) return currentStore();
  session.complain();
  throw UsageError("no store is named: there is no catalog file, or no directory in it");
}

/// Those of the known figures that were asked for, all when none was. A figure of the recap that
/// nothing was kept of yet is known all the same.
std::vector<FigureName> wantedFigures(std::vector<FigureName> known,
                                      const std::vector<std::string>& names) {
  if (names.empty()) return known;
  for (const RecapFigure& figure : recapFigures()) {
    const FigureName name{FigureSource::kRecap, std::string(figure.name)};
    if (std::ranges::find(known, name) == known.end()) known.push_back(name);
  }
  std::vector<FigureName> wanted;
  for (const std::string& name : names) {
    const auto found = std::ranges::find_if(known, [&](const FigureName& figure) {
      return equalIgnoringCase(figure.name, name) || equalIgnoringCase(captionOf(figure), name);
    });
    if (found == known.end()) {
      std::string all;
      for (const FigureName& figure : known)
        all.append(all.empty() ? " " : ", ").append(figure.name);
      throw UsageError("there is no figure " + name + "; the figures are" + all);
    }
    wanted.push_back(*found);
  }
  return wanted;
}

void dropBefore(HistoryReport& report, Date since) {
  std::erase_if(report.days, [since](Date day) { return day < since; });
  for (FigureHistory& figure : report.figures) {
    std::erase_if(figure.values, [since](const KeptValue& value) { return value.day < since; });
  }
}

}  // namespace

void HistoryCommand::addOptions(CLI::App& app) {
  addHistoryOption(app, file_);
  app.add_option("--figure", figures_, "Only this figure, by its name or kind (repeatable)")
      ->type_name("NAME")
      ->allow_extra_args(false);
  addParsed(app, "--since", since_, parseMoment, "a day such as 2026-11-24",
            "Only days from this one on, as 2026-11-24")
      ->type_name("DATE");
  CLI::Option* json = app.add_flag("--json", json_, "One JSON document");
  app.add_flag("--csv", csv_, "CSV, a line a day and a column a figure")->excludes(json);
  addStoreOptions(app, store_);
}

HistoryReport HistoryCommand::read(const Console& console) const {
  const Session session(store_, console);
  HistoryReport report{.store = catalogStore(session), .days = {}, .figures = {}};
  const std::filesystem::path file = historyFile(file_);
  const std::optional<History> history = History::open(file);
  if (!history && !file_.empty()) throw UsageError("--history: there is no history " + file_);
  const auto known = history ? keptFigures(*history, report.store) : std::vector<FigureName>();
  const std::vector<FigureName> wanted = wantedFigures(known, figures_);
  if (!history) return report;
  report.days = history->days(report.store);
  for (const FigureName& figure : wanted)
    report.figures.push_back(readFigure(*history, report.store, figure));
  if (report.days.empty()) {
    for (const StoreKey& store : history->stores()) {
      console.complain("the history has days of " + bytesFromUtf8(storeName(store)));
    }
  }
  return report;
}

int HistoryCommand::run(const Console& console) {
  HistoryReport report = read(console);
  if (since_) dropBefore(report, Date(since_->days()));
  if (json_) {
    writeHistoryJson(console.out, report);
  } else if (csv_) {
    writeHistoryCsv(console.out, report);
  } else {
    writeHistoryText(console.out, report);
  }
  return 0;
}

}  // namespace dg
