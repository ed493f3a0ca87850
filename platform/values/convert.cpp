#include "platform/values/convert.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

#include "platform/values/decimal.h"
#include "platform/values/run_time_error.h"

namespace dg {

namespace {

constexpr bool isDigit(char c) {
  return c >= '0' && c <= '9';
}
constexpr bool isSpace(char c) {
  return c == ' ' || (c >= '\t' && c <= '\r');
}

/// An unsigned number as it was found: its digits with at most one ".", and a power of ten.
struct Magnitude {
  std::string digits;
  std::int64_t exponent = 0;
};

/// Infinite where the number lies beyond the range; 0 where it is too small.
double toDouble(const Magnitude& magnitude) {
  const std::string text = magnitude.digits + 'e' + std::to_string(magnitude.exponent);
  double value = 0;
  const std::from_chars_result result =
      std::from_chars(text.data(), text.data() + text.size(), value);
  if (result.ec == std::errc::result_out_of_range) {
    // from_chars tells neither end of the range from the other.
    const std::size_t first = text.find_first_of("123456789");
    const std::size_t point = std::min(text.find('.'), magnitude.digits.size());
    const std::int64_t leading =
        static_cast<std::int64_t>(point) - static_cast<std::int64_t>(first);
    return magnitude.exponent + leading > 0 ? std::numeric_limits<double>::infinity() : 0.0;
  }
  return value;
}

/// Takes "E5", "e-5" or "D+5" at `position`; a mark without digits is not taken.
bool takeExponent(std::string_view text, std::size_t& position, std::int64_t& exponent) {
  constexpr std::int64_t kEnough = 1000000000;  // far beyond any double's, far from overflow
  if (position >= text.size() || std::string_view("eEdD").find(text[position]) == text.npos) {
    return false;
  }
  std::size_t at = position + 1;
  const bool negative = at < text.size() && text[at] == '-';
  if (at < text.size() && (text[at] == '+' || text[at] == '-')) ++at;
  if (at >= text.size() || !isDigit(text[at])) return false;
  std::int64_t value = 0;
  for (; at < text.size() && isDigit(text[at]); ++at) {
    value = std::min(value * 10 + (text[at] - '0'), kEnough);
  }
  exponent = negative ? -value : value;
  position = at;
  return true;
}

/// Takes digits with one decimal point, and thousands commas among the whole ones where allowed.
bool takeDigits(std::string_view text, std::size_t& position, bool commas, std::string& digits) {
  bool point = false;
  bool any = false;
  for (; position < text.size(); ++position) {
    const char c = text[position];
    if (isDigit(c)) {
      any = true;
      digits += c;
    } else if (c == '.' && !point) {
      point = true;
      digits += c;
    } else if (!(commas && c == ',' && any && !point)) {
      break;
    }
  }
  return any;
}

/// A number with everything that may stand around it; nothing when it has another form. May be
/// infinite.
std::optional<double> readNumber(std::string_view text) {
  bool negative = false;
  bool sign = false;
  bool dollar = false;
  bool percent = false;
  bool open = false;
  std::size_t position = 0;
  const auto at = [&] { return position < text.size() ? text[position] : '\0'; };

  for (;; ++position) {
    if (!sign && !open && (at() == '+' || at() == '-')) {
      sign = true;
      negative = at() == '-';
    } else if (!dollar && at() == '$') {
      dollar = true;
    } else if (!sign && !open && at() == '(') {
      open = true;
      negative = true;
    } else if (!isSpace(at())) {
      break;
    }
  }

  Magnitude magnitude;
  if (!takeDigits(text, position, true, magnitude.digits)) return std::nullopt;
  takeExponent(text, position, magnitude.exponent);

  bool closed = false;
  for (; position < text.size(); ++position) {
    if (open && !closed && at() == ')') {
      closed = true;
    } else if (!percent && at() == '%') {
      percent = true;
      magnitude.exponent -= 2;
    } else if (!sign && !open && (at() == '+' || at() == '-')) {
      sign = true;
      negative = at() == '-';
    } else if (!isSpace(at())) {
      return std::nullopt;
    }
  }
  if (open != closed) return std::nullopt;
  const double value = toDouble(magnitude);
  return negative ? -value : value;
}

}  // namespace

std::optional<double> parseNumber(std::string_view text) {
  const std::optional<double> number = readNumber(text);
  return number && std::isfinite(*number) ? number : std::nullopt;
}

double CDbl(std::string_view text) {
  const std::optional<double> number = readNumber(text);
  if (!number) throw RunTimeError(kTypeMismatch);
  if (!std::isfinite(*number)) throw RunTimeError(kOverflow);
  return *number;
}

std::int32_t CLng(std::string_view text) {
  return CLng(CDbl(text));
}

std::int32_t CLng(double value) {
  const double below = std::floor(value);
  const double part = value - below;
  const bool up = part > 0.5 || (part == 0.5 && std::fmod(below, 2.0) != 0);
  const double rounded = up ? below + 1 : below;
  // Written so that a value that is no number fails too.
  if (!(rounded >= std::numeric_limits<std::int32_t>::min() &&
        rounded <= std::numeric_limits<std::int32_t>::max())) {
    throw RunTimeError(kOverflow);
  }
  return static_cast<std::int32_t>(rounded);
}

double Val(std::string_view text) {
  std::string packed;
  std::copy_if(text.begin(), text.end(), std::back_inserter(packed),
               [](char c) { return !isSpace(c); });
  std::size_t position = 0;
  const bool negative = !packed.empty() && packed[0] == '-';
  if (!packed.empty() && (packed[0] == '-' || packed[0] == '+')) ++position;
  Magnitude magnitude;
  if (!takeDigits(packed, position, false, magnitude.digits)) return 0;
  takeExponent(packed, position, magnitude.exponent);
  const double value = std::min(toDouble(magnitude), std::numeric_limits<double>::max());
  return negative ? -value : value;
}

bool IsNumeric(std::string_view text) {
  return parseNumber(text).has_value();
}

std::string Str(std::int32_t value) {
  return (value < 0 ? "" : " ") + std::to_string(value);
}

std::string numberText(double value) {
  if (std::isnan(value)) return "NaN";
  if (std::isinf(value)) return value < 0 ? "-Infinity" : "Infinity";
  constexpr std::int64_t kPlaces = 15;
  const Decimal decimal = Decimal::fromDouble(value);
  if (decimal.isZero() || (decimal.exponent() <= kPlaces && decimal.exponent() > -kPlaces)) {
    return decimal.text();
  }
  const std::string& digits = decimal.digits();
  std::string text = decimal.isNegative() ? "-" : "";
  text += digits[0];
  if (digits.size() > 1) text += '.' + digits.substr(1);
  const std::int64_t exponent = decimal.exponent() - 1;
  const std::string power = std::to_string(exponent < 0 ? -exponent : exponent);
  return text + (exponent < 0 ? "E-" : "E+") + (power.size() < 2 ? "0" : "") + power;
}

}  // namespace dg
