#pragma once

#include <ostream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "forms/grid.h"

namespace dg {

/// Tells spreadsheets that a file is UTF-8; without it they take it for the system's code page.
inline constexpr const char* kByteOrderMark = "\xEF\xBB\xBF";

/// A cell as RFC 4180 has it. A text that a spreadsheet would take for a formula gets an
/// apostrophe in front, blanks before it or not; numbers are left alone. Control characters become
/// blanks.
std::string csvCell(std::string_view bytes);

/// All rows of a grid in their order.
std::vector<int> allRows(const Grid& grid);

/// What stands above the columns of a CSV file.
enum class CsvHeads {
  kCaptions,  ///< as the columns are called
  kTitles,    ///< each behind the heading of its group, so that no two are alike
};

/// Writes a grid as CSV in UTF-8: its heads, then these of
/// its rows, without hidden columns.
void writeCsv(std::ostream& out, const Grid& grid, std::span<const int> rows, CsvHeads heads);
/// The same with all rows and their captions.
void writeCsv(std::ostream& out, const Grid& grid);

}  // namespace dg
