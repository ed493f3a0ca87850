#pragma once

#include <string>

#include "views/operational/detail_builder.h"

namespace dg {

/// A line's value as text, without the trailing blanks of the record.
std::string lineText(const DisplayLine& line, std::size_t index);

/// A line's price or cost, stored in hundredths, through the mask of all detail windows. A value
/// that no line has set yet counts as 0.
std::string lineAmount(const DisplayLine& line, std::size_t index);

}  // namespace dg
