#include "tools/dgtool/form_text.h"

#include <algorithm>
#include <map>
#include <utility>
#include <vector>

#include "export/number_look.h"
#include "forms/form_bands.h"
#include "forms/grid_columns.h"
#include "platform/text.h"
#include "tools/dgtool/console.h"

namespace dg {

namespace {

constexpr std::size_t kGap = 2;

/// Texts are padded as bytes of the code page, where a byte is a place on the screen, and turned
/// into UTF-8 as whole lines.
std::string padded(std::string_view text, std::size_t width, bool right) {
  const std::string fill(width > text.size() ? width - text.size() : 0, ' ');
  return right ? fill + std::string(text) : std::string(text) + fill;
}

void writeLine(std::ostream& out, std::size_t indent, std::string_view line) {
  const std::string_view text = trimRight(line);
  if (!text.empty()) out << std::string(indent, ' ') << terminalText(text);
  out << '\n';
}

// --- Labels -------------------------------------------------------------------------------------

struct LabelBox {
  std::vector<std::string> lines;
  std::size_t width = 0;
  std::size_t column = 0;
  std::size_t columnSpan = 1;
  bool value = false;
  bool right = false;
};

/// The lines of a label, parted by LF or CR LF.
std::vector<std::string> linesOf(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const auto end = text.find('\n');
    const std::string line = printableBytes(text.substr(0, end));
    lines.emplace_back(trimRight(line));
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  }
  while (!lines.empty() && lines.back().empty())
    lines.pop_back();
  return lines;
}

LabelBox boxOf(const SheetLabel& place) {
  const std::string text = labelText(*place.label);
  LabelBox box;
  box.lines = linesOf(text);
  box.column = static_cast<std::size_t>(std::max(place.column, 0));
  box.columnSpan = static_cast<std::size_t>(std::max(place.columnSpan, 1));
  for (const std::string& line : box.lines)
    box.width = std::max(box.width, line.size());
  box.value = place.label->role() == LabelRole::kValue;
  box.right = box.value && place.column > 0 && (place.label->inError() || shownNumber(trim(text)));
  return box;
}

class LabelSheet {
 public:
  explicit LabelSheet(const std::vector<SheetLabel>& labels) {
    for (const SheetLabel& place : labels) {
      if (place.label->role() == LabelRole::kTitle) continue;
      LabelBox box = boxOf(place);
      if (!box.lines.empty()) rows_[place.row].push_back(std::move(box));
    }
    measure();
    align();
  }

  bool empty() const { return rows_.empty(); }

  void write(std::ostream& out, std::size_t indent) const {
    for (const auto& [row, boxes] : rows_) {
      std::size_t height = 0;
      for (const LabelBox& box : boxes)
        height = std::max(height, box.lines.size());
      for (std::size_t line = 0; line < height; ++line)
        writeLine(out, indent, lineOf(boxes, line));
    }
  }

 private:
  void measure() {
    for (const auto& [row, boxes] : rows_) {
      for (const LabelBox& box : boxes) {
        widths_.resize(std::max(widths_.size(), box.column + box.columnSpan));
        if (box.columnSpan == 1) widths_[box.column] = std::max(widths_[box.column], box.width);
      }
    }
    for (const auto& [row, boxes] : rows_) {
      for (const LabelBox& box : boxes) {
        const std::size_t width = spanWidth(box);
        if (box.columnSpan > 1 && width < box.width) {
          widths_[box.column + box.columnSpan - 1] += box.width - width;
        }
      }
    }
  }

  /// Figures stand at the right edge of a column that holds nothing else, and so do the captions
  /// above them.
  void align() {
    std::map<std::size_t, bool> figures;  // columns with values: whether all are figures
    for (const auto& [row, boxes] : rows_) {
      for (const LabelBox& box : boxes) {
        if (!box.value || box.columnSpan > 1) continue;
        const auto known = figures.emplace(box.column, box.right).first;
        known->second = known->second && box.right;
      }
    }
    for (auto& [row, boxes] : rows_) {
      for (LabelBox& box : boxes) {
        const auto known = figures.find(box.column);
        if (box.columnSpan == 1 && known != figures.end()) box.right = known->second;
      }
    }
  }

