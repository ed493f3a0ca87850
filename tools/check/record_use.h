#pragma once

#include <cstdint>
#include <vector>

#include "tools/check/known_files.h"
#include "tools/check/logical_view.h"

namespace dg::check {

/// What the bytes of a record look like.
enum class RecordState : std::uint8_t {
  kBlank,    ///< all NUL, or beyond the end of the data file
  kCleared,  ///< all NUL but for the link of the free chain
  kInUse,    ///< its first field, J, is above 0
  kOther,    ///< anything else
};

/// The state of every record of a record file, from one pass over it.
class RecordUse {
 public:
  /// Reads all records that the data file holds. Raises 57.
  RecordUse(const LogicalView& file, InUse inUse);

  const LogicalView& file() const { return *file_; }
  InUse inUseBy() const { return inUse_; }
  /// Highest record that was looked at; those above are blank.
  std::int64_t last() const { return static_cast<std::int64_t>(states_.size()) - 1; }
  RecordState state(std::int64_t record) const;
  /// Whether the record is in use by its bytes.
  bool isUsed(std::int64_t record) const;
  /// Whether a reader that is led to the record finds one: in range and in use.
  bool isValidTarget(std::int64_t record) const {
    return record >= 1 && record <= file_->entry.LastRecord && isUsed(record);
  }

 private:
  const LogicalView* file_;
  InUse inUse_;
  std::vector<RecordState> states_;  // by record number; that of record 0 means nothing
};

}  // namespace dg::check
