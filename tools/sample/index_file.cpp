#include "tools/sample/index_file.h"

#include <algorithm>

#include "engine/open_file.h"

namespace dg::sample {

LogicalImage IndexFile::image() const {
  std::vector<IndexEntry> sorted = entries_;
  std::stable_sort(sorted.begin(), sorted.end(),
                   [](const IndexEntry& a, const IndexEntry& b) { return a.key < b.key; });
  Random scatter = scatter_;
  IndexImage index = buildIndex(sorted, {.keyLength = keyLength_,
                                         .duplicateKeys = duplicateKeys_,
                                         .fillPercent = fillPercent_,
                                         .spareBlocks = scatter.between(1, 6),
                                         .scatter = &scatter});
  return {.fileType = 'I',
          .recordLength = kBlockSize,
          .lastRecord = index.lastBlock,
          .bytes = std::move(index.bytes)};
}

}  // namespace dg::sample
