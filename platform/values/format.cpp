#include "platform/values/format.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "platform/values/convert.h"
#include "platform/values/decimal.h"

namespace dg {

namespace {

constexpr bool isPlace(char c) {
  return c == '0' || c == '#';
}

/// What a mask asks for, found in one pass before any digit is written.
struct Mask {
  explicit Mask(std::string_view mask)
      : text(mask),
        point(std::min(mask.find('.'), mask.size())),
        percents(std::count(mask.begin(), mask.end(), '%')) {
    const std::string_view whole = text.substr(0, point);
    const std::string_view fraction = text.substr(point);
    decimals = static_cast<std::size_t>(std::count_if(fraction.begin(), fraction.end(), isPlace));
    for (std::size_t i = 0; i < whole.size(); ++i) {
      if (!isPlace(whole[i])) continue;
      if (wholePlaces++ == 0) firstPlace = i;
      lastPlace = i;
    }
    lastZero = text.find_last_of('0');
    if (lastZero == std::string_view::npos) lastZero = 0;
    for (std::size_t i = 0, place = 0; i < whole.size(); ++i) {
      if (isSeparator(i)) thousands = true;
      if (!isPlace(whole[i])) continue;
      if (whole[i] == '0' && minimumDigits == 0) minimumDigits = wholePlaces - place;
      ++place;
    }
  }

  /// A comma between two digit places before the point; any other comma is a literal.
  bool isSeparator(std::size_t i) const {
    return text[i] == ',' && i < point && wholePlaces > 0 && i > firstPlace && i < lastPlace;
  }

  std::string_view text;
  std::size_t point;  ///< index of the decimal point, or the mask's length
  std::ptrdiff_t percents;
  std::size_t wholePlaces = 0;
  std::size_t minimumDigits = 0;  ///< digits before the point that are always shown
  std::size_t decimals = 0;
  std::size_t firstPlace = 0;
  std::size_t lastPlace = 0;
  std::size_t lastZero = 0;  ///< decimals up to this one are always shown
  bool thousands = false;
};

/// Writes the whole part's digits from left to right, with thousands separators if asked for.
class WholeWriter {
 public:
  WholeWriter(std::string digits, bool thousands)
      : digits_(std::move(digits)), thousands_(thousands) {}

  /// All digits up to the one for the place that has `placesRight` places to its right.
  void writeThrough(std::size_t placesRight, std::string& out) {
    while (digits_.size() - next_ > placesRight) {
      out += digits_[next_++];
      const std::size_t left = digits_.size() - next_;
      if (thousands_ && left > 0 && left % 3 == 0) out += ',';
    }
  }

 private:
  std::string digits_;
  std::size_t next_ = 0;
  bool thousands_;
};

std::string formatDecimal(Decimal value, const Mask& mask) {
  value.multiplyByPowerOfTen(2 * static_cast<std::int64_t>(mask.percents));
  value.round(mask.decimals);

  std::string whole = value.wholeDigits();
  if (whole.size() < mask.minimumDigits) whole.insert(0, mask.minimumDigits - whole.size(), '0');
  WholeWriter wholeWriter(std::move(whole), mask.thousands);
  const std::string fraction = value.fractionDigits();

  std::string out = value.isNegative() ? "-" : "";
  std::size_t placesLeft = mask.wholePlaces;
  std::size_t decimal = 0;
  for (std::size_t i = 0; i < mask.text.size(); ++i) {
    const char c = mask.text[i];
    if (i == mask.point) {
      // A mask without a place before its point still shows the whole part.
      wholeWriter.writeThrough(0, out);
      out += c;
    } else if (isPlace(c) && i < mask.point) {
      wholeWriter.writeThrough(--placesLeft, out);
    } else if (isPlace(c)) {
      if (decimal < fraction.size()) {
        out += fraction[decimal];
      } else if (i <= mask.lastZero) {
        out += '0';
      }
      ++decimal;
    } else if (!mask.isSeparator(i)) {
      out += c;
    }
  }
  return out;
}

std::string currencyStyle(const Decimal& value) {
  std::string text = formatDecimal(value, Mask("$#,##0.00"));
  if (text.front() != '-') return text;
  text.front() = '(';
  return text + ')';
}

}  // namespace

std::string Format(double value, std::string_view mask) {
  if (mask.empty()) return numberText(value);
  return formatDecimal(Decimal::fromDouble(value), Mask(mask));
}

std::string Format(Currency value, std::string_view mask) {
  if (mask.empty()) return value.text();
  return formatDecimal(Decimal::fromTenThousandths(value.tenThousandths()), Mask(mask));
}

std::string formatCurrencyStyle(Currency value) {
  return currencyStyle(Decimal::fromTenThousandths(value.tenThousandths()));
}

std::string formatCurrencyStyle(double value) {
  return currencyStyle(Decimal::fromDouble(value));
}

}  // namespace dg
