#include "desktop/grid/grid_export.h"

#include <QSaveFile>
#include <sstream>

#include "desktop/grid/grid_model.h"
#include "desktop/window/text.h"
#include "export/csv.h"
#include "export/workbook.h"

namespace dg {

namespace {

/// Tells spreadsheets that the file is UTF-8; without it they take it for the system's code page.
constexpr const char* kByteOrderMark = "\xEF\xBB\xBF";

QString cannotWrite() {
  return QObject::tr("The file cannot be written.");
}

QString exportCsv(const GridModel& model, const QString& file) {
  std::ostringstream text;
  text << kByteOrderMark;
  writeCsv(text, model.grid(), model.shownRows());
  const std::string content = text.str();
  const auto size = static_cast<qint64>(content.size());
  QSaveFile target(file);
  const bool written = target.open(QIODevice::WriteOnly) &&
                       target.write(content.data(), size) == size && target.commit();
  return written ? QString() : cannotWrite();
}

QString exportWorkbook(const GridModel& model, const QString& title, const QString& file) {
  try {
    Workbook book(std::filesystem::path(file.toStdU16String()));
    book.setTitle(toBytes(title));
    book.addGrid(toBytes(title), model.grid(), model.shownRows());
    book.save();
  } catch (const ExportError& error) {
    return cannotWrite() + u'\n' + QString::fromUtf8(error.what());
  }
  return {};
}

}  // namespace

QString exportGrid(const GridModel& model, const QString& title, const QString& file) {
  return file.endsWith(QStringLiteral(".xlsx"), Qt::CaseInsensitive)
             ? exportWorkbook(model, title, file)
             : exportCsv(model, file);
}

}  // namespace dg
