#include <algorithm>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <vector>

#include "platform/run_time_error.h"
#include "tests/support/error_number.h"
#include "tools/sample/index_writer.h"
#include "tools/sample/random.h"

namespace dg::sample {
namespace {

/// Reads an index by the format's own rules, apart from the engine, and tests what every reader
/// relies on: separators, the chain of leaves, the sentinel, node numbers that occur once.
class TreeCheck {
 public:
  explicit TreeCheck(const IndexImage& image) : image_(image) {
    entryLength_ = number(0, 2);
    EXPECT_EQ(number(34, 2), 0U) << "a reader looks here before it has read a node";
    EXPECT_EQ(image.bytes.size(), (static_cast<std::size_t>(image.lastBlock) + 1) * 512);
    descend(number(8, 2), 1);
    for (std::size_t i = 0; i < leaves_.size(); ++i) {
      const std::size_t expected = i + 1 < leaves_.size() ? leaves_[i + 1] : 65535;
      EXPECT_EQ(number(leaves_[i] * 512 + 2, 2), expected);
    }
    EXPECT_EQ(entries_.back().key, std::string(entryLength_ - 4, '\xff'));
    EXPECT_EQ(entries_.back().record, -1);
    entries_.pop_back();
    if (!entries_.empty()) {
      EXPECT_GE(number(leaves_.back() * 512, 2), 2U)
          << "the last leaf has a key before its sentinel";
    }
  }

  const std::vector<IndexEntry>& entries() const { return entries_; }
  int levels() const { return levels_; }
  std::size_t nodes() const { return seen_.size(); }
  const std::vector<std::size_t>& leaves() const { return leaves_; }

 private:
  std::size_t number(std::size_t offset, std::size_t width) const {
    std::size_t value = 0;
    for (std::size_t i = 0; i < width; ++i)
      value = value << 8 | static_cast<unsigned char>(image_.bytes.at(offset + i));
    return value;
  }

  /// Returns the highest key below a node.
  std::string descend(std::size_t node, int level) {
    EXPECT_TRUE(seen_.insert(node).second) << "node " << node << " is reached twice";
    EXPECT_GE(node, 1U);
    EXPECT_LE(node, static_cast<std::size_t>(image_.lastBlock));
    const std::size_t block = node * 512;
    const std::size_t count = number(block, 2);
    EXPECT_GE(count, 1U);
    EXPECT_LE(4 + count * entryLength_, 512U);
    const bool leaf = number(block + 2, 2) != 0;
    if (leaf) {
      EXPECT_TRUE(levels_ == 0 || levels_ == level) << "all leaves lie on one level";
      levels_ = level;
      leaves_.push_back(node);
    }
    std::string highest;
    for (std::size_t i = 0; i < count; ++i) {
      const std::size_t at = block + 4 + i * entryLength_;
      const std::string key = image_.bytes.substr(at, entryLength_ - 4);
      EXPECT_LE(highest, key);
      const std::size_t pointer = number(at + entryLength_ - 4, 4);
      if (leaf) {
        entries_.push_back({key, static_cast<std::int32_t>(pointer)});
      } else {
        EXPECT_EQ(descend(pointer, level + 1), key) << "separator of node " << pointer;
      }
      highest = key;
    }
    return highest;
  }

