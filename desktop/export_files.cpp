#include "desktop/export_files.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>

#include "desktop/message_boxes.h"
#include "desktop/user_settings.h"

namespace dg {

namespace {

/// A title as a file's name.
QString fileName(QString title) {
  for (QChar& character : title) {
    if (QStringLiteral("\\/:*?\"<>|&").contains(character)) character = u'-';
  }
  return title.simplified();
}

}  // namespace

QString askForExportFile(QWidget* parent, const QString& title, const QString& suffix,
                         const QString& kind) {
  const QString proposed = UserSettings::exportFolder() + u'/' + fileName(title) + u'.' + suffix;
  QString file = QFileDialog::getSaveFileName(parent, QObject::tr("Export"), proposed, kind);
  if (!file.isEmpty() && QFileInfo(file).suffix().isEmpty()) file += u'.' + suffix;
  return file;
}

bool exported(QWidget* parent, const QString& file, bool written, const QString& problem) {
  if (written) {
    UserSettings::setExportFolder(QFileInfo(file).absolutePath());
  } else {
    const QString reason = problem.isEmpty() ? QObject::tr("The file cannot be written.") : problem;
    showWarning(parent, QObject::tr("Export"), reason + u'\n' + QDir::toNativeSeparators(file));
  }
  return written;
}

}  // namespace dg
