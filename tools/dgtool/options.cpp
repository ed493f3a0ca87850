#include "tools/dgtool/options.h"

#include <charconv>
#include <string_view>

namespace dg {

namespace {

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

/// The number that the whole of `text` is, digits only.
std::optional<int> digits(std::string_view text) {
  int value = 0;
  if (text.empty() || !isDigit(text.front())) return std::nullopt;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return value;
}

int hexDigit(char c) {
  if (isDigit(c)) return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

std::optional<Date> parseDay(std::string_view text) {
  if (text.size() != 10 || text[4] != '-' || text[7] != '-') return std::nullopt;
  const auto year = digits(text.substr(0, 4));
  const auto month = digits(text.substr(5, 2));
  const auto day = digits(text.substr(8, 2));
  if (!year || !month || !day) return std::nullopt;
  return Date::fromCalendar(*year, *month, *day);
}

std::optional<int> parseSecondOfDay(std::string_view text) {
  if ((text.size() != 5 && text.size() != 8) || text[2] != ':') return std::nullopt;
  const auto hour = digits(text.substr(0, 2));
  const auto minute = digits(text.substr(3, 2));
  std::optional<int> second = 0;
  if (text.size() == 8) {
    if (text[5] != ':') return std::nullopt;
    second = digits(text.substr(6, 2));
  }
  if (!hour || !minute || !second || *hour > 23 || *minute > 59 || *second > 59) {
    return std::nullopt;
  }
  return (*hour * 60 + *minute) * 60 + *second;
}

}  // namespace

std::optional<Date> parseMoment(const std::string& text) {
  const auto day = parseDay(std::string_view(text).substr(0, 10));
  if (!day) return std::nullopt;
  if (text.size() == 10) return day;
  if (text[10] != 'T' && text[10] != ' ') return std::nullopt;
  const auto second = parseSecondOfDay(std::string_view(text).substr(11));
  if (!second) return std::nullopt;
  return Date(day->days(), *second);
}

std::optional<HeadClick> parseHeadClick(const std::string& text) {
  const auto dot = text.find('.');
  const auto colon = text.rfind(':');
  if (dot == std::string::npos || colon == std::string::npos || colon < dot) return std::nullopt;
  HeadClick click{text.substr(0, dot), text.substr(dot + 1, colon - dot - 1), 0};
  const auto column = digits(std::string_view(text).substr(colon + 1));
  if (click.view.empty() || click.grid.empty() || !column) return std::nullopt;
  click.column = *column;
  return click;
}

std::optional<std::string> parseHex(const std::string& text) {
  std::string bytes;
  for (std::size_t i = 0; i < text.size();) {
    if (text[i] == ' ') {
      ++i;
      continue;
    }
    if (i + 1 == text.size()) return std::nullopt;
    const int high = hexDigit(text[i]);
    const int low = hexDigit(text[i + 1]);
    if (high < 0 || low < 0) return std::nullopt;
    bytes += static_cast<char>(high * 16 + low);
    i += 2;
  }
  return bytes;
}

}  // namespace dg
