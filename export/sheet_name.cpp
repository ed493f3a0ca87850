#include "export/sheet_name.h"

#include <algorithm>
#include <string_view>

#include "export/printable.h"
#include "platform/text.h"

namespace dg {

namespace {

constexpr std::size_t kSheetNameLength = 31;

/// Cut behind a word where one ends in the second half, else in the middle of one.
std::string shortened(std::string_view name, std::size_t length) {
  if (name.size() <= length) return std::string(name);
  const std::size_t blank = name.rfind(' ', length);
  const std::size_t end = blank == std::string_view::npos || blank < length / 2 ? length : blank;
  return std::string(trimRight(name.substr(0, end)));
}

}  // namespace

std::string sheetName(const std::string& title, std::vector<std::string>& taken) {
  std::string name = printableBytes(title);
  for (char& c : name) {
    if (std::string_view("[]:*?/\\").find(c) != std::string_view::npos) c = '-';
  }
  name = trim(name);
  while (name.starts_with('\''))
    name.erase(0, 1);
  if (name.empty() || equalIgnoringCase(name, "History")) name += " Sheet";
  std::string candidate;
  for (int number = 1;; ++number) {
    const std::string suffix = number == 1 ? "" : " (" + std::to_string(number) + ")";
    candidate = shortened(name, kSheetNameLength - suffix.size()) + suffix;
    while (candidate.ends_with('\''))
      candidate.pop_back();
    const bool free = std::ranges::none_of(
        taken, [&](const std::string& other) { return equalIgnoringCase(other, candidate); });
    if (free) break;
  }
  taken.push_back(candidate);
  return candidate;
}

}  // namespace dg
