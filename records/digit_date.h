#pragma once

#include <cstdint>
#include <string>

namespace dg {

// Dates that documents store as a number of the digits MMDDYY.

/// The digits as text: "9/01/26", or "//" for 0.
std::string digitDateText(std::int32_t digits);
/// Days from the suite's day zero to the date that the digits show: the hidden key by which a
/// column of such dates is sorted. Raises 13 when they are no date.
std::int32_t digitDateDay(std::int32_t digits);

}  // namespace dg
