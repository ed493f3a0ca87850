#pragma once

#include <cstddef>
#include <span>
#include <string>

#include "history/kept_figure.h"

namespace dg {

/// Days of a figure as a line of block characters (UTF-8), at most `width` of them for the days
/// from `first` to `last`; a blank where no day is kept. The last of several days in one place
/// stands for them.
std::string sparkline(std::span<const KeptValue> values, Date first, Date last, std::size_t width);

}  // namespace dg
