#include "export/csv.h"

#include <numeric>

#include "export/printable.h"
#include "forms/grid_columns.h"
#include "platform/text.h"
#include "platform/values/convert.h"

namespace dg {

namespace {

constexpr std::string_view kFormulaStarts = "=+-@";

template <class TextOf>
void writeRecord(std::ostream& out, std::span<const ShownColumn> columns, TextOf&& textOf) {
  const char* separator = "";
  for (const ShownColumn& column : columns) {
    out << separator << csvCell(textOf(column));
    separator = ",";
  }
  out << "\r\n";
}

}  // namespace

std::string csvCell(std::string_view bytes) {
  std::string text = terminalText(bytes);
  const std::string_view start = trimLeft(text);
  const bool formula =
      !start.empty() && kFormulaStarts.find(start.front()) != start.npos && !parseNumber(start);
  if (formula) text.insert(0, "'");
  if (text.find_first_of("\",") == std::string::npos && text == trim(text)) return text;
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '"') quoted += '"';
    quoted += c;
  }
  return quoted + '"';
}

std::vector<int> allRows(const Grid& grid) {
  std::vector<int> rows(grid.rows().size());
  std::iota(rows.begin(), rows.end(), 0);
  return rows;
}

void writeCsv(std::ostream& out, const Grid& grid, std::span<const int> rows, CsvHeads heads) {
  const std::vector<ShownColumn> columns = shownColumns(grid);
  writeRecord(out, columns, [heads](const ShownColumn& column) {
    return heads == CsvHeads::kTitles ? column.title : column.caption;
  });
  for (const int row : rows) {
    writeRecord(out, columns,
                [&](const ShownColumn& column) { return grid.CellValue(column.index, row); });
  }
}

void writeCsv(std::ostream& out, const Grid& grid) {
  writeCsv(out, grid, allRows(grid), CsvHeads::kCaptions);
}

}  // namespace dg
