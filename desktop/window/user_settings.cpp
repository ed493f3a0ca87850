#include "desktop/window/user_settings.h"

#include <QDir>
#include <QMap>
#include <QScreen>
#include <QSettings>
#include <QStandardPaths>
#include <QVariantMap>
#include <QWidget>
#include <memory>

#include "desktop/window/text.h"
#include "platform/environment.h"
#include "platform/text_file.h"

namespace dg {

QSettings& UserSettings::file() {
  // Tests have another file each.
  static std::unique_ptr<QSettings> settings;
  const QString path = fileNameText(pathFromBytes(environment().desktopFile));
  if (!settings || settings->fileName() != path) {
    settings = std::make_unique<QSettings>(path, QSettings::IniFormat);
  }
  return *settings;
}

void UserSettings::restoreWindow(QWidget& window, const QString& name, QSize size) {
  const QByteArray geometry = file().value("windows/" + name).toByteArray();
  if (!geometry.isEmpty() && window.restoreGeometry(geometry)) return;
  window.resize(onScreen(window, size).expandedTo(window.minimumSizeHint()));
}

QSize UserSettings::onScreen(const QWidget& window, QSize size) {
  constexpr double kShare = 0.96;
  const QScreen* screen = window.screen();
  return screen == nullptr ? size : size.boundedTo(screen->availableSize() * kShare);
}

void UserSettings::saveWindow(const QWidget& window, const QString& name) {
  file().setValue("windows/" + name, window.saveGeometry());
}

QMap<QString, int> UserSettings::columnWidths(const QString& grid) {
  QMap<QString, int> widths;
  const QVariantMap stored = file().value("columns/" + grid).toMap();
  for (auto entry = stored.begin(); entry != stored.end(); ++entry) {
    const int width = entry.value().toInt();
    if (width > 0 && width < 10'000) widths.insert(entry.key(), width);
  }
  return widths;
}

void UserSettings::setColumnWidths(const QString& grid, const QMap<QString, int>& widths) {
  QVariantMap stored;
  for (auto entry = widths.begin(); entry != widths.end(); ++entry) {
    stored.insert(entry.key(), entry.value());
  }
  file().setValue("columns/" + grid, stored);
}

void UserSettings::forgetColumnWidths(const QString& grid) {
  file().remove("columns/" + grid);
}

QByteArray UserSettings::state(const QString& name) {
  return file().value("states/" + name).toByteArray();
}

void UserSettings::setState(const QString& name, const QByteArray& state) {
  file().setValue("states/" + name, state);
}

bool UserSettings::keepsHistory() {
  return file().value(QStringLiteral("history/keep")).toBool();
}

void UserSettings::setKeepsHistory(bool keeps) {
  file().setValue(QStringLiteral("history/keep"), keeps);
}

QString UserSettings::exportFolder() {
  const QString folder = file().value(QStringLiteral("export/folder")).toString();
  if (!folder.isEmpty() && QDir(folder).exists()) return folder;
  return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
}

void UserSettings::setExportFolder(const QString& folder) {
  file().setValue(QStringLiteral("export/folder"), folder);
}

}  // namespace dg
