#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace dg {

/// One record of a page chain: a document of several pages (shop job, invoice, pick ticket,
/// warranty claim) is linked records of 44-byte lines. Positions count from 1 and overlay those of
/// the header record. Accessors raise 31 when the field lies beyond the record's end.
class PageRecord {
 public:
  static constexpr std::int32_t kLineWidth = 44;

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
