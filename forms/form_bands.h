#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "forms/form.h"

namespace dg {

/// A label on the sheet of a form.
struct SheetLabel {
  const Label* label;
  int row;
  int column;
  int columnSpan;
};

/// A strip of a form from its left edge to its right: either labels in rows and columns, or one
/// grid. Windows are written as their bands from top to bottom.
struct Band {
  std::string heading;  ///< caption of the frame that begins here; empty for none
  std::vector<SheetLabel> labels;
  const Grid* grid = nullptr;
};

/// The visible labels and grids of a form as bands. What stands nowhere on the form's sheet comes
/// last, each label in a row of its own.
std::vector<Band> bandsOf(const Form& form);

/// The texts of labels as lines to be read beside a grid, title and hints left out: a line for each
/// row of the sheet, the heading of a frame in front of its first. Code page bytes.
std::vector<std::string> linesAboveGrids(const Form& form);
/// Those between this grid and the next one, or the end: its totals.
std::vector<std::string> linesBelowGrid(const Form& form, const Grid& grid);

/// A label's caption without its mnemonic doubling: "&&" is one "&". Still bytes of the code page.
std::string labelText(const Label& label);

/// What the user reads as the name of a window: the text of its title label, else its caption.
std::string titleOf(const Form& form);

/// What a grid of a form is called: its own heading, else the title label that stands above it,
/// else the form's name.
std::string gridTitle(const Form& form, const Grid& grid);

}  // namespace dg
