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

}  // namespace

std::optional<Date> parseMoment(const std::string& text) {
  constexpr std::size_t kMark = 10;
  constexpr std::size_t kWithoutSeconds = 16;
  std::string moment = text;
  if (moment.size() > kMark && moment[kMark] == ' ') moment[kMark] = 'T';
  if (moment.size() == kWithoutSeconds) moment += ":00";
  return Date::fromIso(moment);
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

std::optional<std::uint64_t> parseSeed(const std::string& text) {
  std::uint64_t seed = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, seed);
  if (error != std::errc() || stop != end) return std::nullopt;
  return seed;
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
