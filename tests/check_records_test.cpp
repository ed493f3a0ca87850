#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

#include "tests/support/checked_store.h"

// Record zero, the free chain, and what is in use.

namespace dg::test {
namespace {

using check::Findings;

constexpr std::int32_t kFreeHead = 3;
constexpr std::int32_t kHighUsed = 7;
constexpr std::int32_t kActiveCount = 11;
constexpr std::int32_t kInUse = 1;
constexpr std::int32_t kNextFree = 3;

/// A store and its file of customers, which has free records.
class CheckRecords : public CheckedFileTest {
 protected:
  CheckRecords() : CheckedFileTest(CheckedStore(), "CUSTL", false) {}

  std::int32_t recordZero(std::int32_t position) { return store.field(name, 0, 'L', position); }
  void setRecordZero(std::int32_t position, std::int32_t value) {
    store.setField(name, 0, 'L', position, value);
  }
  /// The records of the free chain in its order: at least three.
  std::vector<std::int32_t> freeChain() {
    std::vector<std::int32_t> chain;
    for (std::int32_t record = recordZero(kFreeHead); record >= 1;
         record = store.field(name, record, 'L', kNextFree)) {
      chain.push_back(record);
    }
    EXPECT_GE(chain.size(), 3U);
    return chain;
  }
};

TEST_F(CheckRecords, AMarkerThatIsNotTheUsualOneIsNoted) {
  store.setField(name, 0, 'J', 1, 7);
  expectNote(store.checkQuick(), check::kind::kMarker, 0, 1);
}

TEST_F(CheckRecords, AFreeHeadOutOfRange) {
  for (const std::int32_t head : {recordZero(kHighUsed) + 1, 2'000'000'000}) {
    setRecordZero(kFreeHead, head);
    expectDamage(store.checkQuick(), check::kind::kFreeHead, 0, kFreeHead);
    expectDamage(store.check(), check::kind::kFreeHead, 0, kFreeHead);
  }
}

TEST_F(CheckRecords, AHighestRecordBeyondTheCapacityOrBelowZero) {
  for (const std::int32_t highUsed : {store.locate(name).entry.LastRecord + 1, -1}) {
    setRecordZero(kHighUsed, highUsed);
    expectDamage(store.checkQuick(), check::kind::kHighUsed, 0, kHighUsed);
  }
}

TEST_F(CheckRecords, ARecordInUseAboveTheHighest) {
  setRecordZero(kHighUsed, static_cast<std::int32_t>(store.used(name).back()) - 1);
  expectDamage(store.check(), check::kind::kHighUsed, 0, kHighUsed);
}

TEST_F(CheckRecords, ACountThatIsNotTheNumberOfRecordsInUse) {
  const std::int32_t count = recordZero(kActiveCount);
  for (const std::int32_t wrong : {count - 1, count + 1, -1}) {
    setRecordZero(kActiveCount, wrong);
    expectDamage(store.check(), check::kind::kActiveCount, 0, kActiveCount);
  }
  setRecordZero(kActiveCount, recordZero(kHighUsed) + 1);
  expectDamage(store.checkQuick(), check::kind::kActiveCount, 0, kActiveCount);
}

TEST_F(CheckRecords, AnExtensionFileThatCountsOtherwiseIsNoted) {
  store.setField("ECUSTL", 0, 'L', kActiveCount, 1);
  const Findings findings = store.check();
  EXPECT_TRUE(hasNote(findings, check::kind::kActiveCount, "ECUSTL", 0,
                      store.recordOffset("ECUSTL", 0) + kActiveCount - 1));
  EXPECT_EQ(findings.damageCount(), 0) << damageText(findings);
}

TEST_F(CheckRecords, AFreeChainThatLoops) {
  const std::vector<std::int32_t> chain = freeChain();
  store.setField(name, chain.back(), 'L', kNextFree, chain[1]);
  const Findings findings = store.check();
  expectDamage(findings, check::kind::kFreeLoop, chain.back(), kNextFree);
  EXPECT_EQ(findings.damageCount(), 1) << damageText(findings);
}

TEST_F(CheckRecords, AFreeChainThatLeavesTheFile) {
  const std::int32_t last = freeChain().back();
  for (const std::int32_t beyond : {recordZero(kHighUsed) + 1, 2'000'000'000}) {
    store.setField(name, last, 'L', kNextFree, beyond);
    expectDamage(store.check(), check::kind::kFreeRange, last, kNextFree);
  }
}

TEST_F(CheckRecords, ARecordInUseOnTheFreeChain) {
  const std::int64_t used = store.used(name)[5];
  store.setField(name, freeChain().back(), 'L', kNextFree, static_cast<std::int32_t>(used));
  expectDamage(store.check(), check::kind::kFreeUsed, used, kInUse);
}

TEST_F(CheckRecords, FreedRecordsThatTheChainDoesNotReach) {
  const std::vector<std::int32_t> chain = freeChain();
  store.setField(name, chain[0], 'L', kNextFree, -1);
  const std::int32_t firstLost = *std::min_element(chain.begin() + 1, chain.end());
  const Findings findings = store.check();
  expectDamage(findings, check::kind::kFreeLost, firstLost, kInUse);
  EXPECT_EQ(findings.damageCount(), 1) << damageText(findings);
}

TEST_F(CheckRecords, AFreeRecordThatWasNotClearedIsNoted) {
  const std::int32_t free = freeChain()[1];
  store.setField(name, free, 'L', 20, 12'345);
  expectNote(store.check(), check::kind::kFreeContent, free, kInUse);
}

TEST_F(CheckRecords, ARecordThatLostItsMarkIsFoundByItsIndex) {
  const std::int64_t record = store.used(name)[7];
  store.setField(name, record, 'J', kInUse, 0);
  const Findings findings = store.check();
  expectNote(findings, check::kind::kNotMarked, record, kInUse);
  ASSERT_EQ(ofKind(findings, check::kind::kIndexFreeRecord).size(), 1U);
  EXPECT_EQ(ofKind(findings, check::kind::kIndexFreeRecord)[0].place.file, "CUSTI");
}

/// Readers join a record and the one of the same number in the extension file, or fail.
TEST_F(CheckRecords, ARecordThatTheExtensionFileCannotContinue) {
  const std::int64_t last = store.used(name).back();
  const CheckedStore::Located extension = store.locate("ECUSTL");
  store.setEntryField(extension, 'L', 17, static_cast<std::int32_t>(last) - 1);
  expectDamage(store.check(), check::kind::kExtensionShort, last, 1);
  store.setEntryField(extension, 'L', 17, static_cast<std::int32_t>(last));
  EXPECT_TRUE(ofKind(store.check(), check::kind::kExtensionShort).empty());
}

}  // namespace
}  // namespace dg::test
