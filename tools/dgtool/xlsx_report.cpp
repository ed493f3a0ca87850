#include "tools/dgtool/xlsx_report.h"

#include <algorithm>
#include <map>

#include "export/csv.h"
#include "export/number_look.h"
#include "export/workbook.h"
#include "forms/form_bands.h"
#include "platform/text.h"
#include "platform/text_file.h"
#include "shell/recap_sheet.h"
#include "shell/splash.h"
#include "tools/dgtool/console.h"

namespace dg {

namespace {

/// A label where it stands, a figure as a number.
void writeLabel(Workbook& book, const Label& label, std::size_t row, std::size_t column) {
  const std::string text(trim(labelText(label)));
  const LabelRole role = label.role();
  const auto number = role == LabelRole::kValue ? shownNumber(text) : std::nullopt;
  if (number) {
    NumberLook look;
    look.add(text);
    book.number(row, column, *number, look.format());
  } else if (label.inError()) {
    book.text(row, column, text, CellLook::kFailure);
  } else {
    const bool bold = role == LabelRole::kTitle || role == LabelRole::kHeading;
    book.text(row, column, text, bold ? CellLook::kBold : CellLook::kPlain);
  }
}

void writeLabelSheet(Workbook& book, const Form& form) {
  book.addSheet(titleOf(form));
  std::map<std::size_t, std::size_t> widths;
  std::size_t top = 0;
  for (const Band& band : bandsOf(form)) {
    std::size_t bottom = top;
    for (const SheetLabel& place : band.labels) {
      const std::size_t row = top + static_cast<std::size_t>(std::max(place.row, 0));
      const auto column = static_cast<std::size_t>(std::max(place.column, 0));
      bottom = std::max(bottom, row + 1);
      writeLabel(book, *place.label, row, column);
      if (place.columnSpan == 1) {
        widths[column] = std::max(widths[column], trim(labelText(*place.label)).size());
      }
    }
    top = bottom;
  }
  for (const auto& [column, width] : widths)
    book.fitColumn(column, width);
}

void writeViewSheets(Workbook& book, const View& view) {
  std::vector<const Grid*> grids;
  for (const auto& control : view.controls()) {
    if (const auto* grid = dynamic_cast<const Grid*>(control.get())) grids.push_back(grid);
  }
  std::vector<std::string> notes;
  if (std::string moment = figuresAsOf(); !moment.empty()) notes.push_back(std::move(moment));
  if (view.incomplete()) notes.emplace_back(kIncomplete);
  for (const Grid* grid : grids) {
    book.addGrid(gridTitle(view, *grid), *grid, allRows(*grid), notes, linesBelowGrid(view, *grid));
  }
}

}  // namespace

void checkWorkbookPath(const std::string& file) {
  try {
    checkExportPath(pathFromBytes(file));
  } catch (const ExportError& error) {
    throw UsageError(std::string("--xlsx: ") + error.what());
  }
}

bool writeXlsxReport(const ReportInput& input) {
  try {
    Workbook book;
    book.setTitle(std::string(kProgramName) + " - " +
                  std::string(trim(input.main.lblStoreName.caption())));
    for (const View* view : input.views) {
      if (view->name() == "frmRecap") writeLabelSheet(book, *view);
    }
    for (const View* view : input.views)
      writeViewSheets(book, *view);
    writeExport(pathFromBytes(input.argument), book.finish());
  } catch (const ExportError& error) {
    throw UsageError(error.what());
  }
  return areComplete(input.views);
}

}  // namespace dg
