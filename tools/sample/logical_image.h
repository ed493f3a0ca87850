#pragma once

#include <cstdint>
#include <string>

namespace dg::sample {

/// A logical file as it goes into a data file.
struct LogicalImage {
  char fileType = 'L';          ///< "L" records, "I" index
  int recordLength = 0;         ///< bytes
  std::int32_t lastRecord = 0;  ///< capacity
  std::string bytes;            ///< from the start block on
};

/// Something that a data file holds under a name.
class LogicalSource {
 public:
  virtual ~LogicalSource() = default;
  LogicalSource() = default;
  LogicalSource(const LogicalSource&) = delete;
  LogicalSource& operator=(const LogicalSource&) = delete;

  /// The file with all that was added to it so far.
  virtual LogicalImage image() const = 0;
};

}  // namespace dg::sample
