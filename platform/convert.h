#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace dg {

/// A text as a number, the way the run-time converts: blanks around it, a sign, "$", thousands
/// commas, parentheses for negative, a decimal point, an exponent; a trailing "%" divides by 100.
/// Nothing when the text has no numeric form; the empty text has none.
std::optional<double> parseNumber(std::string_view text);

/// As parseNumber; raises error 13 when the text has no numeric form.
double CDbl(std::string_view text);
/// Text to a 32-bit whole number, halves to the even neighbour; errors 13 and 6.
std::int32_t CLng(std::string_view text);
/// A number to a 32-bit whole number, halves to the even neighbour; error 6.
std::int32_t CLng(double value);
/// The leading number of a text, blanks skipped, 0 when there is none; never raises.
double Val(std::string_view text);
/// The run-time's numeric test of a text.
bool IsNumeric(std::string_view text);

/// Decimal text of a whole number with one blank before a non-negative one.
std::string Str(std::int32_t value);
/// Plain decimal text: up to 15 significant digits, no trailing zeros.
std::string numberText(double value);

}  // namespace dg
