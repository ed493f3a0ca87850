#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "tools/sample/logical_image.h"

namespace dg::sample {

/// A file of records by number, with its record zero: highest number, active count and the chain
/// of freed records.
class RecordFile final : public LogicalSource {
 public:
  /// `recordLength` has room for record zero, 16 bytes.
  explicit RecordFile(int recordLength);

  /// Appends a record, filled with NULs to the record length; returns its number. Raises 36 for one
  /// that is too long.
  std::int32_t add(std::string_view record);
  /// Appends a record that was used once and is free now: all NUL but its link of the free chain.
  void addFreed() { free(add({})); }
  /// Frees a record in use. Raises 81.
  void free(std::int32_t number);
  /// The number that the next record gets.
  std::int32_t nextNumber() const { return highUsed_ + 1; }
  /// Overwrites a record, for chains whose next number is known late. Raises 81.
  void replace(std::int32_t number, std::string_view record);
  /// The highest record number in use, and the number of records in use.
  std::int32_t highUsed() const { return highUsed_; }
  std::int32_t activeCount() const { return active_; }

  /// Makes the capacity at least `lastRecord`; without this some spare records follow the last.
  void reserve(std::int32_t lastRecord);
  int recordLength() const { return recordLength_; }

  LogicalImage image() const override;

 private:
  std::string padded(std::string_view record) const;

  int recordLength_;
  std::int32_t highUsed_ = 0;
  std::int32_t active_ = 0;
  std::int32_t freeHead_ = -1;
  std::int32_t capacity_ = 0;
  std::string bytes_;  // from record zero on
};

/// A main file and its extension: one record, cut in two at the main file's record length.
class ExtendedRecordFile {
 public:
  ExtendedRecordFile(RecordFile& main, RecordFile& extension)
      : main_(main), extension_(extension) {}

  /// Bytes of both halves together.
  int recordLength() const { return main_.recordLength() + extension_.recordLength(); }
  /// Appends both halves; returns their number.
  std::int32_t add(std::string_view record);
  /// Frees a record in both files.
  void addFreed();

 private:
  RecordFile& main_;
  RecordFile& extension_;
};

}  // namespace dg::sample
