#include "desktop/grid/grid_export.h"

#include <sstream>

#include "desktop/grid/grid_model.h"
#include "desktop/window/text.h"
#include "export/csv.h"
#include "export/workbook.h"
#include "forms/form_bands.h"
#include "shell/recap_sheet.h"
#include "shell/view.h"

namespace dg {

namespace {

std::string csvOf(const GridModel& model) {
  std::ostringstream text;
  text << kByteOrderMark;
  writeCsv(text, model.grid(), model.shownRows(), CsvHeads::kTitles);
  return text.str();
}

std::string workbookOf(const GridModel& model, const Form& form, const QString& title) {
  Workbook book;
  book.setTitle(toBytes(title));
  std::vector<std::string> notes;
  if (std::string moment = figuresAsOf(momentOf(form)); !moment.empty())
    notes.push_back(std::move(moment));
  if (form.incomplete()) notes.emplace_back("Could not be read completely: see the log.");
  for (std::string& line : linesAboveGrids(form))
    notes.push_back(std::move(line));
  book.addGrid(gridTitle(form, model.grid()), model.grid(), model.shownRows(), notes,
               linesBelowGrid(form, model.grid()));
  return book.finish();
}

}  // namespace

QString exportGrid(const GridModel& model, const Form& form, const QString& title,
                   const QString& file) {
  const bool workbook = file.endsWith(QStringLiteral(".xlsx"), Qt::CaseInsensitive);
  try {
    writeExport(std::filesystem::path(file.toStdU16String()),
                workbook ? workbookOf(model, form, title) : csvOf(model));
  } catch (const ExportError& error) {
    return QString::fromUtf8(error.what());
  }
  return {};
}

}  // namespace dg
