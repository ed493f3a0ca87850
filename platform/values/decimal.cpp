#include "platform/values/decimal.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "platform/values/run_time_error.h"

namespace dg {

namespace {

constexpr int kSignificantDigits = 15;

}  // namespace

Decimal::Decimal(bool negative, std::string_view digits, std::int64_t exponent)
    : negative_(negative), digits_(digits), exponent_(exponent) {
  normalize();
}

void Decimal::normalize() {
  const std::size_t first = digits_.find_first_not_of('0');
  if (first == std::string::npos) {
    digits_.clear();
    exponent_ = 0;
    return;
  }
  digits_.erase(digits_.find_last_not_of('0') + 1);
  digits_.erase(0, first);
  exponent_ -= static_cast<std::int64_t>(first);
}

Decimal Decimal::fromDouble(double value) {
  if (!std::isfinite(value)) throw RunTimeError(kOverflow);
  // "d.dddddddddddddde+xxx": to_chars, because printf follows the locale's decimal point.
  char buffer[40];
  const std::to_chars_result end =
      std::to_chars(buffer, buffer + sizeof buffer, std::fabs(value), std::chars_format::scientific,
                    kSignificantDigits - 1);
  const std::string_view text(buffer, static_cast<std::size_t>(end.ptr - buffer));
  const std::size_t mark = text.find('e');
  std::string digits(text.substr(0, 1));
  digits += text.substr(2, mark - 2);
  int exponent = 0;
  const std::size_t sign = text[mark + 1] == '+' ? 1 : 0;  // from_chars takes no plus sign
  std::from_chars(text.data() + mark + 1 + sign, text.data() + text.size(), exponent);
  return {std::signbit(value), digits, exponent + 1};
}

Decimal Decimal::fromTenThousandths(std::int64_t value) {
  const std::uint64_t bits = static_cast<std::uint64_t>(value);
  const std::string digits = std::to_string(value < 0 ? std::uint64_t{0} - bits : bits);
  return {value < 0, digits, static_cast<std::int64_t>(digits.size()) - 4};
}

void Decimal::round(std::size_t decimals) {
  const std::int64_t kept = exponent_ + static_cast<std::int64_t>(decimals);
  if (kept >= static_cast<std::int64_t>(digits_.size())) return;
  if (kept < 0) {
    digits_.clear();
    exponent_ = 0;
    return;
  }
  const auto count = static_cast<std::size_t>(kept);
  const bool up = digits_[count] >= '5';
  digits_.resize(count);
  if (up) {
    // A run of nines rolls over; the leading zero takes a carry out of all digits.
    digits_.insert(0, 1, '0');
    ++exponent_;
    auto digit = digits_.rbegin();
    while (*digit == '9')
      *digit++ = '0';
    ++*digit;
  }
  normalize();
}

std::string Decimal::wholeDigits() const {
  if (exponent_ <= 0) return {};
  std::string result = digits_.substr(0, static_cast<std::size_t>(exponent_));
  result.resize(static_cast<std::size_t>(exponent_), '0');
  return result;
}

std::string Decimal::fractionDigits() const {
  if (exponent_ >= static_cast<std::int64_t>(digits_.size())) return {};
  if (exponent_ >= 0) return digits_.substr(static_cast<std::size_t>(exponent_));
  return std::string(static_cast<std::size_t>(-exponent_), '0') + digits_;
}

std::string Decimal::text() const {
  std::string result = isNegative() ? "-" : "";
  const std::string whole = wholeDigits();
  result += whole.empty() ? "0" : whole;
  const std::string fraction = fractionDigits();
  if (!fraction.empty()) result += '.' + fraction;
  return result;
}

}  // namespace dg
