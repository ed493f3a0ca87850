#include "desktop/recap/morning_report.h"

#include <QDesktopServices>
#include <QDir>
#include <QMessageBox>
#include <QPushButton>
#include <QUrl>
#include <filesystem>

#include "desktop/grid/export_files.h"
#include "desktop/recap/history_keeper.h"
#include "desktop/recap/todays_work.h"
#include "desktop/window/help_window.h"
#include "desktop/window/message_boxes.h"
#include "desktop/window/text.h"
#include "export/brief.h"
#include "platform/clock.h"
#include "platform/environment.h"
#include "platform/text_file.h"
#include "platform/values/run_time_error.h"
#include "shell/recap_sheet.h"

namespace dg {

namespace {

constexpr const char* kFile = "morning-report.html";

/// Writes the page for the browser; returns its file, empty when it cannot be written.
QString writeForBrowser(const QByteArray& page) {
  const std::filesystem::path folder = pathFromBytes(
      environment().dataFolder.empty() ? environment().temp : environment().dataFolder);
  std::error_code ignored;
  std::filesystem::create_directories(folder, ignored);
  try {
    replaceFile(folder / kFile, {page.data(), static_cast<std::size_t>(page.size())},
                NewFileMode::kPrivate);
  } catch (const RunTimeError&) {
    return {};
  }
  return QString::fromStdU16String((folder / kFile).u16string());
}

void showInBrowser(QWidget* parent, const QByteArray& page) {
  const QString title = QMessageBox::tr("Morning Report");
  const QString file = writeForBrowser(page);
  if (file.isEmpty()) {
    showWarning(parent, title, QMessageBox::tr("The page cannot be written."));
  } else if (!QDesktopServices::openUrl(QUrl::fromLocalFile(file))) {
    showWarning(parent, title,
                QMessageBox::tr("No browser opens the page. It is in %1")
                    .arg(QDir::toNativeSeparators(file)));
  }
}

}  // namespace

QByteArray morningReport(const frmTRVN& main, const TodaysWork& work, const HistoryKeeper& keeper) {
  Brief brief{.moment = figuresMoment().value_or(now()), .stores = {}, .isGroup = false};
  BriefStore& store = brief.stores.emplace_back();
  takeFigures(store, main, keeper.history(), Date(brief.moment.days()));
  for (const KindEntry& entry : attentionKinds()) {
    if (const auto result = work.result(entry.kind)) store.kinds.push_back(*result);
  }
  store.ageing = work.ageing();
  return QByteArray::fromStdString(briefPage(brief, BriefLines::kDrawings));
}

void offerMorningReport(QWidget* parent, const frmTRVN& main, const TodaysWork& work,
                        const HistoryKeeper& keeper) {
  QMessageBox box(parent);
  box.setObjectName(QStringLiteral("morningReport"));
  box.setWindowTitle(QMessageBox::tr("Morning Report"));
  box.setTextFormat(Qt::PlainText);
  box.setText(
      QMessageBox::tr("The recap, what needs attention and what has changed, on one page "
                      "to read on a phone, to print or to send."));
  const QPushButton* browser =
      box.addButton(QMessageBox::tr("&Show in Browser"), QMessageBox::AcceptRole);
  const QPushButton* save = box.addButton(QMessageBox::tr("S&ave..."), QMessageBox::ActionRole);
  box.addButton(QMessageBox::Cancel);
  addHelpKey(box, box.objectName().toStdString());
  box.exec();
  if (box.clickedButton() == browser) {
    showInBrowser(parent, morningReport(main, work, keeper));
  } else if (box.clickedButton() == save) {
    const QString file = askForExportFile(parent, QMessageBox::tr("Morning Report"),
                                          QStringLiteral("html"), QMessageBox::tr("Page (*.html)"));
    if (!file.isEmpty()) exported(parent, file, writeFile(file, morningReport(main, work, keeper)));
  }
}

}  // namespace dg
