#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tools/sample/record_writer.h"

namespace dg::test {

// Hand-made pages of shop jobs, orders and warranty claims.

inline constexpr int kPageLength = 1024;
inline constexpr int kPageLineWidth = 44;

/// A line with a price: quantity in tenths, prices in hundredths.
inline std::string pricedLine(std::string_view code, std::string_view part, int tenths, int net,
                              int cost = 0, std::string_view description = "",
                              std::string_view dashes = "") {
  return sample::RecordWriter(kPageLineWidth)
      .packed(1, 2, code)
      .packed(3, 12, part)
      .packed(15, 2, dashes)
      .packed(17, 14, description)
      .integer(31, 'J', tenths)
      .integer(33, 'K', net)
      .integer(36, 'D', cost)
      .bytes();
}

inline std::string remarkLine(std::string_view text) {
  return sample::RecordWriter(kPageLineWidth).packed(1, 2, "REM").packed(3, 42, text).bytes();
}

struct PageFields {
  int page = 1;
  std::int32_t link = 0;
  int request = 0;
  std::vector<std::string> lines = {};
  int lineCount = -1;  ///< what the page says of its lines; -1: the truth
};

/// A page's fields over a header.
inline std::string pageRecord(const PageFields& fields,
                              std::string header = std::string(kPageLength, '\0')) {
  header.resize(kPageLength, '\0');
  sample::RecordWriter record(std::move(header));
  const auto lines = static_cast<int>(fields.lines.size());
  record.integer(97, 'B', fields.request)
      .integer(110, 'K', fields.link)
      .integer(115, 'B', fields.page)
      .integer(146, 'B', fields.lineCount < 0 ? lines : fields.lineCount);
  int position = 161;
  for (const std::string& line : fields.lines) {
    record.raw(position, kPageLineWidth, line);
    position += kPageLineWidth;
  }
  return record.bytes();
}

}  // namespace dg::test
