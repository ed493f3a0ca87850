#pragma once

#include <string>

#include "forms/grid.h"
#include "records/line_builder.h"

namespace dg {

// A document's lines in the grid of a detail window.

/// The columns of a line. Shop jobs have more beside them.
inline constexpr ColumnSpec kLineColumns[] = {
    {.name = "Line", .kind = ColumnKind::kNumber},  // a code, or "REM" for a remark
    {.name = "Part #"},
    {.name = "Description"},
    {.name = "Qty", .kind = ColumnKind::kNumber},
    {.name = "Net", .kind = ColumnKind::kMoney},
    {.name = "Cost", .kind = ColumnKind::kMoney},
};

/// A line's value as text, without the trailing blanks of the record.
std::string lineText(const DisplayLine& line, std::size_t index);

/// Sets the current row's code, and part number or remark.
void setLineCode(Grid& grid, const DisplayLine& line);
/// Sets the current row's description, quantity, price and cost. A price that no line has set yet
/// counts as 0.
void setLineValues(Grid& grid, const DisplayLine& line);

}  // namespace dg
