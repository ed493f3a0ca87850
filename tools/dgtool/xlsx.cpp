#include "tools/dgtool/xlsx.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <memory>
#include <random>
#include <utility>
#include <xlsxwriter.h>

#include "platform/clock.h"
#include "platform/text.h"
#include "shell/splash.h"
#include "tools/dgtool/console.h"
#include "tools/dgtool/form_bands.h"
#include "tools/dgtool/number_look.h"

namespace dg {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kSheetNameLength = 31;
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

/// A workbook in the making: the file, and the formats in use by their number format.
class Workbook {
 public:
  explicit Workbook(const fs::path& file)
      : file_(file.string()), book_(workbook_new(file_.c_str())) {
    if (book_ == nullptr) throw UsageError("cannot write " + file_);
    header_ = workbook_add_format(book_);
    format_set_bold(header_);
    format_set_bottom(header_, LXW_BORDER_THIN);
    title_ = workbook_add_format(book_);
    format_set_bold(title_);
    failure_ = workbook_add_format(book_);
    format_set_font_color(failure_, LXW_COLOR_RED);
  }
  ~Workbook() {
    if (book_ != nullptr) lxw_workbook_free(book_);
  }
  Workbook(const Workbook&) = delete;
  Workbook& operator=(const Workbook&) = delete;

  lxw_worksheet* addSheet(const std::string& title) {
    const std::string name = utf8FromBytes(sheetName(title, names_));
    lxw_worksheet* sheet = workbook_add_worksheet(book_, name.c_str());
    if (sheet == nullptr) throw UsageError("cannot add a sheet to " + file_);
    return sheet;
  }

  lxw_format* header() const { return header_; }
  lxw_format* title() const { return title_; }
  lxw_format* failure() const { return failure_; }
  lxw_format* number(const std::string& format) {
    lxw_format*& known = numbers_[format];
    if (known == nullptr) {
      known = workbook_add_format(book_);
      format_set_num_format(known, format.c_str());
    }
    return known;
  }

  void setProperties(const std::string& storeName) {
    const Date moment = now();
    const std::string title = std::string(kProgramName) + " - " + terminalText(trim(storeName));
    lxw_doc_properties properties{};
    // The writer copies the texts; its interface lacks the const.
    properties.title = const_cast<char*>(title.c_str());
    properties.created = static_cast<time_t>(moment.days() - kUnixEpoch) * 86400 +
                         static_cast<time_t>(moment.secondOfDay());
    workbook_set_properties(book_, &properties);
  }

  void close() {
    // The writer frees the workbook whether it succeeds or not.
    const lxw_error error = workbook_close(std::exchange(book_, nullptr));
    if (error != LXW_NO_ERROR) {
      throw UsageError("cannot write " + file_ + ": " + lxw_strerror(error));
    }
  }