  const IndexImage& image_;
  std::size_t entryLength_ = 0;
  int levels_ = 0;
  std::set<std::size_t> seen_;
  std::vector<std::size_t> leaves_;
  std::vector<IndexEntry> entries_;
};

/// Keys of `length` bytes in order, each `repeat` times.
std::vector<IndexEntry> makeEntries(int count, int length, int repeat = 1) {
  std::vector<IndexEntry> entries;
  for (int i = 0; i < count; ++i) {
    std::string key(static_cast<std::size_t>(length), '\0');
    int value = i / repeat;
    for (auto byte = key.rbegin(); byte != key.rend() && value > 0; ++byte, value /= 256)
      *byte = static_cast<char>(value % 256);
    entries.push_back({key, i + 1});
  }
  return entries;
}

int raisedBy(const std::vector<IndexEntry>& entries, const IndexShape& shape) {
  return errorNumber([&] { buildIndex(entries, shape); });
}

TEST(SampleIndexWriter, BuildsTreesOfEveryHeight) {
  // 508 / 12 = 42 entries a node, the sentinel among them.
  constexpr int kRoom = 42;
  const struct {
    int count;
    int fill;
    int levels;
  } cases[] = {
      {0, 100, 1},
      {1, 100, 1},
      {kRoom - 1, 100, 1},
      {kRoom, 100, 2},
      {kRoom * kRoom - 1, 100, 2},
      {kRoom * kRoom, 100, 3},
      {5000, 24, 4},  // ten entries a node
      {127, 1, 7},    // two entries a node: as deep as a cursor can walk
      {128, 1, 5},    // one key more would need an eighth level, so three entries go into a node
  };
  ASSERT_EQ(entriesPerNode(8), kRoom);
  for (const auto& test : cases) {
    SCOPED_TRACE(testing::Message() << test.count << " keys at " << test.fill << " %");
    const std::vector<IndexEntry> entries = makeEntries(test.count, 8);
    const IndexImage image = buildIndex(entries, {.keyLength = 8, .fillPercent = test.fill});
    const TreeCheck tree(image);
    EXPECT_TRUE(tree.entries() == entries);
    EXPECT_EQ(tree.levels(), test.levels);
    EXPECT_EQ(image.levels, test.levels);
    EXPECT_EQ(tree.nodes(), static_cast<std::size_t>(image.lastBlock));
  }
}

TEST(SampleIndexWriter, KeepsRepeatedKeysInOrderAcrossLeaves) {
  const std::vector<IndexEntry> entries = makeEntries(900, 4, 150);
  const IndexImage image =
      buildIndex(entries, {.keyLength = 4, .duplicateKeys = true, .fillPercent = 50});
  EXPECT_TRUE(TreeCheck(image).entries() == entries);
}

TEST(SampleIndexWriter, ScattersNodesAndLeavesSpareBlocks) {
  const std::vector<IndexEntry> entries = makeEntries(2000, 14);
  Random random(1, "scatter");
  const IndexImage image = buildIndex(
      entries, {.keyLength = 14, .fillPercent = 70, .spareBlocks = 5, .scatter = &random});
  const TreeCheck tree(image);
  EXPECT_TRUE(tree.entries() == entries);
  EXPECT_EQ(tree.nodes() + 5, static_cast<std::size_t>(image.lastBlock));
  EXPECT_FALSE(std::is_sorted(tree.leaves().begin(), tree.leaves().end()));
}

TEST(SampleIndexWriter, FillsNodesFurtherWhereTheirNumbersWouldRunOut) {
  const std::vector<IndexEntry> entries = makeEntries(400'000, 14);
  const IndexImage image = buildIndex(entries, {.keyLength = 14, .fillPercent = 1});
  EXPECT_LT(image.lastBlock, 65'535);
  EXPECT_TRUE(TreeCheck(image).entries() == entries);
}

TEST(SampleIndexWriter, TakesTheLongestKey) {
  const std::vector<IndexEntry> entries = makeEntries(40, 250);
  const IndexImage image = buildIndex(entries, {.keyLength = 250});
  EXPECT_TRUE(TreeCheck(image).entries() == entries);
  EXPECT_EQ(raisedBy({}, {.keyLength = 251}), kInvalidProcedureCall);
  EXPECT_EQ(raisedBy({}, {.keyLength = 0}), kInvalidProcedureCall);
}

TEST(SampleIndexWriter, RefusesKeysThatNoIndexHolds) {
  const IndexShape shape{.keyLength = 1};
  EXPECT_EQ(raisedBy({{"b", 1}, {"a", 2}}, shape), kInvalidProcedureCall);
  EXPECT_EQ(raisedBy({{"a", 1}, {"a", 2}}, shape), kInvalidProcedureCall);
  EXPECT_EQ(raisedBy({{"ab", 1}}, shape), kInvalidProcedureCall);
  EXPECT_EQ(raisedBy({{"\xff", 1}}, shape), kInvalidProcedureCall);
  EXPECT_EQ(raisedBy({{"\x7f", 1}, {"\x80", 2}}, shape), 0) << "bytes count as unsigned";
  EXPECT_EQ(raisedBy(makeEntries(140'000, 250), {.keyLength = 250}), kOverflow);
}

}  // namespace
}  // namespace dg::sample
