#include "tools/sample/index_writer.h"

#include <algorithm>
#include <numeric>
#include <vector>

#include "engine/keyed_index.h"
#include "engine/open_file.h"
#include "platform/values/run_time_error.h"
#include "tools/sample/random.h"
#include "tools/sample/record_writer.h"

namespace dg::sample {

namespace {

constexpr int kPointerLength = 4;
constexpr int kNodeHeader = 4;
constexpr int kFewestEntries = 2;  // with fewer a node would not narrow the search

/// Number of nodes on each level, leaves first.
std::vector<std::size_t> levelSizes(std::size_t entries, std::size_t perNode) {
  std::vector<std::size_t> sizes;
  std::size_t count = entries;
  do {
    count = (count + perNode - 1) / perNode;
    sizes.push_back(count);
  } while (count > 1);
  return sizes;
}

/// Whether a cursor can walk a tree of these levels and node numbers can name its nodes.
bool fitsReaders(const std::vector<std::size_t>& levels) {
  const std::size_t nodes = std::accumulate(levels.begin(), levels.end(), std::size_t{0});
  return levels.size() <= index_cursor::kMaxDepth && nodes < kNoNextLeaf;
}

/// Entries in a node: as the fill asks, or more where the tree would get too deep or too wide.
std::size_t entriesInUse(std::size_t entries, const IndexShape& shape) {
  const auto room = static_cast<std::size_t>(entriesPerNode(shape.keyLength));
  auto perNode = std::max<std::size_t>(kFewestEntries,
                                       room * static_cast<std::size_t>(shape.fillPercent) / 100);
  perNode = std::min(perNode, room);
  while (perNode < room && !fitsReaders(levelSizes(entries, perNode)))
    ++perNode;
  return perNode;
}

void requireOrder(std::span<const IndexEntry> entries, const IndexShape& shape) {
  const std::string sentinel(static_cast<std::size_t>(shape.keyLength), '\xff');
  for (std::size_t i = 0; i < entries.size(); ++i) {
    const std::string& key = entries[i].key;
    bool valid = key.size() == sentinel.size() && key != sentinel;
    if (valid && i > 0) {
      const int order = key.compare(entries[i - 1].key);
      valid = order > 0 || (order == 0 && shape.duplicateKeys);
    }
    if (!valid) throw RunTimeError(kInvalidProcedureCall);
  }
}

/// The items of one level, shared out evenly to its nodes. The last node gets no fewer than any
/// other, so that the last leaf never holds the sentinel alone while there are keys: the last real
/// entry is the one before the sentinel in the same leaf.
struct Share {
  std::size_t items;
  std::size_t nodes;

  std::size_t begin(std::size_t node) const { return items * node / nodes; }
};

std::string makeNode(std::span<const IndexEntry> entries, std::int32_t nextLeaf, int keyLength) {
  RecordWriter node(kBlockSize, '\xff');
  node.integer(1, 'C', static_cast<std::int64_t>(entries.size())).integer(3, 'C', nextLeaf);
  int position = kNodeHeader + 1;
  for (const IndexEntry& entry : entries) {
    node.raw(position, keyLength, entry.key).integer(position + keyLength, 'L', entry.record);
    position += keyLength + kPointerLength;
  }
  return node.bytes();
}

std::string makeHeader(const IndexShape& shape, std::int32_t lastBlock, std::int32_t root,
                       std::size_t perNode) {
  // Laid out as the suite leaves it at a file's creation; readers use the entry length and the
  // root only. The place of a node's next-leaf field must be 0: a reader looks at it before it has
  // read a node.
  return RecordWriter(kBlockSize)
      .integer(1, 'C', shape.keyLength + kPointerLength)
      .integer(3, 'C', entriesPerNode(shape.keyLength))
      .integer(5, 'C', lastBlock)
      .integer(7, 'C', 2)
      .integer(9, 'C', root)
      .integer(11, 'C', static_cast<std::int64_t>(perNode))
      .integer(13, 'J', shape.duplicateKeys ? -1 : 0)
      .bytes();
}

}  // namespace

int entriesPerNode(int keyLength) {
  return (kBlockSize - kNodeHeader) / (keyLength + kPointerLength);
}

IndexImage buildIndex(std::span<const IndexEntry> entries, const IndexShape& shape) {
  if (shape.keyLength < 1 || entriesPerNode(shape.keyLength) < kFewestEntries ||
      shape.fillPercent < 1 || shape.fillPercent > 100 || shape.spareBlocks < 0) {
    throw RunTimeError(kInvalidProcedureCall);
  }
  requireOrder(entries, shape);

  std::vector<IndexEntry> level(entries.begin(), entries.end());
  level.push_back({std::string(static_cast<std::size_t>(shape.keyLength), '\xff'), -1});
  const std::size_t perNode = entriesInUse(level.size(), shape);
  const std::vector<std::size_t> sizes = levelSizes(level.size(), perNode);
  const std::size_t nodes = std::accumulate(sizes.begin(), sizes.end(), std::size_t{0});
  const std::size_t lastBlock = nodes + static_cast<std::size_t>(shape.spareBlocks);
  if (lastBlock >= kNoNextLeaf || sizes.size() > index_cursor::kMaxDepth)
    throw RunTimeError(kOverflow);

  std::vector<std::int32_t> numbers(nodes);
  std::iota(numbers.begin(), numbers.end(), 1);
  if (shape.scatter != nullptr) shape.scatter->shuffle(numbers);

  IndexImage image;
  image.levels = static_cast<int>(sizes.size());
  image.lastBlock = static_cast<int>(lastBlock);
  image.bytes.assign((lastBlock + 1) * kBlockSize, '\0');
  std::size_t firstNode = 0;  // of the level at hand, in `numbers`
  for (std::size_t depth = 0; depth < sizes.size(); ++depth) {
    const Share share{level.size(), sizes[depth]};
    std::vector<IndexEntry> parents;
    parents.reserve(share.nodes);
    for (std::size_t node = 0; node < share.nodes; ++node) {
      const std::span children = std::span<const IndexEntry>(level).subspan(
          share.begin(node), share.begin(node + 1) - share.begin(node));
      const std::int32_t number = numbers[firstNode + node];
      const bool lastOfLevel = node + 1 == share.nodes;
      const std::int32_t nextLeaf =
          depth > 0 ? 0 : (lastOfLevel ? kNoNextLeaf : numbers[firstNode + node + 1]);
      image.bytes.replace(static_cast<std::size_t>(number) * kBlockSize, kBlockSize,
                          makeNode(children, nextLeaf, shape.keyLength));
      parents.push_back({children.back().key, number});
    }
    firstNode += share.nodes;
    level = std::move(parents);
  }
  image.bytes.replace(0, kBlockSize,
                      makeHeader(shape, image.lastBlock, level.front().record, perNode));
  return image;
}

}  // namespace dg::sample
