#pragma once

#include <string>

#include "export/html_writer.h"
#include "history/figure_history.h"

namespace dg {

/// What a line over kept days says in words: days, first and last value, least and most.
std::string lineInWords(const FigureHistory& figure);

/// Draws the line as an SVG element with those words as its text. Days that are not kept are
/// skipped over. Needs at least two days.
void drawLine(HtmlWriter& html, const FigureHistory& figure);

}  // namespace dg
