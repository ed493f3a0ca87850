#include "export/number_look.h"

#include <algorithm>

#include "platform/values/convert.h"

namespace dg {

namespace {

constexpr std::string_view kDigits = "0123456789";

bool isIdentifier(std::string_view text) {
  return text.size() > 1 && text.front() == '0' &&
         text.find_first_not_of(kDigits) == std::string_view::npos;
}

}  // namespace

void NumberLook::add(std::string_view text) {
  dollar = dollar || text.find('$') != std::string_view::npos;
  parentheses = parentheses || text.find('(') != std::string_view::npos;
  percent = percent || text.find('%') != std::string_view::npos;
  thousands = thousands || text.find(',') != std::string_view::npos;
  if (const auto point = text.rfind('.'); point != std::string_view::npos) {
    const auto end = text.find_first_not_of(kDigits, point + 1);
    const auto places = std::min(end, text.size()) - point - 1;
    decimals = std::max(decimals, static_cast<int>(places));
  }
}

std::string NumberLook::format() const {
  std::string number = thousands || dollar ? "#,##0" : "0";
  if (decimals > 0) number += '.' + std::string(static_cast<std::size_t>(decimals), '0');
  if (percent) number += '%';
  if (dollar) number.insert(0, "$");
  if (parentheses) return number + "_);(" + number + ")";
  return dollar ? number + ";-" + number : number;
}

std::optional<double> shownNumber(std::string_view text) {
  if (isIdentifier(text)) return std::nullopt;
  return parseNumber(text);
}

NumberLook columnLook(const Grid& grid, int column) {
  NumberLook look;
  for (const Grid::Row& row : grid.rows()) {
    const std::string& cell = row[static_cast<std::size_t>(column)];
    if (shownNumber(cell)) look.add(cell);
  }
  return look;
}

}  // namespace dg
