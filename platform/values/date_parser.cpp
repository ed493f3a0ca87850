#include "platform/values/date_parser.h"

#include <array>
#include <cstddef>

#include "platform/text.h"

namespace dg {

namespace {

constexpr std::array<std::string_view, 12> kMonths{"january",   "february", "march",    "april",
                                                   "may",       "june",     "july",     "august",
                                                   "september", "october",  "november", "december"};

constexpr bool isDigit(char c) {
  return c >= '0' && c <= '9';
}
constexpr bool isLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
constexpr bool isBlank(char c) {
  return c == ' ' || c == '\t';
}

/// A number as it is written: how many digits it has decides whether a year names its century.
struct Number {
  int value = 0;
  std::size_t digits = 0;
};

/// Reads a text from left to right; every read either succeeds or leaves the position.
class Scanner {
 public:
  explicit Scanner(std::string_view text) : text_(text) {}

  bool atEnd() const { return position_ == text_.size(); }
  std::size_t position() const { return position_; }
  void goBackTo(std::size_t position) { position_ = position; }

  bool skipBlanks() {
    const std::size_t start = position_;
    while (!atEnd() && isBlank(text_[position_]))
      ++position_;
    return position_ > start;
  }

  bool take(char c) {
    if (atEnd() || text_[position_] != c) return false;
    ++position_;
    return true;
  }

  /// Up to four digits; more are no part of a date.
  std::optional<Number> number() {
    Number result;
    std::size_t end = position_;
    while (end < text_.size() && isDigit(text_[end])) {
      if (++result.digits > 4) return std::nullopt;
      result.value = result.value * 10 + (text_[end++] - '0');
    }
    if (result.digits == 0) return std::nullopt;
    position_ = end;
    return result;
  }

  /// A run of letters, in lower case; empty when there is none.
  std::string word() {
    const std::size_t start = position_;
    while (!atEnd() && isLetter(text_[position_]))
      ++position_;
    return lowerCase(text_.substr(start, position_ - start));
  }

 private:
  std::string_view text_;
  std::size_t position_ = 0;
};

/// The number of a month by its English name or the first three letters of it.
std::optional<int> monthNumber(std::string_view word) {
  for (std::size_t i = 0; i < kMonths.size(); ++i) {
    if (word == kMonths[i] || word == kMonths[i].substr(0, 3)) return static_cast<int>(i) + 1;
  }
  return std::nullopt;
}

/// Blanks, or one "/", "-" or "," with blanks around it.
bool takeSeparator(Scanner& scanner) {
  const bool blanks = scanner.skipBlanks();
  const bool mark = scanner.take('/') || scanner.take('-') || scanner.take(',');
  scanner.skipBlanks();
  return blanks || mark;
}

int fullYear(const Number& year) {
  if (year.digits > 2) return year.value;
  return year.value < 30 ? 2000 + year.value : 1900 + year.value;
}

/// A month's name at this place, or nothing and the position as it was.
std::optional<int> monthName(Scanner& scanner) {
  const std::size_t start = scanner.position();
  const std::optional<int> month = monthNumber(scanner.word());
  if (!month) scanner.goBackTo(start);
  return month;
}

std::optional<Date> scanDate(Scanner& scanner) {
  int month = 0;
  int day = 0;
  const std::optional<int> leadingMonth = monthName(scanner);
  if (leadingMonth) {
    month = *leadingMonth;
  } else {
    const std::optional<Number> number = scanner.number();
    if (!number || number->digits > 2) return std::nullopt;
    month = number->value;
  }
  if (!takeSeparator(scanner)) return std::nullopt;

  const std::optional<int> secondMonth = leadingMonth ? std::nullopt : monthName(scanner);
  if (secondMonth) {
    day = month;
    month = *secondMonth;
  } else {
    const std::optional<Number> number = scanner.number();
    if (!number || number->digits > 2) return std::nullopt;
    day = number->value;
  }
  if (!takeSeparator(scanner)) return std::nullopt;

  const std::optional<Number> year = scanner.number();
  if (!year) return std::nullopt;
  return Date::fromCalendar(fullYear(*year), month, day);
}

/// "14:38", "14:38:23", "2:38:23 PM", "2 PM": seconds from midnight.
std::optional<int> scanTime(Scanner& scanner) {
  const std::optional<Number> hour = scanner.number();
  if (!hour || hour->digits > 2) return std::nullopt;
  Number minute;
  Number second;
  for (Number* part : {&minute, &second}) {
    if (!scanner.take(':')) break;
    const std::optional<Number> number = scanner.number();
    if (!number || number->digits > 2 || number->value > 59) return std::nullopt;
    *part = *number;
  }
  const bool hasMinutes = minute.digits > 0;

  const std::size_t beforeBlanks = scanner.position();
  scanner.skipBlanks();
  const std::size_t beforeWord = scanner.position();
  const std::string half = scanner.word();
  const bool morning = half == "am" || half == "a";
  const bool afternoon = half == "pm" || half == "p";
  int hours = hour->value;
  if (morning || afternoon) {
    if (hours > 12) return std::nullopt;
    hours = hours % 12 + (afternoon ? 12 : 0);
  } else {
    if (!hasMinutes) return std::nullopt;
    scanner.goBackTo(beforeWord == beforeBlanks ? beforeWord : beforeBlanks);
  }
  if (hours > 23) return std::nullopt;
  return (hours * 60 + minute.value) * 60 + second.value;
}

}  // namespace

std::optional<Date> parseDate(std::string_view text) {
  Scanner scanner(text);
  scanner.skipBlanks();
  const std::size_t start = scanner.position();

  std::optional<Date> date = scanDate(scanner);
  if (!date) {
    scanner.goBackTo(start);
    const std::optional<int> time = scanTime(scanner);
    if (!time) return std::nullopt;
    scanner.skipBlanks();
    if (scanner.atEnd()) return Date(0, *time);
    date = scanDate(scanner);
    scanner.skipBlanks();
    if (!date || !scanner.atEnd()) return std::nullopt;
    return Date(date->days(), *time);
  }

  const bool blanks = scanner.skipBlanks();
  if (scanner.atEnd()) return date;
  const std::optional<int> time = blanks ? scanTime(scanner) : std::nullopt;
  scanner.skipBlanks();
  if (!time || !scanner.atEnd()) return std::nullopt;
  return Date(date->days(), *time);
}

std::optional<Date> parseIsoDate(std::string_view text) {
  // The shape first: every field has all its digits.
  constexpr std::string_view kShape = "0000-00-00T00:00:00";
  constexpr std::size_t kDateLength = 10;
  if (text.size() != kDateLength && text.size() != kShape.size()) return std::nullopt;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (kShape[i] == '0' ? !isDigit(text[i]) : text[i] != kShape[i]) return std::nullopt;
  }
  const auto field = [text](std::size_t position, std::size_t width) {
    return Scanner(text.substr(position, width)).number()->value;
  };
  const std::optional<Date> date = Date::fromCalendar(field(0, 4), field(5, 2), field(8, 2));
  if (!date || text.size() == kDateLength) return date;
  const int hour = field(11, 2);
  const int minute = field(14, 2);
  const int second = field(17, 2);
  if (hour > 23 || minute > 59 || second > 59) return std::nullopt;
  return Date(date->days(), (hour * 60 + minute) * 60 + second);
}

}  // namespace dg
