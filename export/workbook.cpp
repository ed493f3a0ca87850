#include "export/workbook.h"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>
#include <vector>
#include <xlsxwriter.h>

#include "export/number_look.h"
#include "export/printable.h"
#include "export/sheet_name.h"
#include "forms/grid_columns.h"
#include "platform/clock.h"
#include "platform/scratch_file.h"
#include "platform/text.h"
#include "platform/values/run_time_error.h"

namespace dg {

namespace {

constexpr std::size_t kCellLength = 32767;
constexpr std::size_t kMaxRows = 1048576;
constexpr double kSecondsPerDay = 86400;
/// Spreadsheets count days as the program does from 1 March 1900 on; before it they have a day too
/// many, and before 1900 none at all.
constexpr std::int32_t kFirstSpreadsheetDay = 61;
constexpr std::int32_t kUnixEpoch = 25569;
constexpr const char* kDateFormat = "m/d/yy";

constexpr std::size_t kMinWidth = 6;
constexpr std::size_t kMaxWidth = 60;

/// The day as a spreadsheet counts it, or nothing for a text that is no such date.
std::optional<double> shownDay(const std::string& text) {
  const auto date = Date::parse(text);
  if (!date || date->days() < kFirstSpreadsheetDay) return std::nullopt;
  return date->days() + date->secondOfDay() / kSecondsPerDay;
}

lxw_row_t toRow(std::size_t row) {
  return static_cast<lxw_row_t>(row);
}

lxw_col_t toColumn(std::size_t column) {
  return static_cast<lxw_col_t>(column);
}

}  // namespace

/// The file, the sheet that is being filled, and the formats in use.
class Workbook::Writer {
 public:
  Writer() : book_(workbook_new(file_.path().c_str())) {
    if (book_ == nullptr) throw ExportError("there is no room for a workbook");
    header_ = workbook_add_format(book_);
    format_set_bold(header_);
    format_set_bottom(header_, LXW_BORDER_THIN);
    bold_ = workbook_add_format(book_);
    format_set_bold(bold_);
    failure_ = workbook_add_format(book_);
    format_set_font_color(failure_, LXW_COLOR_RED);
  }
  ~Writer() {
    if (book_ != nullptr) lxw_workbook_free(book_);
  }
  Writer(const Writer&) = delete;
  Writer& operator=(const Writer&) = delete;

  lxw_workbook* book() const { return book_; }
  lxw_worksheet* sheet() const { return sheet_; }
  lxw_format* header() const { return header_; }

  lxw_format* look(CellLook look) const {
    if (look == CellLook::kBold) return bold_;
    return look == CellLook::kFailure ? failure_ : nullptr;
  }
  lxw_format* number(const std::string& format) {
    lxw_format*& known = numbers_[format];
    if (known == nullptr) {
      known = workbook_add_format(book_);
      format_set_num_format(known, format.c_str());
    }
    return known;
  }

  void addSheet(const std::string& title) {
    const std::string name = utf8FromBytes(sheetName(title, names_));
    sheet_ = workbook_add_worksheet(book_, name.c_str());
    if (sheet_ == nullptr) throw ExportError("cannot add a sheet to the workbook");
  }

  void writeText(std::size_t row, std::size_t column, std::string_view bytes, lxw_format* format) {
    const std::string text = terminalText(bytes.substr(0, kCellLength));
    if (text.empty()) return;
    worksheet_write_string(sheet_, toRow(row), toColumn(column), text.c_str(), format);
  }
  void writeNumber(std::size_t row, std::size_t column, double value, lxw_format* format) {
    worksheet_write_number(sheet_, toRow(row), toColumn(column), value, format);
  }
  void fitColumn(std::size_t column, std::size_t characters) {
    const double width = static_cast<double>(std::clamp(characters, kMinWidth, kMaxWidth) + 2);
    worksheet_set_column(sheet_, toColumn(column), toColumn(column), width, nullptr);
  }

  void writeGroups(const std::vector<ShownColumn>& columns, std::size_t row);
  void writeColumn(const Grid& grid, std::span<const int> rows, int index, std::size_t captionRow,
                   std::size_t at);

  std::string finish() {
    // The writer frees the workbook whether it succeeds or not.
    const lxw_error error = workbook_close(std::exchange(book_, nullptr));
    if (error != LXW_NO_ERROR) {
      throw ExportError(std::string("cannot make the workbook: ") + lxw_strerror(error));
    }
    return file_.content();
  }

 private:
  void writeCell(std::size_t row, std::size_t column, const std::string& text, ColumnKind kind,
                 lxw_format* numberFormat);

