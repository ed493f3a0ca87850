#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "export/export_file.h"
#include "forms/grid.h"

namespace dg {

/// How a cell that is no grid's is written.
enum class CellLook { kPlain, kBold, kFailure };

/// An Excel workbook in the making. Titles and texts are bytes of the code page; rows and columns
/// count from 0. All operations raise ExportError.
class Workbook {
 public:
  Workbook();
  ~Workbook();
  Workbook(const Workbook&) = delete;
  Workbook& operator=(const Workbook&) = delete;

  /// The document's title, and now as its time of making.
  void setTitle(std::string_view title);

  /// Adds a sheet with a grid: lines to be read first, others (totals) to be read last, its group
  /// headings and captions, then these of its rows, without hidden columns; numbers and dates as
  /// such.
  void addGrid(const std::string& title, const Grid& grid, std::span<const int> rows,
               std::span<const std::string> notes = {}, std::span<const std::string> below = {});

  /// Adds an empty sheet, which the next three operations fill.
  void addSheet(const std::string& title);
  void text(std::size_t row, std::size_t column, std::string_view bytes, CellLook look);
  /// `format`: a spreadsheet's number format, see NumberLook.
  void number(std::size_t row, std::size_t column, double value, const std::string& format);
  /// Makes a column as wide as a text of this length, within bounds.
  void fitColumn(std::size_t column, std::size_t characters);

  /// The finished file's bytes; nothing can be added any more.
  std::string finish();

 private:
  class Writer;

  std::unique_ptr<Writer> writer_;
};

}  // namespace dg