 private:
  std::string file_;
  lxw_workbook* book_;
  lxw_format* header_;
  lxw_format* title_;
  lxw_format* failure_;
  std::map<std::string, lxw_format*> numbers_;
  std::vector<std::string> names_;
};

void writeText(lxw_worksheet* sheet, std::size_t row, std::size_t column, std::string_view bytes,
               lxw_format* format = nullptr) {
  const std::string text = terminalText(bytes.substr(0, kCellLength));
  if (text.empty()) return;
  worksheet_write_string(sheet, static_cast<lxw_row_t>(row), static_cast<lxw_col_t>(column),
                         text.c_str(), format);
}

void writeNumber(lxw_worksheet* sheet, std::size_t row, std::size_t column, double number,
                 lxw_format* format) {
  worksheet_write_number(sheet, static_cast<lxw_row_t>(row), static_cast<lxw_col_t>(column), number,
                         format);
}

/// The day as a spreadsheet counts it, or nothing for a text that is no such date.
std::optional<double> shownDay(const std::string& text) {
  const auto date = Date::parse(text);
  if (!date || date->days() < kFirstSpreadsheetDay) return std::nullopt;
  return date->days() + date->secondOfDay() / kSecondsPerDay;
}

void writeCell(Workbook& book, lxw_worksheet* sheet, std::size_t row, std::size_t column,
               const std::string& text, ColumnKind kind, lxw_format* numberFormat) {
  if (kind == ColumnKind::kDate) {
    if (const auto day = shownDay(text)) {
      writeNumber(sheet, row, column, *day, book.number(kDateFormat));
      return;
    }
  } else if (kind != ColumnKind::kText) {
    if (const auto number = shownNumber(text)) {
      writeNumber(sheet, row, column, *number, numberFormat);
      return;
    }
  }
  writeText(sheet, row, column, text);
}

struct SheetColumn {
  int index;          ///< in the grid
  std::string group;  ///< heading over it; empty: that of the column before
};

std::vector<SheetColumn> sheetColumns(const Grid& grid) {
  std::vector<SheetColumn> columns;
  std::string group;
  for (int i = 0; i < grid.Cols(); ++i) {
    const Grid::Column& column = grid.columns()[static_cast<std::size_t>(i)];
    if (!column.group.empty()) group = column.group;
    if (!column.hidden) columns.push_back({i, std::exchange(group, {})});
  }
  return columns;
}

/// The headings over groups of columns, each over all of its columns.
void writeGroups(const Workbook& book, lxw_worksheet* sheet,
                 const std::vector<SheetColumn>& columns) {
  for (std::size_t first = 0; first < columns.size(); ++first) {
    if (columns[first].group.empty()) continue;
    std::size_t last = first;
    while (last + 1 < columns.size() && columns[last + 1].group.empty())
      ++last;
    writeText(sheet, 0, first, columns[first].group, book.header());
    if (last == first) continue;
    const std::string text = terminalText(columns[first].group);
    worksheet_merge_range(sheet, 0, static_cast<lxw_col_t>(first), 0, static_cast<lxw_col_t>(last),
                          text.c_str(), book.header());
  }
}

/// Writes a column from the row of its caption on.
void writeColumn(Workbook& book, lxw_worksheet* sheet, const Grid& grid, int index,
                 std::size_t captionRow, std::size_t at) {
  const Grid::Column& column = grid.columns()[static_cast<std::size_t>(index)];
  std::size_t width = std::max(kMinWidth, column.caption.size());
  writeText(sheet, captionRow, at, column.caption, book.header());
  lxw_format* numberFormat = book.number(columnLook(grid, index).format());
  std::size_t row = captionRow;
  for (const Grid::Row& cells : grid.rows()) {
    const std::string& cell = cells[static_cast<std::size_t>(index)];
    width = std::max(width, cell.size());
    writeCell(book, sheet, ++row, at, cell, column.kind, numberFormat);
  }
  const auto place = static_cast<lxw_col_t>(at);
  worksheet_set_column(sheet, place, place, static_cast<double>(std::min(width, kMaxWidth) + 2),
                       nullptr);
}

void writeGridSheet(Workbook& book, const std::string& title, const Grid& grid) {
  if (grid.rows().size() + 2 > kMaxRows) {
    throw UsageError(grid.name() + " has more rows than a sheet can hold; use --csv");
  }
  lxw_worksheet* sheet = book.addSheet(title);
  const std::vector<SheetColumn> columns = sheetColumns(grid);
  const bool groups =
      std::ranges::any_of(columns, [](const SheetColumn& column) { return !column.group.empty(); });
  if (groups) writeGroups(book, sheet, columns);

  const std::size_t captionRow = groups ? 1 : 0;
  for (std::size_t at = 0; at < columns.size(); ++at)
    writeColumn(book, sheet, grid, columns[at].index, captionRow, at);

  const auto top = static_cast<lxw_row_t>(captionRow);
  worksheet_freeze_panes(sheet, top + 1, 0);
  if (!columns.empty() && !grid.rows().empty()) {
    worksheet_autofilter(sheet, top, 0, top + static_cast<lxw_row_t>(grid.rows().size()),
                         static_cast<lxw_col_t>(columns.size() - 1));
  }
  worksheet_repeat_rows(sheet, 0, top);
  worksheet_set_landscape(sheet);
  worksheet_fit_to_pages(sheet, 1, 0);
}

/// The labels of a window where they stand, its figures as numbers.
void writeLabelSheet(Workbook& book, const Form& form) {
  lxw_worksheet* sheet = book.addSheet(titleOf(form));
  std::map<int, std::size_t> widths;
  std::size_t top = 0;
  for (const Band& band : bandsOf(form)) {
    std::size_t bottom = top;
    for (const SheetLabel& place : band.labels) {
      const std::size_t row = top + static_cast<std::size_t>(std::max(place.row, 0));
      const auto column = static_cast<std::size_t>(std::max(place.column, 0));
      bottom = std::max(bottom, row + 1);
      const std::string text(trim(labelText(*place.label)));
      const LabelRole role = place.label->role();
      const auto number = role == LabelRole::kValue ? shownNumber(text) : std::nullopt;
      if (number) {
        NumberLook look;
        look.add(text);
        writeNumber(sheet, row, column, *number, book.number(look.format()));
      } else if (place.label->foreColor() == kRed) {
        writeText(sheet, row, column, text, book.failure());
      } else {
        const bool bold = role == LabelRole::kTitle || role == LabelRole::kHeading;
        writeText(sheet, row, column, text, bold ? book.title() : nullptr);
      }
      if (place.columnSpan == 1) {
        widths[place.column] = std::max(widths[place.column], text.size());
      }
    }
    top = bottom;
  }
  for (const auto& [column, width] : widths) {
    const auto place = static_cast<lxw_col_t>(std::max(column, 0));
    worksheet_set_column(sheet, place, place,
                         static_cast<double>(std::clamp(width, kMinWidth, kMaxWidth) + 2), nullptr);
  }
}

void writeViewSheets(Workbook& book, const View& view) {
  std::vector<const Grid*> grids;
  for (const auto& control : view.controls()) {
    if (const auto* grid = dynamic_cast<const Grid*>(control.get())) grids.push_back(grid);
  }
  for (const Grid* grid : grids) {
    std::string title = titleOf(view);
    if (grids.size() > 1 && !grid->heading().empty()) title = grid->heading();
    writeGridSheet(book, title, *grid);
  }
}

/// A file beside the wanted one that takes its place when it is complete, and goes if it never is.
class Replacement {
 public:
  explicit Replacement(const std::string& file)
      : file_(file), temporary_(file + "." + std::to_string(std::random_device{}()) + ".part") {}
  ~Replacement() {
    std::error_code ignored;
    fs::remove(temporary_, ignored);
  }
  Replacement(const Replacement&) = delete;
  Replacement& operator=(const Replacement&) = delete;

