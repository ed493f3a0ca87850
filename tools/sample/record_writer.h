#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/values/date.h"

namespace dg::sample {

/// Puts the fields of one record, index key or control-file block at their positions, which count
/// from 1. A field that lies outside raises 31, an integer that its opcode cannot hold raises 6: a
/// family that writes beyond its record is wrong and shall not get away with it.
class RecordWriter {
 public:
  explicit RecordWriter(int length, char fill = '\0')
      : bytes_(static_cast<std::size_t>(length), fill) {}
  explicit RecordWriter(std::string bytes) : bytes_(std::move(bytes)) {}

  /// A whole number by integer opcode (B, C, D, I, J, K, L).
  RecordWriter& integer(int position, char opcode, std::int64_t value);
  /// Sets one bit of an integer field of opcode B or C.
  RecordWriter& bit(int position, char opcode, int bitNumber);
  /// Text as it stands, blanks behind it; cut at `width` bytes.
  RecordWriter& raw(int position, int width, std::string_view text);
  /// Three characters in two bytes, NULs behind them; cut at the `width` bytes of the field.
  /// `head` is the start of the packed-text table under which the field is read.
  RecordWriter& packed(int position, int width, std::string_view text,
                       std::string_view head = " ,/.");
  /// A date by date opcode: C and J a day number, D and K MMDDYY, R YYMMDD. The empty date is 0.
  RecordWriter& date(int position, char opcode, Date value);

  const std::string& bytes() const { return bytes_; }

 private:
  void requireRoom(int position, int width) const;

  std::string bytes_;
};

/// A key of one integer field.
inline std::string integerKey(char opcode, std::int32_t value, int length) {
  return RecordWriter(length).integer(1, opcode, value).bytes();
}

}  // namespace dg::sample
