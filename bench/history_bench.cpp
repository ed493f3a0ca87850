// A hundred thousand days of all figures: opening the history, and drawing the page "History".

#include <QApplication>
#include <QImage>
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <functional>
#include <string>
#include <unistd.h>
#include <vector>

#include "desktop/recap/history_keeper.h"
#include "desktop/recap/history_page.h"
#include "desktop/recap/todays_work.h"
#include "engine/state.h"
#include "history/database.h"
#include "history/figure_history.h"
#include "history/history.h"
#include "insight/attention_kinds.h"
#include "shell/main_window.h"
#include "shell/recap_figures.h"
#include "shell/surroundings.h"
#include "views/view_catalogue.h"

namespace dg::bench {
namespace {

constexpr int kDays = 100'000;
constexpr int kRuns = 9;
const StoreKey kStore{"SRV1", "LNK001"};

/// Milliseconds of processor time, which waits for nobody; the median of several runs.
double median(const std::function<void()>& body) {
  std::vector<double> times;
  for (int i = 0; i < kRuns; ++i) {
    const std::clock_t begin = std::clock();
    body();
    times.push_back(1000.0 * static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC);
  }
  std::ranges::sort(times);
  return times[kRuns / 2];
}

/// All figures of one store, up to the day on which the clock stands; written in one go, since
/// keeping day by day would wait for the disk a hundred thousand times.
void writeHistory(const std::filesystem::path& file, Date last) {
  std::vector<KeptFigure> figures;
  for (const RecapFigure& figure : recapFigures())
    figures.push_back({{FigureSource::kRecap, std::string(figure.name)}, Currency(1), {}});
  for (const KindEntry& kind : attentionKinds())
    figures.push_back({{FigureSource::kAttention, std::string(kind.name)}, Currency(1), 1});
  History::create(file).keep(kStore, last, figures);
  Database database(file, DatabaseAccess::kExisting);
  const std::string count = std::to_string(kDays);
  const std::string days = "WITH RECURSIVE n(i) AS (SELECT " + count +
                           " - 1 UNION ALL SELECT i - 1 FROM n WHERE i > 1) ";
  const std::string day = "date('" + last.isoText() + "', '-' || i || ' days')";
  database.run(("INSERT INTO days " + days + "SELECT 1, " + day + ", '' FROM n").c_str());
  database.run(("INSERT INTO amounts " + days + "SELECT 1, figures.id, " + day +
                ", (i * 7919 + figures.id * 104729) % 9999991 * 1000, CASE figures.source WHEN "
                "'attention' THEN i % 50 END FROM figures, n")
                   .c_str());
}

int run(int argc, char** argv) {
  const QApplication application(argc, argv);
  Surroundings surroundings;
  const std::filesystem::path folder =
      std::filesystem::temp_directory_path() / ("dg-history-" + std::to_string(::getpid()));
  std::filesystem::create_directories(folder);
  environment().dataFolder = folder.string();
  environment().desktopFile = (folder / "desktop.ini").string();
  environment().settingsFile = (folder / "DealerGauge.ini").string();
  const Date today = *Date::fromIso("2026-11-24");
  surroundings.useClock(today);
  SystemInfo = std::make_shared<cSystem>();
  SystemInfo->mUNCDrive = kStore.server;
  SystemInfo->mDirectory = kStore.directory;
  writeHistory(defaultHistoryFile(), today);
  std::printf("| %d days of %zu figures, %.0f MiB | Milliseconds |\n|---|--:|\n", kDays,
              recapFigures().size() + attentionKinds().size(),
              static_cast<double>(std::filesystem::file_size(defaultHistoryFile())) / (1 << 20));
  std::printf("| Open, with the list of figures and the days of one | %.0f |\n", median([] {
                const auto history = History::open(defaultHistoryFile());
                readFigure(*history, kStore, keptFigures(*history, kStore).front());
              }));
  frmTRVN main(viewCatalogue());
  const TodaysWork work;
  HistoryKeeper keeper(main, work);
  HistoryPage page(keeper);
  page.resize(1366, 700);
  QImage picture(page.size(), QImage::Format_RGB32);
  for (const auto& [days, name] : {std::pair{31, "a month"}, {366, "a year"}, {0, "all days"}}) {
    std::printf("| Another range, %s: read, lay out and draw the page | %.0f |\n", name,
                median([&, range = days] {
                  page.setRange(range);
                  page.render(&picture);
                }));
    std::printf("| The page drawn again, %s | %.0f |\n", name,
                median([&] { page.render(&picture); }));
  }
  std::filesystem::remove_all(folder);
  return 0;
}

}  // namespace
}  // namespace dg::bench

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  return dg::bench::run(argc, argv);
}