  const fs::path& temporary() const { return temporary_; }
  void commit() const {
    std::error_code error;
    fs::rename(temporary_, file_, error);
    if (error) throw UsageError("cannot write " + file_.string() + ": " + error.message());
  }

 private:
  fs::path file_;
  fs::path temporary_;
};

}  // namespace

std::string sheetName(const std::string& title, std::vector<std::string>& taken) {
  std::string name = printableBytes(title);
  for (char& c : name) {
    if (std::string_view("[]:*?/\\").find(c) != std::string_view::npos) c = '-';
  }
  name = trim(name);
  while (name.starts_with('\''))
    name.erase(0, 1);
  if (name.empty() || equalIgnoringCase(name, "History")) name += " Sheet";
  std::string candidate;
  for (int number = 1;; ++number) {
    const std::string suffix = number == 1 ? "" : " (" + std::to_string(number) + ")";
    candidate = std::string(trimRight(name.substr(0, kSheetNameLength - suffix.size()))) + suffix;
    while (candidate.ends_with('\''))
      candidate.pop_back();
    const bool free = std::ranges::none_of(
        taken, [&](const std::string& other) { return equalIgnoringCase(other, candidate); });
    if (free) break;
  }
  taken.push_back(candidate);
  return candidate;
}

void checkWorkbookPath(const std::string& file) {
  std::error_code ignored;
  const fs::path parent = fs::absolute(file, ignored).parent_path();
  if (!fs::is_directory(parent, ignored)) {
    throw UsageError("--xlsx: there is no folder " + parent.string());
  }
  if (fs::is_directory(file, ignored)) throw UsageError("--xlsx: " + file + " is a folder");
}

void writeWorkbook(const std::string& file, const frmTRVN& main, const std::vector<View*>& views) {
  const Replacement replacement(file);
  Workbook book(replacement.temporary());
  book.setProperties(main.lblStoreName.caption());
  for (const View* view : views) {
    if (view->name() == "frmRecap") writeLabelSheet(book, *view);
  }
  for (const View* view : views)
    writeViewSheets(book, *view);
  book.close();
  replacement.commit();
}

}  // namespace dg
