// Takes pictures of every window over an example store; see scripts/screenshots.

#include <QApplication>
#include <QTemporaryDir>
#include <cstdio>
#include <filesystem>

#include "desktop/shots/tour.h"
#include "desktop/window/resources.h"
#include "desktop/window/theme.h"
#include "platform/environment.h"
#include "platform/standard_streams.h"
#include "shell/surroundings.h"
#include "tools/sample/sample_store.h"

namespace {

constexpr int kPointSize = 10;

}  // namespace

int main(int argc, char** argv) {
  dg::openStandardStreams();
  if (argc != 3 && argc != 4) {
    std::fputs("usage: desktop_shots FOLDER light|dark [STORE]\n", stderr);
    return 2;
  }
  const QTemporaryDir folder;
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
  dg::Surroundings surroundings;
  surroundings.useStore(store);
  dg::environment().computerName = "PC7";
  dg::environment().desktopFile = folder.filePath(QStringLiteral("desktop.ini")).toStdString();
  dg::environment().dataFolder = folder.filePath(QStringLiteral("data")).toStdString();
  constexpr int kHalfPastTen = 10 * 3600 + 30 * 60;
  surroundings.useClock(dg::Date(options.asOf.days(), kHalfPastTen));
  return dg::takeTour(QString::fromLocal8Bit(argv[1]), surroundings) ? 0 : 1;
}
