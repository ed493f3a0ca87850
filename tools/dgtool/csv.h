#pragma once

#include <ostream>
#include <string>
#include <string_view>

#include "forms/grid.h"

namespace dg {

/// A cell as RFC 4180 has it. A text that a spreadsheet would take for a formula gets an
/// apostrophe in front, blanks before it or not; numbers are left alone. Control characters become blanks.
std::string csvCell(std::string_view bytes);

/// Writes a grid as CSV in UTF-8: its captions, then its rows, without hidden columns.
void writeCsv(std::ostream& out, const Grid& grid);

}  // namespace dg
