#pragma once

#include <string>
#include <vector>

#include "tools/sample/index_writer.h"
#include "tools/sample/logical_image.h"
#include "tools/sample/random.h"

namespace dg::sample {

/// Keys in the order in which they come; the index over them is built when the file is complete.
class IndexFile final : public LogicalSource {
 public:
  /// `scatter` shuffles the node numbers.
  IndexFile(int keyLength, bool duplicateKeys, int fillPercent, Random scatter)
      : keyLength_(keyLength),
        duplicateKeys_(duplicateKeys),
        fillPercent_(fillPercent),
        scatter_(scatter) {}

  /// Adds a key, filled with NULs to the key length.
  void add(std::string key, std::int32_t record) {
    key.resize(static_cast<std::size_t>(keyLength_), '\0');
    entries_.push_back({std::move(key), record});
  }
  int keyLength() const { return keyLength_; }
  std::size_t count() const { return entries_.size(); }

  /// Raises as buildIndex.
  LogicalImage image() const override;

 private:
  int keyLength_;
  bool duplicateKeys_;
  int fillPercent_;
  Random scatter_;
  std::vector<IndexEntry> entries_;
};

}  // namespace dg::sample
