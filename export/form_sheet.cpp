#include "export/form_sheet.h"

#include <algorithm>
#include <map>
#include <string>

#include "export/csv.h"
#include "export/number_look.h"
#include "forms/form_bands.h"
#include "platform/text.h"

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

}  // namespace

void addFormSheet(Workbook& book, const Form& form) {
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

void writeFormCsv(std::ostream& out, const Form& form) {
  for (const Band& band : bandsOf(form)) {
    std::map<int, std::map<int, std::string>> rows;
    for (const SheetLabel& place : band.labels)
      rows[place.row][place.column] = trim(labelText(*place.label));
    for (const auto& [row, cells] : rows) {
      int column = 0;
      for (const auto& [place, text] : cells) {
        for (; column < place; ++column)
          out << ',';
        out << csvCell(text);
      }
      out << "\r\n";
    }
  }
}

}  // namespace dg
