#include <gtest/gtest.h>
#include <map>
#include <random>

#include "tests/support/error_number.h"
#include "tests/support/index_walk.h"
#include "tools/sample/random.h"

namespace dg::test {
namespace {

/// Random distinct keys, bytes above 127 and NULs among them, with record numbers from 1.
std::map<std::string, std::int32_t> randomEntries(int count, int keyLength, unsigned seed) {
  std::mt19937 random(seed);
  std::map<std::string, std::int32_t> entries;
  while (static_cast<int>(entries.size()) < count) {
    std::string key;
    for (int i = 0; i < keyLength; ++i)
      key.push_back(static_cast<char>(random() % 4 == 0 ? random() % 2 * 255 : random()));
    if (key != std::string(key.size(), '\xFF')) {
      entries.try_emplace(key, static_cast<std::int32_t>(entries.size()) + 1);
    }
  }
  return entries;
}

struct Tree {
  int entries;
  int keyLength;
  int fillPercent;
  int levels;
};

class EngineIndexTrees : public testing::TestWithParam<Tree> {};

TEST_P(EngineIndexTrees, AgreesWithASortedMap) {
  const Tree tree = GetParam();
  const auto entries = randomEntries(tree.entries, tree.keyLength, 42);
  sample::Random scatter(3, "index");
  Index index(entries,
              {.keyLength = tree.keyLength, .fillPercent = tree.fillPercent, .scatter = &scatter});
  ASSERT_EQ(index.levels(), tree.levels);
  EXPECT_EQ(index.count(), tree.entries);

  // Forwards, and once past the end and once more.
  std::int32_t record = std::abs(index.find(""));
  for (const auto& [key, expected] : entries) {
    ASSERT_EQ(index.key(), key);
    ASSERT_EQ(record, expected);
    record = index.next();
  }
  EXPECT_EQ(record, 0);
  const std::string atEnd = index.cursor();
  EXPECT_EQ(index.next(), 0);
  EXPECT_EQ(index.cursor(), atEnd);

  // Back from there, from the sentinel and from the last entry.
  for (const bool fromLast : {false, true}) {
    record = fromLast ? index.last() : index.previous();
    for (auto it = entries.rbegin(); it != entries.rend(); ++it) {
      ASSERT_EQ(index.key(), it->first);
      ASSERT_EQ(record, it->second);
      const std::string before = index.cursor();
      record = index.previous();
      if (std::next(it) == entries.rend()) {
        EXPECT_EQ(index.cursor(), before);
      }
    }
    EXPECT_EQ(record, 0);
    index.find(std::string(static_cast<std::size_t>(tree.keyLength), '\xFF'));
  }

  // Keys that are there and keys that are not; the walk goes both ways from each.
  std::mt19937 random(9);
  for (const auto& [absent, unused] : randomEntries(200, tree.keyLength, 77)) {
    const auto at = entries.lower_bound(absent);
    if (at == entries.end()) {
      EXPECT_EQ(index.find(absent), 0);
      EXPECT_EQ(index.key(), std::string(absent.size(), '\xFF'));
      continue;
    }
    const bool exact = at->first == absent;
    ASSERT_EQ(index.find(absent), exact ? at->second : -at->second);
    ASSERT_EQ(index.key(), at->first);
    if (random() % 2 == 0) {
      const auto after = std::next(at);
      ASSERT_EQ(index.next(), after == entries.end() ? 0 : after->second);
    } else if (at != entries.begin()) {
      ASSERT_EQ(index.previous(), std::prev(at)->second);
    }
  }
  for (const auto& [key, expected] : entries)
    ASSERT_EQ(index.find(key), expected);
}

// A node of 8-byte keys has room for 42 entries, the sentinel among them; at 1 % it takes two. A
// cursor holds seven levels, so with one key more than those can have three go into a node.
INSTANTIATE_TEST_SUITE_P(Shapes, EngineIndexTrees,
                         testing::Values(Tree{1, 4, 60, 1}, Tree{41, 8, 100, 1},
                                         Tree{42, 8, 100, 2}, Tree{1763, 8, 100, 2},
                                         Tree{1764, 8, 100, 3}, Tree{127, 8, 1, 7},
                                         Tree{128, 8, 1, 5}, Tree{200, 14, 60, 2},
                                         Tree{200, 1, 100, 2}, Tree{1500, 14, 60, 3},
                                         Tree{60, 250, 100, 6}, Tree{3000, 16, 40, 4}));

TEST(EngineIndex, ASearchReadsTheHeaderAndOneBlockALevel) {
  Index index(randomEntries(1500, 14, 5), {.keyLength = 14});
  ASSERT_EQ(index.levels(), 3);
  const ReadStatistics before = readStatistics();
  index.find("M");
  EXPECT_EQ(readStatistics().calls - before.calls, 4U);
  EXPECT_EQ(readStatistics().bytes - before.bytes, 4U * 512);

  // A walk reads a leaf when it comes to it, and nothing more.
  index.find("");
  const std::uint64_t atStart = readStatistics().calls;
  std::uint64_t leaves = 0;
  while (index.next() != 0) {
    if (index.entry() == 1) ++leaves;
  }
  EXPECT_GT(leaves, 10);
  EXPECT_LE(readStatistics().calls - atStart, leaves + 1);
}

TEST(EngineIndex, LeavesTheCursorAndTheKeyAsTheirLayoutSays) {
  // Two leaves under a root; the root is block 3.
  Blocks blocks(6, 3);
  blocks.node(2, 2).entry("AA", 11).entry("BB", 12);
  blocks.node(2, 65535).entry("CC", 13).entry("\xFF\xFF", -1);
  blocks.node(2, 0).entry("BB", 1).entry("\xFF\xFF", 2);
  Index index(blocks.bytes());

  index.cursor() = std::string(544, 'x') + "tail";
  EXPECT_EQ(index.find("BBB"), 12);  // cut to the key length
  EXPECT_EQ(index.key(), "BB");
  const std::string& cursor = index.cursor();
  EXPECT_EQ(cursor.substr(0, 16), blocks.bytes().substr(0, 16));
  EXPECT_EQ(index.entry(), 2);
  EXPECT_EQ(index.depth(), 2);
  EXPECT_EQ(index.node(1), 3);
  EXPECT_EQ(index.node(2), 1);
  EXPECT_EQ(cursor.substr(32, 512), blocks.bytes().substr(512, 512));
  EXPECT_EQ(cursor.substr(544), "tail");

  index.cursor().clear();
  EXPECT_EQ(index.find("B"), -12);  // filled with a NUL
  EXPECT_EQ(index.key(), "BB");
  EXPECT_EQ(index.cursor().size(), 544U);
  EXPECT_EQ(index.next(), 13);  // into the second leaf
  EXPECT_EQ(index.node(2), 2);
  EXPECT_EQ(index.next(), 0);
  EXPECT_EQ(index.key(), "\xFF\xFF");
  EXPECT_EQ(index.previous(), 13);
  EXPECT_EQ(index.previous(), 12);
  EXPECT_EQ(index.node(2), 1);

  bool orb = false;
  EXPECT_EQ(index.engine().KLength("KEYI", orb), 2);
  EXPECT_EQ(index.find("\xFF\xFF"), 0);
  EXPECT_EQ(index.last(), 13);
  EXPECT_EQ(index.depth(), 2);
}

TEST(EngineIndex, AnEmptyIndexHasOnlyItsSentinel) {
  Blocks blocks(8, 1);
  blocks.node(1, 65535).entry("\xFF\xFF\xFF\xFF", -1);
  Index index(blocks.bytes());
  EXPECT_EQ(index.count(), 0);
  EXPECT_EQ(index.find("A"), 0);
  EXPECT_EQ(index.key(), "\xFF\xFF\xFF\xFF");
  EXPECT_EQ(index.next(), 0);
  EXPECT_EQ(index.previous(), 0);
  // There is no last entry; the place before the first is the cursor's own head.
  EXPECT_EQ(index.last(), 0x0001FFFF);
}

TEST(EngineIndex, ALastEntryInFrontOfTheCursorIsRefused) {
  Blocks blocks(44, 1);
  blocks.node(1, 65535).entry(std::string(40, '\xFF'), -1);
  Index index(blocks.bytes());
  EXPECT_EQ(errorNumber([&] { index.last(); }), kInvalidProcedureCall);
}

TEST(EngineIndex, ALeafEntryWithoutARecordReadsAsZero) {
  Blocks blocks(6, 1);
  blocks.node(3, 65535).entry("AA", 5).entry("BB", -1).entry("\xFF\xFF", -1);
  Index index(blocks.bytes());
  EXPECT_EQ(index.find("AA"), 5);
  EXPECT_EQ(index.next(), 0);
  EXPECT_EQ(index.key(), "BB");
}

TEST(EngineIndex, EqualKeysComeInTheirOrder) {
  std::vector<sample::IndexEntry> entries;
  entries.reserve(200);
  for (std::int32_t record = 1; record <= 200; ++record)
    entries.push_back({padded(record <= 100 ? "A" : "B", 4), record});
  const sample::IndexImage image =
      sample::buildIndex(entries, {.keyLength = 4, .duplicateKeys = true, .fillPercent = 30});
  Index index(image.bytes);
  EXPECT_EQ(index.find("A"), 1);
  for (std::int32_t record = 2; record <= 200; ++record)
    ASSERT_EQ(index.next(), record);
  EXPECT_EQ(index.find("B"), 101);
  EXPECT_EQ(index.previous(), 100);
  EXPECT_EQ(index.last(), 200);
  for (std::int32_t record = 199; record > 0; --record)
    ASSERT_EQ(index.previous(), record);
}

}  // namespace
}  // namespace dg::test
