#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "engine/layout.h"

namespace dg {

/// Layout of a record of a page chain. The fields overlay those of the header record.
namespace page_record {
inline constexpr NumberField kRequest{'B', 97};  ///< of a shop job's lines on this page, from 0
inline constexpr NumberField kLink{'K', 110};    ///< the next page's record; its sign means nothing
inline constexpr NumberField kNumber{'B', 115};
inline constexpr NumberField kLineCount{'B', 146};
inline constexpr std::int32_t kLines = 161;  ///< where the first line begins
inline constexpr std::int32_t kLineWidth = 44;
/// Readers keep a list of so many pages.
inline constexpr std::int32_t kHighestPage = 200;
}  // namespace page_record

/// Layout of a line of a page.
namespace page_line {
inline constexpr TextField kCode{1, 2};
inline constexpr std::int32_t kRemark = 3;  ///< up to the line's end
inline constexpr TextField kPart{3, 12};
inline constexpr TextField kDashMask{15, 2};
inline constexpr TextField kDescription{17, 14};
inline constexpr NumberField kQuantity{'J', 31};  ///< tenths
inline constexpr NumberField kNet{'K', 33};       ///< hundredths
inline constexpr NumberField kCost{'D', 36};      ///< hundredths
}  // namespace page_line

/// One record of a page chain: a document of several pages (shop job, invoice, pick ticket,
/// warranty claim) is linked records of 44-byte lines. Accessors raise 31 when the field lies
/// beyond the record's end.
class PageRecord {
 public:
  explicit PageRecord(std::string bytes) : bytes_(std::move(bytes)) {}
  /// Reads a record of `file`, a logical file's name. Raises what the engine raises.
  static PageRecord read(const char* file, std::int32_t record);

  std::int32_t requestNumber() const;  ///< of the lines on this page, from 0
  std::int32_t pageNumber() const;     ///< 1 is where every walk ends
  std::int32_t lineCount() const;
  /// The raw link field: its absolute value is the next record of the chain. On page 1 of an order
  /// it points nowhere and holds the order's date.
  std::int32_t link() const;
  /// Line 1 and on: 44 bytes, fewer where the record ends.
  std::string_view line(std::int32_t number) const;

  const std::string& bytes() const { return bytes_; }

 private:
  std::string bytes_;
};

}  // namespace dg
