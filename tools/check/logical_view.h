#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "engine/logical_file.h"
#include "tools/check/finding.h"
#include "tools/check/store_file.h"

namespace dg::check {

/// A logical file as its directory describes it, for reading bytes by record or block.
struct LogicalView {
  std::string name;
  DirectoryEntry entry;
  std::shared_ptr<StoreFile> data;  ///< never empty
  /// Set when its place cannot be right, such as one that it shares with another file: nothing
  /// that would be read there means anything.
  bool misplaced = false;

  bool isIndex() const { return entry.FileType == "I"; }
  bool isRecordFile() const { return entry.FileType == "L"; }

  /// Byte of the data file at which the file begins.
  std::int64_t begin() const;
  /// Byte behind its last record.
  std::int64_t end() const;
  std::int64_t recordOffset(std::int64_t record) const;
  std::int64_t blockOffset(std::int64_t block) const;

  /// Highest legal record number that begins within the data file and within the 32 bits of a
  /// reader's offsets; those beyond read as NULs. Below 0 when not even record 0 does.
  std::int64_t lastStored() const;

  std::string record(std::int64_t number) const;
  std::string block(std::int64_t number) const;

  Place whole() const;
  /// `within` counts bytes from the record's or block's start.
  Place atRecord(std::int64_t number, std::int64_t within = 0) const;
  Place atBlock(std::int64_t number, std::int64_t within = 0) const;
};

}  // namespace dg::check
