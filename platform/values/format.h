#pragma once

#include <string>
#include <string_view>

#include "platform/values/currency.h"

namespace dg {

/// A number through a display mask such as "$#,###,###.00", "##/##/##", "00.00%" or "000-0000".
///
/// "0" is a digit, "#" a digit only where there is one, "." the decimal point, "," between digit
/// places thousands separators, "%" multiplies by 100; every other character is a literal and keeps
/// its place between the digit places. Rounds half away from zero at the mask's last decimal. The
/// sign of a negative number stands before everything, and a number that rounds to zero shows none.
/// Digits beyond the mask's are shown. A double is first taken to its 15 significant digits; one
/// that is no number or infinite raises error 6. The empty mask gives the plain text.
std::string Format(double value, std::string_view mask);
std::string Format(Currency value, std::string_view mask);
inline std::string Format(std::int32_t value, std::string_view mask) {
  return Format(Currency(value), mask);
}

/// The grid control's own currency style: "$1,234.50" and "($1,234.50)".
std::string formatCurrencyStyle(Currency value);
std::string formatCurrencyStyle(double value);

}  // namespace dg