  ScratchFile file_;
  lxw_workbook* book_;
  lxw_worksheet* sheet_ = nullptr;
  lxw_format* header_;
  lxw_format* bold_;
  lxw_format* failure_;
  std::map<std::string, lxw_format*> numbers_;
  std::vector<std::string> names_;
};

/// The headings over groups of columns, each over all of its columns.
void Workbook::Writer::writeGroups(const std::vector<ShownColumn>& columns, std::size_t row) {
  for (std::size_t first = 0; first < columns.size(); ++first) {
    if (columns[first].group.empty()) continue;
    std::size_t last = first;
    while (last + 1 < columns.size() && columns[last + 1].group.empty())
      ++last;
    writeText(row, first, columns[first].group, header_);
    if (last == first) continue;
    const std::string text = terminalText(columns[first].group);
    worksheet_merge_range(sheet_, toRow(row), toColumn(first), toRow(row), toColumn(last),
                          text.c_str(), header_);
  }
}

/// Writes a column from the row of its caption on.
void Workbook::Writer::writeColumn(const Grid& grid, std::span<const int> rows, int index,
                                   std::size_t captionRow, std::size_t at) {
  const Grid::Column& column = grid.columns()[static_cast<std::size_t>(index)];
  std::size_t width = column.caption.size();
  writeText(captionRow, at, column.caption, header_);
  lxw_format* numberFormat = number(columnLook(grid, index).format());
  std::size_t place = captionRow;
  for (const int row : rows) {
    const std::string& cell = grid.CellValue(index, row);
    width = std::max(width, cell.size());
    writeCell(++place, at, cell, column.kind, numberFormat);
  }
  fitColumn(at, width);
}

void Workbook::Writer::writeCell(std::size_t row, std::size_t column, const std::string& text,
                                 ColumnKind kind, lxw_format* numberFormat) {
  if (kind == ColumnKind::kDate) {
    if (const auto day = shownDay(text)) {
      writeNumber(row, column, *day, number(kDateFormat));
      return;
    }
  } else if (kind != ColumnKind::kText) {
    if (const auto value = shownNumber(text)) {
      writeNumber(row, column, *value, numberFormat);
      return;
    }
  }
  writeText(row, column, text, nullptr);
}

Workbook::Workbook() {
  try {
    writer_ = std::make_unique<Writer>();
  } catch (const RunTimeError& error) {
    throw ExportError("there is no room for a workbook: " + error.description());
  }
}

Workbook::~Workbook() = default;

void Workbook::setTitle(std::string_view title) {
  const Date moment = now();
  const std::string text = terminalText(title);
  lxw_doc_properties properties{};
  // The writer copies the texts; its interface lacks the const.
  properties.title = const_cast<char*>(text.c_str());
  properties.created = static_cast<time_t>(moment.days() - kUnixEpoch) * 86400 +
                       static_cast<time_t>(moment.secondOfDay());
  workbook_set_properties(writer_->book(), &properties);
}

void Workbook::addGrid(const std::string& title, const Grid& grid, std::span<const int> rows,
                       std::span<const std::string> notes, std::span<const std::string> below) {
  if (rows.size() + notes.size() + below.size() + 3 > kMaxRows) {
    throw ExportError(grid.name() + " has more rows than a sheet can hold; CSV takes them");
  }
  writer_->addSheet(title);
  const std::vector<ShownColumn> columns = shownColumns(grid);
  const bool groups =
      std::ranges::any_of(columns, [](const ShownColumn& column) { return !column.group.empty(); });
  for (std::size_t line = 0; line < notes.size(); ++line)
    writer_->writeText(line, 0, notes[line], writer_->look(CellLook::kPlain));
  if (groups) writer_->writeGroups(columns, notes.size());

  const std::size_t captionRow = notes.size() + (groups ? 1 : 0);
  for (std::size_t at = 0; at < columns.size(); ++at)
    writer_->writeColumn(grid, rows, columns[at].index, captionRow, at);

  for (std::size_t line = 0; line < below.size(); ++line) {
    writer_->writeText(captionRow + rows.size() + 2 + line, 0, below[line],
                       writer_->look(CellLook::kBold));
  }
  lxw_worksheet* sheet = writer_->sheet();
  const lxw_row_t top = toRow(captionRow);
  worksheet_freeze_panes(sheet, top + 1, 0);
  if (!columns.empty() && !rows.empty()) {
    worksheet_autofilter(sheet, top, 0, top + toRow(rows.size()), toColumn(columns.size() - 1));
  }
  worksheet_repeat_rows(sheet, toRow(notes.size()), top);
  worksheet_set_landscape(sheet);
  worksheet_fit_to_pages(sheet, 1, 0);
}

void Workbook::addSheet(const std::string& title) {
  writer_->addSheet(title);
}

void Workbook::text(std::size_t row, std::size_t column, std::string_view bytes, CellLook look) {
  writer_->writeText(row, column, bytes, writer_->look(look));
}

void Workbook::number(std::size_t row, std::size_t column, double value,
                      const std::string& format) {
  writer_->writeNumber(row, column, value, writer_->number(format));
}

void Workbook::fitColumn(std::size_t column, std::size_t characters) {
  writer_->fitColumn(column, characters);
}

std::string Workbook::finish() {
  try {
    return writer_->finish();
  } catch (const RunTimeError& error) {
    throw ExportError("cannot make the workbook: " + error.description());
  }
}

}  // namespace dg
