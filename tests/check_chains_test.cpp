#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/checked_store.h"

// Page chains and the tables that lead to them, ledger and extent chains, document files.

namespace dg::test {
namespace {

using check::Findings;

constexpr std::int32_t kLink = 110;
constexpr std::int32_t kPage = 115;
constexpr std::int32_t kLines = 146;
constexpr std::int32_t kFirstJobBlock = 451;

/// A slot of the control file that leads to a document, as its block and 1-based position.
struct Slot {
  std::int32_t block = 0;
  std::int32_t position = 0;
};

class CheckChains : public ::testing::Test {
 protected:
  CheckedStore store;

  std::int64_t at(const std::string& file, std::int64_t record, std::int32_t position) {
    return store.recordOffset(file, record) + position - 1;
  }
  void expectDamage(const Findings& findings, std::string_view kind, const std::string& file,
                    std::int64_t record, std::int32_t position) {
    EXPECT_TRUE(hasDamage(findings, kind, file, record, at(file, record, position)));
  }
  static std::int64_t at(const Slot& slot) { return slot.block * 512 + slot.position - 1; }
  std::int32_t recordOf(const Slot& slot) { return store.controlField(slot.block, slot.position); }
  void setRecord(const Slot& slot, std::int32_t record) {
    store.setControlField(slot.block, slot.position, record);
  }

