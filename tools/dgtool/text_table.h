#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace dg {

/// A table of UTF-8 texts, each column as wide as its widest; the first one to the left.
class TextTable {
 public:
  void add(std::vector<std::string> row);
  /// Writes each row, and behind it what the function gives for its index.
  template <class Tail>
  void write(std::ostream& out, Tail tail) const {
    for (std::size_t row = 0; row < rows_.size(); ++row)
      writeRow(out, row, tail(row));
  }
  void write(std::ostream& out) const {
    write(out, [](std::size_t) { return std::string(); });
  }

 private:
  void writeRow(std::ostream& out, std::size_t row, const std::string& tail) const;

  std::vector<std::vector<std::string>> rows_;
  std::vector<std::size_t> widths_;  ///< in characters
};

}  // namespace dg