  std::size_t start(std::size_t column) const {
    std::size_t at = 0;
    for (std::size_t i = 0; i < column; ++i)
      at += widths_[i] == 0 ? 0 : widths_[i] + kGap;
    return at;
  }

  std::size_t spanWidth(const LabelBox& box) const {
    const std::size_t width = start(box.column + box.columnSpan) - start(box.column);
    return width > kGap ? width - kGap : 0;
  }

  std::string lineOf(const std::vector<LabelBox>& boxes, std::size_t line) const {
    std::string text;
    for (const LabelBox& box : boxes) {
      if (line >= box.lines.size()) continue;
      text = padded(text, start(box.column), false);
      text += padded(box.lines[line], spanWidth(box), box.right);
    }
    return text;
  }

  std::map<int, std::vector<LabelBox>> rows_;
  std::vector<std::size_t> widths_;
};

// --- Grids --------------------------------------------------------------------------------------

struct TableColumn {
  std::size_t index;
  std::string caption;
  std::string group;
  std::size_t width;
  bool right;
};

std::vector<TableColumn> tableColumns(const Grid& grid) {
  std::vector<TableColumn> columns;
  for (const ShownColumn& shown : shownColumns(grid)) {
    const auto index = static_cast<std::size_t>(shown.index);
    const std::string caption = printableBytes(shown.caption);
    std::size_t width = caption.size();
    for (const Grid::Row& row : grid.rows())
      width = std::max(width, row[index].size());
    columns.push_back({index, caption, printableBytes(shown.group), width, shown.alignRight});
  }
  return columns;
}

/// The line of group headings, each over its first column; widens a last column that is too narrow
/// for the heading over it.
std::string groupLine(std::vector<TableColumn>& columns) {
  std::string line;
  std::size_t at = 0;
  for (TableColumn& column : columns) {
    if (!column.group.empty()) {
      if (line.size() > at) {
        TableColumn& before = *(&column - 1);
        before.width += line.size() - at;
        at = line.size();
      }
      line = padded(line, at, false) + column.group + std::string(kGap, ' ');
    }
    at += column.width + kGap;
  }
  return line;
}

template <class TextOf>
std::string tableLine(const std::vector<TableColumn>& columns, TextOf&& textOf) {
  std::string line;
  for (const TableColumn& column : columns) {
    line += padded(textOf(column), column.width, column.right) + std::string(kGap, ' ');
  }
  return line;
}

}  // namespace

void writeTable(std::ostream& out, const Grid& grid, std::size_t indent) {
  if (!grid.heading().empty()) writeLine(out, indent, grid.heading());
  std::vector<TableColumn> columns = tableColumns(grid);
  const std::string groups = groupLine(columns);
  if (!groups.empty()) writeLine(out, indent, groups);
  writeLine(out, indent,
            tableLine(columns, [](const TableColumn& column) { return column.caption; }));
  writeLine(out, indent, tableLine(columns, [](const TableColumn& column) {
              return std::string(column.width, '-');
            }));
  for (const Grid::Row& row : grid.rows()) {
    writeLine(out, indent, tableLine(columns, [&](const TableColumn& column) {
                return printableBytes(row[column.index]);
              }));
  }
  const auto count = grid.rows().size();
  writeLine(
      out, indent,
      count == 0 ? "(no rows)" : "(" + std::to_string(count) + (count == 1 ? " row)" : " rows)"));
}

void writeFormText(std::ostream& out, const Form& form, std::size_t indent) {
  bool first = true;
  for (const Band& band : bandsOf(form)) {
    const LabelSheet labels(band.labels);
    if (band.grid == nullptr && labels.empty()) continue;
    if (!std::exchange(first, false)) out << '\n';
    if (!band.heading.empty()) writeLine(out, indent, band.heading);
    if (band.grid != nullptr) {
      writeTable(out, *band.grid, indent);
    } else {
      labels.write(out, indent);
    }
  }
}

}  // namespace dg
