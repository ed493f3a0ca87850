#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "tests/support/checked_store.h"

// The trees of the indexes, on one of three levels over the customers.

namespace dg::test {
namespace {

using check::Findings;

constexpr std::int32_t kKeyLength = 4;
constexpr std::int32_t kEntryLength = kKeyLength + 4;
constexpr std::int32_t kRoom = 508 / kEntryLength;
constexpr std::int32_t kCount = 1;
constexpr std::int32_t kNextLeaf = 3;

/// 1-based positions within a node.
constexpr std::int32_t keyAt(std::int32_t entry) {
  return 5 + (entry - 1) * kEntryLength;
}
constexpr std::int32_t pointerAt(std::int32_t entry) {
  return keyAt(entry) + kKeyLength;
}

const CheckedStore& deepStore() {
  static const CheckedStore made{SampleOptions{.seed = 5, .indexFill = 12}};
  return made;
}

class CheckIndex : public CheckedFileTest {
 protected:
  CheckIndex() : CheckedFileTest(deepStore(), "CUSTI", true) {}

  std::int32_t get(std::int64_t block, char op, std::int32_t position) {
    return store.blockField(name, block, op, position);
  }
  void set(std::int64_t block, char op, std::int32_t position, std::int32_t value) {
    store.setBlockField(name, block, op, position, value);
  }
  std::int32_t root() { return get(0, 'C', 9); }
  std::int32_t child(std::int32_t node, std::int32_t entry) {
    return get(node, 'L', pointerAt(entry));
  }
  std::int32_t firstLeaf() {
    std::int32_t node = root();
    while (get(node, 'C', kNextLeaf) == 0)
      node = child(node, 1);
    return node;
  }
  std::int32_t lastLeaf() {
    std::int32_t node = root();
    while (get(node, 'C', kNextLeaf) == 0)
      node = child(node, get(node, 'C', kCount));
    return node;
  }
  std::int32_t lastBlock() { return store.locate(name).entry.LastRecord; }
};

TEST_F(CheckIndex, TheTreeUnderTestIsSoundAndDeep) {
  const Findings findings = store.check();
  EXPECT_EQ(findings.damageCount(), 0) << damageText(findings);
  EXPECT_EQ(get(root(), 'C', kNextLeaf), 0);
  EXPECT_EQ(get(child(root(), 1), 'C', kNextLeaf), 0);
  EXPECT_GE(get(root(), 'C', kCount), 2);
}

TEST_F(CheckIndex, HeadersThatMakeAnIndexUnreadable) {
  for (const std::int32_t length : {0, 4, 509}) {
    set(0, 'C', 1, length);
    expectDamage(store.checkQuick(), check::kind::kIndexEntryLength, 0, 1);
  }
  set(0, 'C', 1, kEntryLength);
  set(0, 'C', 35, 1);
  expectDamage(store.checkQuick(), check::kind::kIndexHeader, 0, 35);
}

TEST_F(CheckIndex, HeaderFieldsThatNoReaderNeedsAreNoted) {
  set(0, 'C', 3, kRoom + 1);
  set(0, 'C', 5, lastBlock() + 1);
  const Findings findings = store.checkQuick();
  expectNote(findings, check::kind::kIndexHeader, 0, 3);
  expectNote(findings, check::kind::kIndexHeader, 0, 5);
  EXPECT_EQ(findings.damageCount(), 0) << damageText(findings);
}

TEST_F(CheckIndex, NodeNumbersOutOfRange) {
  const std::int32_t sound = root();
  for (const std::int32_t number : {0, lastBlock() + 1, 65'535}) {
    set(0, 'C', 9, number);
    expectDamage(store.checkQuick(), check::kind::kIndexNodeRange, 0, 9);
  }
  set(0, 'C', 9, sound);
  for (const std::int32_t number : {-1, 0, 2'000'000'000}) {
    set(sound, 'L', pointerAt(2), number);
    expectDamage(store.checkQuick(), check::kind::kIndexNodeRange, sound, keyAt(2));
  }
}

TEST_F(CheckIndex, ANodeInUseTwice) {
  const std::int32_t top = root();
  set(top, 'L', pointerAt(2), child(top, 1));
  expectDamage(store.checkQuick(), check::kind::kIndexNodeTwice, top, keyAt(2));
  // A tree that leads back to its root never ends for a reader.
  set(top, 'L', pointerAt(2), top);
  expectDamage(store.checkQuick(), check::kind::kIndexNodeTwice, top, keyAt(2));
}

TEST_F(CheckIndex, EntryCountsThatNoNodeHas) {
  const std::int32_t leaf = firstLeaf();
  for (const std::int32_t count : {0, kRoom + 1, 65'535}) {
    set(leaf, 'C', kCount, count);
    const Findings findings = store.check();
    expectDamage(findings, check::kind::kIndexEntryCount, leaf, kCount);
    EXPECT_EQ(findings.damageCount(), 1) << "nothing follows from it\n" << damageText(findings);
  }
}

TEST_F(CheckIndex, KeysOutOfOrderWithinANode) {
  const std::int32_t leaf = firstLeaf();
  set(leaf, 'L', keyAt(1), 2'000'000'000);
  expectDamage(store.checkQuick(), check::kind::kIndexKeyOrder, leaf, keyAt(2));
}

TEST_F(CheckIndex, KeysOutOfOrderFromLeafToLeaf) {
  const std::int32_t second = get(firstLeaf(), 'C', kNextLeaf);
  set(second, 'L', keyAt(1), 0);
  expectDamage(store.checkQuick(), check::kind::kIndexKeyOrder, second, keyAt(1));
}

TEST_F(CheckIndex, ASeparatorThatIsNotTheHighestKeyBelow) {
  const std::int32_t top = root();
  set(top, 'L', keyAt(1), get(top, 'L', keyAt(1)) + 1);
  const Findings findings = store.checkQuick();
  expectDamage(findings, check::kind::kIndexSeparator, top, keyAt(1));
  EXPECT_EQ(findings.damageCount(), 1) << damageText(findings);
}

TEST_F(CheckIndex, AKeyThatStandsTwiceIsNotedWhereNoneMay) {
  const std::int32_t leaf = firstLeaf();
  ASSERT_GE(get(leaf, 'C', kCount), 3);
  set(leaf, 'L', keyAt(2), get(leaf, 'L', keyAt(1)));
  expectNote(store.checkQuick(), check::kind::kIndexRepeatedKey, leaf, keyAt(2));
  set(0, 'C', 13, 65'535);
  EXPECT_TRUE(ofKind(store.checkQuick(), check::kind::kIndexRepeatedKey).empty());
}

TEST_F(CheckIndex, ALeafChainThatIsNotThatOfTheTree) {
  const std::int32_t first = firstLeaf();
  const std::int32_t second = get(first, 'C', kNextLeaf);
  const std::int32_t third = get(second, 'C', kNextLeaf);
  for (const std::int32_t next : {first, third, root(), 65'535, lastBlock() + 1}) {
    set(first, 'C', kNextLeaf, next);
    const Findings findings = store.checkQuick();
    expectDamage(findings, check::kind::kIndexLeafChain, first, kNextLeaf);
    EXPECT_EQ(findings.damageCount(), 1) << damageText(findings);
  }
  set(first, 'C', kNextLeaf, second);
  const std::int32_t last = lastLeaf();
  set(last, 'C', kNextLeaf, first);
  expectDamage(store.checkQuick(), check::kind::kIndexLeafChain, last, kNextLeaf);
}

TEST_F(CheckIndex, NoEndMark) {
  const std::int32_t last = lastLeaf();
  const std::int32_t sentinel = get(last, 'C', kCount);
  const std::int64_t place = at(last, keyAt(sentinel));
  set(last, 'L', pointerAt(sentinel), 1);
  EXPECT_TRUE(hasDamage(store.checkQuick(), check::kind::kIndexSentinel, name, last, place));
  set(last, 'L', pointerAt(sentinel), -1);
  set(last, 'L', keyAt(sentinel), 2'000'000'000);
  EXPECT_TRUE(hasDamage(store.checkQuick(), check::kind::kIndexSentinel, name, last, place));
}

TEST_F(CheckIndex, LeavesAtDifferentLevels) {
  const std::int32_t top = root();
  // The first branch loses its upper node: its first leaf stands a level higher than the others.
  set(top, 'L', pointerAt(1), child(child(top, 1), 1));
  EXPECT_FALSE(ofKind(store.checkQuick(), check::kind::kIndexDepth).empty());
}

TEST_F(CheckIndex, ATreeDeeperThanReadersGo) {
  constexpr std::int32_t kLevels = 8;
  ASSERT_GE(lastBlock(), kLevels);
  set(0, 'C', 9, 1);
  for (std::int32_t node = 1; node <= kLevels; ++node) {
    set(node, 'C', kCount, 1);
    set(node, 'C', kNextLeaf, node < kLevels ? 0 : 65'535);
    set(node, 'L', keyAt(1), -1);
    set(node, 'L', pointerAt(1), node < kLevels ? node + 1 : -1);
  }
  expectDamage(store.checkQuick(), check::kind::kIndexDepth, kLevels - 1, keyAt(1));
}

TEST_F(CheckIndex, EntriesThatLeadToNoRecord) {
  const std::int32_t leaf = firstLeaf();
  const std::int32_t capacity = store.locate("CUSTL").entry.LastRecord;
  for (const std::int32_t record : {0, -1, -5, capacity + 1}) {
    set(leaf, 'L', pointerAt(1), record);
    expectDamage(store.checkQuick(), check::kind::kIndexPointer, leaf, keyAt(1));
  }
  // The first is a free record, the second one that was never handed out.
  for (const std::int32_t record : {store.field("CUSTL", 0, 'L', 3), capacity}) {
    set(leaf, 'L', pointerAt(1), record);
    expectDamage(store.check(), check::kind::kIndexFreeRecord, leaf, keyAt(1));
  }
}

TEST_F(CheckIndex, ARecordInUseThatNoEntryLeadsTo) {
  const std::int32_t leaf = firstLeaf();
  const std::int32_t record = get(leaf, 'L', pointerAt(1));
  set(leaf, 'L', pointerAt(1), get(leaf, 'L', pointerAt(2)));
  const Findings findings = store.check();
  EXPECT_TRUE(hasDamage(findings, check::kind::kUnreached, "CUSTL", record,
                        store.recordOffset("CUSTL", record)));
  expectNote(findings, check::kind::kIndexRecordTwice, leaf, keyAt(2));
  EXPECT_EQ(findings.damageCount(), 1) << damageText(findings);
  EXPECT_EQ(store.checkQuick().damageCount(), 0) << "a quick check reads no records";
}

TEST_F(CheckIndex, NodesBeyondTheEndOfTheDataFile) {
  const std::int64_t begin = store.blockOffset("FPLNI", 0);
  store.inStore("UNITDB").resize(static_cast<std::size_t>(begin) + 512);
  const auto found = ofKind(store.checkQuick(), check::kind::kIndexNodeRange);
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].place.file, "FPLNI");
}

}  // namespace
}  // namespace dg::test
