#include "tools/dgtool/text_table.h"

#include <algorithm>

#include "platform/text.h"

namespace dg {

namespace {

std::size_t characters(const std::string& text) {
  return static_cast<std::size_t>(std::ranges::count_if(
      text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

}  // namespace

void TextTable::add(std::vector<std::string> row) {
  widths_.resize(std::max(widths_.size(), row.size()));
  for (std::size_t i = 0; i < row.size(); ++i)
    widths_[i] = std::max(widths_[i], characters(row[i]));
  rows_.push_back(std::move(row));
}

void TextTable::writeRow(std::ostream& out, std::size_t row, const std::string& tail) const {
  std::string line;
  for (std::size_t i = 0; i < rows_[row].size(); ++i) {
    const std::string& text = rows_[row][i];
    const std::string blanks(widths_[i] - characters(text), ' ');
    line += i == 0 ? text + blanks : "  " + blanks + text;
  }
  line += "  " + tail;
  out << trimRight(line) << '\n';
}

}  // namespace dg
