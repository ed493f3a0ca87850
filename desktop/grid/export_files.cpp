#include "desktop/grid/export_files.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>

#include "desktop/print/print_document.h"
#include "desktop/window/message_boxes.h"
#include "desktop/window/user_settings.h"
#include "export/export_file.h"
#include "platform/clock.h"
#include "shell/recap_sheet.h"

namespace dg {

namespace {

/// A title as a file's name.
QString fileName(QString title) {
  for (QChar& character : title) {
    if (QStringLiteral("\\/:*?\"<>|&").contains(character)) character = u'-';
  }
  return title.simplified();
}

std::function<void(const QString&)>& exportNotice() {
  static std::function<void(const QString&)> notice;
  return notice;
}

}  // namespace

void setExportNotice(std::function<void(const QString& file)> notice) {
  exportNotice() = std::move(notice);
}

QString askForExportFile(QWidget* parent, const QString& title, const QString& suffix,
                         const QString& kind) {
  QFileDialog dialog(parent, QObject::tr("Export"), UserSettings::exportFolder(), kind);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  // The dialog's own, so that it asks before a file of the completed name is replaced.
  dialog.setDefaultSuffix(suffix);
  QStringList parts = {title};
  if (!printStore().isEmpty()) parts.append(printStore());
  const Date day = figuresMoment().value_or(now());
  parts.append(QString::fromStdString(day.isoText()));
  dialog.selectFile(fileName(parts.join(QStringLiteral(" - "))) + u'.' + suffix);
  return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

bool writeFile(const QString& file, const QByteArray& content) {
  try {
    writeExport(std::filesystem::path(file.toStdU16String()),
                {content.data(), static_cast<std::size_t>(content.size())});
  } catch (const ExportError&) {
    return false;
  }
  return true;
}

bool exported(QWidget* parent, const QString& file, bool written, const QString& problem) {
  if (written) {
    UserSettings::setExportFolder(QFileInfo(file).absolutePath());
    if (exportNotice()) exportNotice()(file);
  } else {
    const QString reason = problem.isEmpty() ? QObject::tr("The file cannot be written.") : problem;
    showWarning(parent, QObject::tr("Export"), reason + u'\n' + QDir::toNativeSeparators(file));
  }
  return written;
}

}  // namespace dg
