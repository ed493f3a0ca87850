#pragma once

#include <ostream>
#include <string>
#include <string_view>

#include "forms/form.h"

namespace dg {

/// Writes a form for reading on a terminal: its labels where they stand on its sheet, its grids as
/// tables with headings, all in UTF-8 and free of control characters. `indent` blanks stand in
/// front of each line. The title label is left out: callers write it as their own heading.
void writeFormText(std::ostream& out, const Form& form, std::size_t indent = 0);

/// Writes a grid as a table: group headings, captions, a rule, the rows, their number. Hidden
/// columns are left out; numbers stand at the right edge of their columns.
void writeTable(std::ostream& out, const Grid& grid, std::size_t indent = 0);

}  // namespace dg
