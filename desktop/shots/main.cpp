// Takes pictures of every window over an example store; see scripts/screenshots.

#include "shell/main.h"

#include <QApplication>
#include <QTemporaryDir>
#include <cstdio>
#include <filesystem>

#include "desktop/shots/tour.h"
#include "desktop/window/resources.h"
#include "desktop/window/theme.h"
#include "platform/clock.h"
#include "platform/environment.h"
#include "tools/sample/sample_store.h"

namespace {

constexpr int kPointSize = 10;

/// Puts the store in a folder where the program looks for it, and the clock on its day.
void openStore(const std::string& store, const dg::SampleOptions& options) {
  dg::environment() = {.temp = store + "/temp",
                       .shareRoot = store + "/share",
                       .computerName = "PC7",
                       .settingsFile = store + "/config/DealerGauge.ini"};
  dg::setClock(dg::Date(options.asOf.days(), 10 * 3600 + 30 * 60));
  dg::setLogFile();
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3 && argc != 4) {
    std::fputs("usage: desktop_shots FOLDER light|dark [STORE]\n", stderr);
    return 2;
  }
  const QTemporaryDir folder;
  qputenv("XDG_CONFIG_HOME", folder.filePath(QStringLiteral("settings")).toUtf8());
  QApplication application(argc, argv);
  dg::initializeResources();
  // Pictures shall look the same wherever they are taken.
  QApplication::setFont(QFont(QStringLiteral("Noto Sans"), kPointSize));
  dg::applyTheme(qstrcmp(argv[2], "dark") == 0 ? dg::Theme::kDark : dg::Theme::kLight);
  // The store of a folder is copied: some pictures need damaged files.
  const std::string store = folder.filePath(QStringLiteral("store")).toStdString();
  dg::SampleOptions options;
  options.scale = 3;
  if (argc == 4) {
    std::filesystem::copy(argv[3], store, std::filesystem::copy_options::recursive);
  } else {
    dg::writeSampleStore(store, options);
  }
  openStore(store, options);
  return dg::takeTour(QString::fromLocal8Bit(argv[1])) ? 0 : 1;
}
