#include <gtest/gtest.h>
#include <map>
#include <random>

#include "engine/codec.h"
#include "engine/keyed_index.h"
#include "tests/support/engine_store.h"
#include "tests/support/error_number.h"
#include "tests/support/raised.h"
#include "tools/sample/index_writer.h"
#include "tools/sample/random.h"

namespace dg::test {
namespace {

using namespace std::string_literals;

std::string padded(std::string key, int length) {
  key.resize(static_cast<std::size_t>(length), '\0');
  return key;
}

std::vector<sample::IndexEntry> inOrder(const std::map<std::string, std::int32_t>& entries) {
  std::vector<sample::IndexEntry> list;
  list.reserve(entries.size());
  for (const auto& [key, record] : entries)
    list.push_back({key, record});
  return list;
}

/// An index in a file of its own, behind one block of something else, and a walk over it.
class Index {
 public:
  explicit Index(const std::string& blocks) { open(blocks); }
  Index(const std::map<std::string, std::int32_t>& entries, sample::IndexShape shape) {
    const std::vector<sample::IndexEntry> list = inOrder(entries);
    const sample::IndexImage image = sample::buildIndex(list, shape);
    levels_ = image.levels;
    open(image.bytes);
  }

  int levels() const { return levels_; }
  const std::shared_ptr<cLogicalFile>& file() const { return file_; }
  EngineStore& store() { return store_; }
  const cBusinessBasic& engine() { return store_.engine(); }

  std::int32_t find(std::string key) {
    key_ = std::move(key);
    engine().KFind(file_, cursor_, key_, record_, orb_);
    return record_;
  }
  std::int32_t next() {
    engine().KNext(file_, cursor_, key_, record_, orb_);
    return record_;
  }
  std::int32_t previous() {
    engine().KPrev(file_, cursor_, key_, record_, orb_);
    return record_;
  }
  std::int32_t last() {
    engine().KLast(file_, cursor_, key_, record_, orb_);
    return record_;
  }
  std::int32_t count() { return engine().KCount(file_, orb_); }
  const std::string& key() const { return key_; }
  std::string& cursor() { return cursor_; }

 private:
  void open(const std::string& blocks) {
    const auto lastBlock = static_cast<std::int32_t>(blocks.size() / kBlockSize) - 1;
    store_.place("OTHER", 'X', 512, 0, std::string(512, '\xEE'));
    store_.place("KEYI", 'I', 512, lastBlock, blocks);
    file_ = engine().LogicalOpen("KEYI");
  }

  EngineStore store_;
  std::shared_ptr<cLogicalFile> file_;
  int levels_ = 0;
  std::string cursor_;
  std::string key_;
  std::int32_t record_ = 0;
  bool orb_ = false;
};

/// Blocks of an index by hand, for trees that no writer makes.
class Blocks {
 public:
  Blocks(int entryLength, int root) : entryLength_(entryLength) {
    node();
    put('C', entryLength, 1);
    put('C', root, 9);
  }
  /// Begins a node; its number is the count of blocks before it.
  Blocks& node(int entryCount = 0, int nextLeaf = 0) {
    bytes_.append(kBlockSize, '\0');
    position_ = 5;
    put('C', entryCount, 1);
    put('C', nextLeaf, 3);
    return *this;
  }
  Blocks& entry(const std::string& key, std::int32_t pointer) {
    bytes_.replace(bytes_.size() - kBlockSize + static_cast<std::size_t>(position_) - 1, key.size(),
                   key);
    put('L', pointer, position_ + entryLength_ - 4);
    position_ += entryLength_;
    return *this;
  }
  Blocks& put(char opcode, std::int32_t value, std::int32_t position) {
    Pack(opcode, bytes_, value, static_cast<std::int32_t>(bytes_.size()) - kBlockSize + position);
    return *this;
  }
  const std::string& bytes() const { return bytes_; }

 private:
  int entryLength_;
  int position_ = 5;
  std::string bytes_;
};

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
    if (Unpack('B', index.cursor(), index_cursor::kCurrentEntry) == 1) ++leaves;
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
  EXPECT_EQ(Unpack('B', cursor, index_cursor::kCurrentEntry), 2);
  EXPECT_EQ(Unpack('B', cursor, index_cursor::kPathDepth), 2);
  EXPECT_EQ(Unpack('C', cursor, index_cursor::kNodePath), 3);
  EXPECT_EQ(Unpack('C', cursor, index_cursor::kNodePath + 2), 1);
  EXPECT_EQ(cursor.substr(32, 512), blocks.bytes().substr(512, 512));
  EXPECT_EQ(cursor.substr(544), "tail");

