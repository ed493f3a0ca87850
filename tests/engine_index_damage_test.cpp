// Indexes that no writer makes: each has an end, and tells.
#include <gtest/gtest.h>
#include <random>

#include "tests/support/error_number.h"
#include "tests/support/index_walk.h"
#include "tests/support/raised.h"

namespace dg::test {
namespace {

using namespace std::string_literals;

TEST(EngineIndexDamage, ANodeOutOfRangeIsToldAndEndsTheSearch) {
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

TEST(EngineIndexDamage, ASearchThatFindsNoEntryMovesRight) {
  // The root's separators are lower than its leaves' keys: the search must go on along the chain.
  Blocks blocks(6, 1);
  blocks.put('B', 3, 18);  // where the header's byte stands for the level
  blocks.node(1, 0).entry("\xFF\xFF", 2);
  blocks.node(1, 3).entry("AA", 7);
  blocks.node(1, 65535).entry("CC", 8);
  Index index(blocks.bytes());
  EXPECT_EQ(index.find("BB"), -8);
  EXPECT_EQ(index.node(3), 3);
  EXPECT_EQ(index.node(2), 2);
  EXPECT_EQ(index.depth(), 2);
  // At the end of the chain the cursor keeps the header's bytes.
  EXPECT_EQ(index.find("DD"), 0);
  EXPECT_EQ(index.key(), "DD");
  EXPECT_EQ(index.depth(), 3);
}

TEST(EngineIndexDamage, WalksThatNeverEndOverflow) {
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

TEST(EngineIndexDamage, DeeperTreesThanTheCursorHoldsOverflow) {
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

TEST(EngineIndexDamage, KeysOfNoLengthAndLess) {
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

TEST(EngineIndexDamage, EntriesBeyondTheNodeRaiseWhatTheCodecRaises) {
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

TEST(EngineIndexDamage, NegativeNodeNumbersAreNoPlaces) {
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

TEST(EngineIndexDamage, ATextThatIsNoCursorIsRefused) {
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

TEST(EngineIndexDamage, AParentThatDoesNotKnowItsChildOverflows) {
  Blocks blocks(6, 3);
  blocks.node(1, 2).entry("AA", 11);
  blocks.node(2, 65535).entry("CC", 13).entry("\xFF\xFF", -1);
  blocks.node(2, 0).entry("AA", 1).entry("\xFF\xFE", 2);  // not the leaf's highest key
  Index index(blocks.bytes());
  EXPECT_EQ(index.find("CC"), 13);
  EXPECT_EQ(errorNumber([&] { index.previous(); }), kOverflow);
}

}  // namespace
}  // namespace dg::test
