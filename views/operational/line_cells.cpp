#include "views/operational/line_cells.h"

#include "platform/text.h"
#include "platform/values/format.h"

namespace dg {

namespace {

constexpr std::string_view kAmountMask = "#####.00";

/// A price or cost, stored in hundredths, through the mask of all detail windows.
std::string lineAmount(const DisplayLine& line, std::size_t index) {
  const auto* hundredths = std::get_if<std::int32_t>(&line.at(index));
  return Format(hundredths != nullptr ? *hundredths / 100.0 : 0, kAmountMask);
}

}  // namespace

std::string lineText(const DisplayLine& line, std::size_t index) {
  return std::string(shown(toText(line.at(index))));
}

void setLineCode(Grid& grid, const DisplayLine& line) {
  grid.set("Line", line[0]);
  grid.set("Part #", line[1]);
}

void setLineValues(Grid& grid, const DisplayLine& line) {
  grid.set("Description", line[2]);
  grid.set("Qty", line[3]);
  grid.set("Net", lineAmount(line, 4));
  grid.set("Cost", lineAmount(line, 5));
}

}  // namespace dg