  index.cursor().clear();
  EXPECT_EQ(index.find("B"), -12);  // filled with a NUL
  EXPECT_EQ(index.key(), "BB");
  EXPECT_EQ(index.cursor().size(), 544U);
  EXPECT_EQ(index.next(), 13);  // into the second leaf
  EXPECT_EQ(Unpack('C', index.cursor(), index_cursor::kNodePath + 2), 2);
  EXPECT_EQ(index.next(), 0);
  EXPECT_EQ(index.key(), "\xFF\xFF");
  EXPECT_EQ(index.previous(), 13);
  EXPECT_EQ(index.previous(), 12);
  EXPECT_EQ(Unpack('C', index.cursor(), index_cursor::kNodePath + 2), 1);

  bool orb = false;
  EXPECT_EQ(index.engine().KLength("KEYI", orb), 2);
  EXPECT_EQ(index.find("\xFF\xFF"), 0);
  EXPECT_EQ(index.last(), 13);
  EXPECT_EQ(Unpack('B', index.cursor(), index_cursor::kPathDepth), 2);
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

TEST(EngineIndex, ANodeOutOfRangeIsToldAndEndsTheSearch) {
  Blocks blocks(6, 1);
  blocks.node(1, 0).entry("\xFF\xFF", 2);
  Index index(blocks.bytes());
  EXPECT_EQ(index.find("A"), 0);
  EXPECT_EQ(index.key(), "A\0"s);
  ASSERT_EQ(index.store().messages().size(), 1U);
  EXPECT_EQ(index.store().messages()[0].text,
            "Index is returning information out of Range.  File: KEYI LastRec: 1");
  EXPECT_EQ(index.store().messages()[0].style, kCritical);
  // The last entry is looked for without that guard: beyond the file's end stand NULs.
  EXPECT_EQ(errorNumber([&] { index.last(); }), kOverflow);
}

TEST(EngineIndex, ASearchThatFindsNoEntryMovesRight) {
  // The root's separators are lower than its leaves' keys: the search must go on along the chain.
  Blocks blocks(6, 1);
  blocks.put('B', 3, 18);  // where the header's byte stands for the level
  blocks.node(1, 0).entry("\xFF\xFF", 2);
  blocks.node(1, 3).entry("AA", 7);
  blocks.node(1, 65535).entry("CC", 8);
  Index index(blocks.bytes());
  EXPECT_EQ(index.find("BB"), -8);
  EXPECT_EQ(Unpack('C', index.cursor(), index_cursor::kNodePath + 4), 3);
  EXPECT_EQ(Unpack('C', index.cursor(), index_cursor::kNodePath + 2), 2);
  EXPECT_EQ(Unpack('B', index.cursor(), index_cursor::kPathDepth), 2);
  // At the end of the chain the cursor keeps the header's bytes.
  EXPECT_EQ(index.find("DD"), 0);
  EXPECT_EQ(index.key(), "DD");
  EXPECT_EQ(Unpack('B', index.cursor(), index_cursor::kPathDepth), 3);
}

TEST(EngineIndex, WalksThatNeverEndOverflow) {
  {  // a leaf chain in a circle
    Blocks blocks(6, 1);
    blocks.node(1, 2).entry("AA", 7);
    blocks.node(1, 1).entry("BB", 8);
    Index index(blocks.bytes());
    EXPECT_EQ(errorNumber([&] { index.find("CC"); }), kOverflow);
    EXPECT_EQ(errorNumber([&] { index.count(); }), kOverflow);
    EXPECT_EQ(index.find("AA"), 7);
  }
  {  // a node that is its own child
    Blocks blocks(6, 1);
    blocks.node(1, 0).entry("\xFF\xFF", 1);
    Index index(blocks.bytes());
    EXPECT_EQ(errorNumber([&] { index.find("AA"); }), kOverflow);
    EXPECT_EQ(errorNumber([&] { index.last(); }), kOverflow);
    EXPECT_EQ(errorNumber([&] { index.count(); }), kOverflow);
  }
  {  // nodes without entries
    Blocks blocks(6, 1);
    blocks.node(0, 0);
    blocks.node(0, 0);
    Index index(blocks.bytes());
    EXPECT_EQ(errorNumber([&] { index.find("AA"); }), kOverflow);
  }
  {  // a capacity that no file has
    Blocks blocks(6, 1);
    blocks.node(1, 1).entry("AA", 7);
    Index index(blocks.bytes());
    index.file()->LastRecord = INT32_MAX;
    EXPECT_EQ(errorNumber([&] { index.count(); }), kOverflow);
  }
}

TEST(EngineIndex, DeeperTreesThanTheCursorHoldsOverflow) {
  const auto chain = [](int levels) {
    Blocks blocks(6, 1);
    for (int level = 1; level < levels; ++level)
      blocks.node(1, 0).entry("\xFF\xFF", level + 1);
    blocks.node(2, 65535).entry("AA", 5).entry("\xFF\xFF", -1);
    return blocks.bytes();
  };
  Index seven(chain(7));
  EXPECT_EQ(seven.find("AA"), 5);
  EXPECT_EQ(seven.last(), 5);
  EXPECT_EQ(seven.previous(), 0);
  EXPECT_EQ(seven.next(), 0);
  EXPECT_EQ(seven.count(), 1);
  Index eight(chain(8));
  EXPECT_EQ(errorNumber([&] { eight.find("AA"); }), kOverflow);
  EXPECT_EQ(errorNumber([&] { eight.last(); }), kOverflow);
}

TEST(EngineIndex, KeysOfNoLengthAndLess) {
  for (const int entryLength : {0, 1, 3}) {
    Blocks blocks(entryLength, 1);
    blocks.node(1, 65535);
    Index index(blocks.bytes());
    EXPECT_EQ(errorNumber([&] { index.find("AA"); }), kInvalidProcedureCall) << entryLength;
    EXPECT_EQ(errorNumber([&] { index.last(); }), kInvalidProcedureCall) << entryLength;
    bool orb = false;
    EXPECT_EQ(index.engine().KLength("KEYI", orb), entryLength - 4);
  }
  Blocks blocks(4, 1);
  blocks.node(2, 65535).entry("", 5).entry("", -1);
  Index index(blocks.bytes());
  EXPECT_EQ(index.find("AA"), 5);
  EXPECT_EQ(index.key(), "");
  EXPECT_EQ(index.next(), 0);
  EXPECT_EQ(index.next(), 0);
}

TEST(EngineIndex, EntriesBeyondTheNodeRaiseWhatTheCodecRaises) {
  Blocks blocks(104, 1);  // four entries in a node
  blocks.node(5, 65535);
  for (const char* key : {"A", "B", "C", "D"})
    blocks.entry(padded(key, 100), 1);
  Index index(blocks.bytes());
  EXPECT_EQ(index.find(padded("D", 100)), 1);
  EXPECT_EQ(
      raised([&] { index.find("E"); }),
      (Raised{31, "UnPack", "Invalid Subscript.  UnPack(\"L\", Data$, 553)   Len(Data$) = 544"}));
  index.find(padded("D", 100));
  EXPECT_EQ(errorNumber([&] { index.next(); }), 31);

  Blocks wide(65535, 1);
  wide.node(65535, 65535);
  Index wideIndex(wide.bytes());
  EXPECT_EQ(errorNumber([&] { wideIndex.find("E"); }), 31);
  EXPECT_EQ(errorNumber([&] { wideIndex.last(); }), kOverflow);
}

TEST(EngineIndex, NegativeNodeNumbersAreNoPlaces) {
  Blocks blocks(6, 1);
  blocks.node(1, 0).entry("\xFF\xFF", -9);
  Index index(blocks.bytes());
  EXPECT_EQ(errorNumber([&] { index.find("A"); }), kBadRecordNumber);
  EXPECT_EQ(errorNumber([&] { index.last(); }), kBadRecordNumber);
  Blocks lowest(6, 1);
  lowest.node(1, 65535).entry("BB", INT32_MIN);
  Index lowestIndex(lowest.bytes());
  EXPECT_EQ(lowestIndex.find("BB"), INT32_MIN);
  EXPECT_EQ(errorNumber([&] { lowestIndex.find("AA"); }), kOverflow);
}

TEST(EngineIndex, ATextThatIsNoCursorIsRefused) {
  Blocks blocks(6, 1);
  blocks.node(1, 65535).entry("\xFF\xFF", -1);
  Index index(blocks.bytes());
  for (const std::size_t size : {0U, 17U, 543U}) {
    index.cursor() = std::string(size, '\0');
    EXPECT_EQ(errorNumber([&] { index.next(); }), 31) << size;
    EXPECT_EQ(errorNumber([&] { index.previous(); }), 31) << size;
  }
  // Whatever stands in one, nothing outside it is touched.
  std::mt19937 random(11);
  for (int round = 0; round < 2000; ++round) {
    std::string cursor(544, '\0');
    for (char& c : cursor)
      c = static_cast<char>(random() % 3 == 0 ? random() : random() % 8);
    for (const bool forwards : {true, false}) {
      index.cursor() = cursor;
      try {
        forwards ? index.next() : index.previous();
      } catch (const RunTimeError&) {  // NOLINT(bugprone-empty-catch): any of them will do
      }
      ASSERT_EQ(index.cursor().size(), 544U);
    }
  }
}

TEST(EngineIndex, AParentThatDoesNotKnowItsChildOverflows) {
  Blocks blocks(6, 3);
  blocks.node(1, 2).entry("AA", 11);
  blocks.node(2, 65535).entry("CC", 13).entry("\xFF\xFF", -1);
  blocks.node(2, 0).entry("AA", 1).entry("\xFF\xFE", 2);  // not the leaf's highest key
  Index index(blocks.bytes());
  EXPECT_EQ(index.find("CC"), 13);
  EXPECT_EQ(errorNumber([&] { index.previous(); }), kOverflow);
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
