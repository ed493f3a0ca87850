#pragma once

#include <QByteArray>
#include <QMap>
#include <QSize>
#include <QString>

class QSettings;
class QWidget;

namespace dg {

/// What the desktop program remembers of its windows for a user: geometry and column widths. It
/// stands in a file of its own, "DealerGauge/desktop.ini" in the user's configuration folder, apart
/// from the suite's settings. A file that cannot be written is no error: nothing is remembered.
class UserSettings {
 public:
  /// Puts a window where it stood and with the size it had, or gives it `size`.
  static void restoreWindow(QWidget& window, const QString& name, QSize size);
  static void saveWindow(const QWidget& window, const QString& name);
  /// The part of a size that the window's screen has room for.
  static QSize onScreen(const QWidget& window, QSize size);

  /// Widths by column name; empty when the user has not changed any.
  static QMap<QString, int> columnWidths(const QString& grid);
  static void setColumnWidths(const QString& grid, const QMap<QString, int>& widths);
  static void forgetColumnWidths(const QString& grid);

  static QByteArray state(const QString& name);
  static void setState(const QString& name, const QByteArray& state);

  /// Whether the user wants the recap's figures kept day by day; not before it is asked for.
  static bool keepsHistory();
  static void setKeepsHistory(bool keeps);

  /// Folder of the last export, or the user's documents.
  static QString exportFolder();
  static void setExportFolder(const QString& folder);

 private:
  static QSettings& file();
};

}  // namespace dg
