// Takes pictures of every window over an example store; see scripts/screenshots.

#include <QApplication>
#include <QFile>
#include <QRegularExpression>
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

/// Lets Qt draw into memory, on a screen of "1366x768" pixels or whatever is told. Returns false
/// for a size that is none.
bool useScreen(const QString& size, const QString& file) {
  const auto found = QRegularExpression(QStringLiteral("^(\\d+)x(\\d+)$")).match(size);
  QFile screens(file);
  if (!found.hasMatch() || !screens.open(QIODevice::WriteOnly)) return false;
  screens.write(QStringLiteral(R"({"screens": [{"name": "tour", "x": 0, "y": 0, "width": %1,)"
                               R"( "height": %2, "logicalDpi": 96, "dpr": 1}]})")
                    .arg(found.captured(1), found.captured(2))
                    .toUtf8());
  screens.close();
  return qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + QFile::encodeName(file));
}

}  // namespace

int main(int argc, char** argv) {
  dg::openStandardStreams();
  const QTemporaryDir folder;
  if (argc < 4 || argc > 5 ||
      !useScreen(QString::fromLocal8Bit(argv[3]), folder.filePath("screens"))) {
    std::fputs("usage: desktop_shots FOLDER light|dark WIDTHxHEIGHT [STORE]\n", stderr);
    return 2;
  }
  QApplication application(argc, argv);
  dg::initializeResources();
  // Pictures shall look the same wherever they are taken.
  QApplication::setFont(QFont(QStringLiteral("Noto Sans"), kPointSize));
  dg::applyTheme(qstrcmp(argv[2], "dark") == 0 ? dg::Theme::kDark : dg::Theme::kLight);
  // The store of a folder is copied: some pictures need damaged files.
  const std::string store = folder.filePath(QStringLiteral("store")).toStdString();
  dg::SampleOptions options;
  options.scale = 3;
  options.stores = 4;
  if (argc == 5) {
    std::filesystem::copy(argv[4], store, std::filesystem::copy_options::recursive);
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