  /// The pages of a document from the record that is led to, to page 1.
  std::vector<std::int32_t> pages(std::int32_t record) {
    std::vector<std::int32_t> found{record};
    while (store.field("INVOL", found.back(), 'B', kPage) != 1)
      found.push_back(std::abs(store.field("INVOL", found.back(), 'K', kLink)));
    return found;
  }
  /// The slots of jobs with so many pages.
  std::vector<Slot> jobs(std::size_t pageCount) {
    std::vector<Slot> found;
    for (std::int32_t block = kFirstJobBlock; block <= 458; ++block) {
      for (std::int32_t position = 1; position < 512; position += 4) {
        const Slot slot{.block = block, .position = position};
        if (recordOf(slot) > 0 && pages(recordOf(slot)).size() == pageCount) found.push_back(slot);
      }
    }
    if (found.size() < 2) throw std::logic_error("the example store has too few such jobs");
    return found;
  }
  Slot savedInvoice() {
    for (std::int32_t block = 301; block <= 325; ++block) {
      for (std::int32_t position = 5; position <= 125; position += 4) {
        if (store.controlField(block, position) > 0) return {.block = block, .position = position};
      }
    }
    throw std::logic_error("the example store has no saved invoice in a first group");
  }
  /// A record that is free: above the highest.
  std::int32_t unusedRecord(const std::string& file) { return store.field(file, 0, 'L', 7) + 1; }
};

TEST_F(CheckChains, PageNumbersThatThereAreNot) {
  const std::int32_t start = recordOf(jobs(3)[0]);
  for (const std::int32_t page : {0, 201, 255}) {
    store.setField("INVOL", start, 'B', kPage, page);
    const Findings findings = store.check();
    expectDamage(findings, check::kind::kPageNumber, "INVOL", start, kPage);
    EXPECT_EQ(findings.damageCount(), 1) << damageText(findings);
  }
}

TEST_F(CheckChains, APageThatStandsTwiceAndOneThatIsMissing) {
  const std::vector<std::int32_t> document = pages(recordOf(jobs(3)[0]));
  const std::int32_t other = store.field("INVOL", document[0], 'B', kPage);
  store.setField("INVOL", document[1], 'B', kPage, other);
  expectDamage(store.check(), check::kind::kPageNumber, "INVOL", document[1], kPage);

  store.setField("INVOL", document[1], 'B', kPage, 200);
  expectDamage(store.check(), check::kind::kPageGap, "INVOL", document[0], 1);
}

TEST_F(CheckChains, LinksThatLeadToNoPage) {
  const std::vector<std::int32_t> document = pages(recordOf(jobs(2)[0]));
  const std::int32_t capacity = store.locate("INVOL").entry.LastRecord;
  for (const std::int32_t link : {0, unusedRecord("INVOL"), -(capacity + 1), 8'388'607}) {
    store.setField("INVOL", document[0], 'K', kLink, link);
    expectDamage(store.check(), check::kind::kPageLink, "INVOL", document[0], kLink);
  }
}

TEST_F(CheckChains, PagesThatGoInACircle) {
  const std::vector<std::int32_t> document = pages(recordOf(jobs(3)[0]));
  store.setField("INVOL", document[1], 'K', kLink, -document[0]);
  expectDamage(store.check(), check::kind::kPageLoop, "INVOL", document[1], kLink);
}

TEST_F(CheckChains, DocumentsThatMeetAreNoted) {
  const std::vector<Slot> twoPages = jobs(2);
  const std::int32_t first = recordOf(twoPages[0]);
  const std::int32_t second = recordOf(twoPages[1]);
  store.setField("INVOL", second, 'K', kLink, pages(first)[1]);
  EXPECT_TRUE(hasNote(store.check(), check::kind::kPageShared, "INVOL", second,
                      at("INVOL", second, kLink)));

  setRecord(twoPages[1], first);
  const Findings findings = store.check();
  EXPECT_TRUE(
      hasNote(findings, check::kind::kPageShared, "FILE0", twoPages[1].block, at(twoPages[1])));
  EXPECT_EQ(ofKind(findings, check::kind::kPagesUnreached).size(), 1U);
}

TEST_F(CheckChains, MoreLinesThanARecordHasRoomFor) {
  const std::int32_t lastPage = pages(recordOf(jobs(2)[0])).back();
  store.setField("INVOL", lastPage, 'B', kLines, 20);
  const Findings findings = store.check();
  expectDamage(findings, check::kind::kPageLines, "INVOL", lastPage, kLines);
  EXPECT_EQ(findings.damageCount(), 1) << damageText(findings);
}

TEST_F(CheckChains, SlotsThatLeadNowhere) {
  const Slot job = jobs(1)[0];
  const Slot saved = savedInvoice();
  const std::int32_t capacity = store.locate("INVOL").entry.LastRecord;
  for (const std::int32_t record : {capacity + 1, unusedRecord("INVOL"), 2'000'000'000}) {
    setRecord(job, record);
    setRecord(saved, record);
    const Findings findings = store.check();
    EXPECT_TRUE(hasDamage(findings, check::kind::kJobSlot, "FILE0", job.block, at(job)));
    EXPECT_TRUE(hasDamage(findings, check::kind::kSavedSlot, "FILE0", saved.block, at(saved)));
  }
  // Below 1 a job's slot is free. A saved invoice's is only when it is 0.
  setRecord(job, -7);
  setRecord(saved, -7);
  const Findings findings = store.check();
  EXPECT_TRUE(ofKind(findings, check::kind::kJobSlot).empty());
  EXPECT_TRUE(hasDamage(findings, check::kind::kSavedSlot, "FILE0", saved.block, at(saved)));
}

TEST_F(CheckChains, TicketsAndClaimsAreWalkedToo) {
  // Whatever leads to a document, all its pages are looked at: none of a file is left out.
  for (const char* file : {"INVOL", "WARRL"}) {
    for (const std::int64_t record : store.used(file)) {
      if (record % 25 != 0) continue;
      const std::int32_t lines = store.field(file, record, 'B', kLines);
      store.setField(file, record, 'B', kLines, 99);
      expectDamage(store.check(), check::kind::kPageLines, file, record, kLines);
      store.setField(file, record, 'B', kLines, lines);
    }
  }
}

/// The two kinds of chains of records: file and field that begin them, file and field that go on.
struct RecordChainCase {
  const char* heads;
  char headOpcode;
  std::int32_t headPosition;
  const char* links;
  char linkOpcode;
  std::int32_t linkPosition;
};

class CheckRecordChains : public CheckChains,
                          public ::testing::WithParamInterface<RecordChainCase> {
 protected:
  std::int32_t first(std::int64_t head) {
    return store.field(GetParam().heads, head, GetParam().headOpcode, GetParam().headPosition);
  }
  std::int32_t next(std::int64_t record) {
    return store.field(GetParam().links, record, GetParam().linkOpcode, GetParam().linkPosition);
  }
  void setFirst(std::int64_t head, std::int32_t record) {
    store.setField(GetParam().heads, head, GetParam().headOpcode, GetParam().headPosition, record);
  }
  void setNext(std::int64_t record, std::int32_t following) {
    store.setField(GetParam().links, record, GetParam().linkOpcode, GetParam().linkPosition,
                   following);
  }
  /// Heads of chains of at least two records.
  std::vector<std::int64_t> heads() {
    std::vector<std::int64_t> found;
    for (const std::int64_t head : store.used(GetParam().heads)) {
      if (first(head) != 0 && next(first(head)) != 0) found.push_back(head);
    }
    EXPECT_GE(found.size(), 2U);
    return found;
  }
};

TEST_P(CheckRecordChains, LeadToRecordsInUse) {
  const RecordChainCase& chain = GetParam();
  const std::int64_t head = heads()[0];
  const std::int32_t record = first(head);
  for (const std::int32_t wrong : {unusedRecord(chain.links), store.field(chain.links, 0, 'L', 3),
                                   store.locate(chain.links).entry.LastRecord + 1}) {
    setFirst(head, wrong);
    expectDamage(store.check(), check::kind::kChainLink, chain.heads, head, chain.headPosition);
    setFirst(head, record);
    const std::int32_t following = next(record);
    setNext(record, wrong);
    expectDamage(store.check(), check::kind::kChainLink, chain.links, record, chain.linkPosition);
    setNext(record, following);
  }
  EXPECT_EQ(store.check().damageCount(), 0);
}

TEST_P(CheckRecordChains, EndAndStayApart) {
  const RecordChainCase& chain = GetParam();
  const std::vector<std::int64_t> found = heads();
  const std::int32_t record = first(found[0]);
  const std::int32_t following = next(record);
  const std::int32_t afterThat = next(following);
  setNext(following, record);
  expectDamage(store.check(), check::kind::kChainLoop, chain.links, following, chain.linkPosition);
  setNext(following, afterThat);
  setFirst(found[1], following);
  expectDamage(store.check(), check::kind::kChainShared, chain.heads, found[1], chain.headPosition);
}

INSTANTIATE_TEST_SUITE_P(Kinds, CheckRecordChains,
                         ::testing::Values(RecordChainCase{"UNITL", 'L', 505, "LUNITL", 'L', 61},
                                           RecordChainCase{"FPLNL", 'D', 94, "FPEXL", 'D', 29}),
                         [](const auto& chain) { return std::string(chain.param.links); });

class CheckDocuments : public CheckChains {
 protected:
  /// Byte of the entry of a document in the data file of its index, and its block.
  std::pair<std::int64_t, std::int64_t> entry(const std::string& index, const std::string& name) {
    const std::string& data = store.file(store.locate(index).stem + "DB");
    const auto begin = static_cast<std::size_t>(store.blockOffset(index, 1));
    // Separators hold keys as well, with a node's number behind them; the leaf's comes from a node
    // whose link is not 0.
    for (std::size_t at = data.find(name, begin); at != std::string::npos;
         at = data.find(name, at + 1)) {
      const auto block = static_cast<std::int64_t>(at - begin) / 512 + 1;
      if (store.blockField(index, block, 'C', 3) != 0)
        return {block, static_cast<std::int64_t>(at)};
    }
    throw std::logic_error("no entry of " + name);
  }
};

TEST_F(CheckDocuments, OfALengthThatNoDocumentHas) {
  for (const std::size_t size : {std::size_t{38 * 7 + 1}, std::size_t{38 * 6}, std::size_t{0}}) {
    store.inStore("V00001").assign(size, '\0');
    const auto [block, offset] = entry("PUTBI", "V00001");
    const Findings findings = store.check();
    EXPECT_TRUE(hasDamage(findings, check::kind::kDocumentLength, "PUTBI", block, offset)) << size;
    EXPECT_EQ(findings.damageCount(), 1) << damageText(findings);
  }
}

TEST_F(CheckDocuments, ThatAreNotThereAreNoted) {
  store.remove("LNK001\\V00001");
  const auto [block, offset] = entry("PUTBI", "V00001");
  const Findings findings = store.check();
  EXPECT_TRUE(hasNote(findings, check::kind::kDocumentMissing, "PUTBI", block, offset));
  EXPECT_EQ(findings.damageCount(), 0) << damageText(findings);
}

TEST_F(CheckDocuments, OfNamesThatNoFileHas) {
  const auto [block, offset] = entry("PUTBI", "V00001");
  for (const char* name : {"..\\A\0", "..\0\0\0", "\0\0\0\0\0"}) {
    store.inStore("GLDB").replace(static_cast<std::size_t>(offset), 6, std::string(name, 5) + '\0');
    EXPECT_TRUE(hasDamage(store.check(), check::kind::kDocumentName, "PUTBI", block, offset));
  }
}

}  // namespace
}  // namespace dg::test
