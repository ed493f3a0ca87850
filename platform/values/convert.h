#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace dg {

/// A text as a number, the way the run-time converts: blanks around it, a sign, "$", thousands
/// commas, parentheses for negative, a decimal point, an exponent; a trailing "%" divides by 100.
/// Nothing when the text has no numeric form or lies beyond the range; the empty text has none.
std::optional<double> parseNumber(std::string_view text);

/// As parseNumber; raises error 13 when the text has no numeric form, 6 beyond the range.
double CDbl(std::string_view text);
/// Text to a 32-bit whole number, halves to the even neighbour; errors 13 and 6.
std::int32_t CLng(std::string_view text);
/// A number to a 32-bit whole number, halves to the even neighbour; error 6.
std::int32_t CLng(double value);
/// The leading number of a text, blanks skipped wherever they stand, 0 when there is none; "$" and
/// "," end it. Never raises: a number beyond the range is the greatest.
double Val(std::string_view text);
/// The run-time's numeric test of a text.
bool IsNumeric(std::string_view text);

/// Decimal text of a whole number with one blank before a non-negative one.
std::string Str(std::int32_t value);
/// Plain decimal text: up to 15 significant digits, no trailing zeros; with an exponent ("1.5E+20")
/// only below 1E-15 and from 1E+15 on. Never raises.
std::string numberText(double value);

}  // namespace dg
