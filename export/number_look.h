#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "forms/grid.h"

namespace dg {

/// How the numbers of a column are written: what a spreadsheet's number format has to imitate.
struct NumberLook {
  bool dollar = false;
  bool parentheses = false;  ///< around negative numbers
  bool percent = false;
  bool thousands = false;
  int decimals = 0;

  /// Takes over what another text of the same column shows.
  void add(std::string_view text);
  /// A spreadsheet's number format, such as "$#,##0.00".
  std::string format() const;
};

/// The number that a cell shows, or nothing: a text, an empty cell, or a whole number with leading
/// zeros, which is an identifier whose zeros count.
std::optional<double> shownNumber(std::string_view text);

/// The number look of all cells of a column.
NumberLook columnLook(const Grid& grid, int column);

}  // namespace dg
