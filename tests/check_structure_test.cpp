#include <gtest/gtest.h>
#include <set>

#include "tests/support/asked_file_system.h"
#include "tests/support/checked_store.h"
#include "tools/sample/store_layout.h"

// Link table, terminal table, directories, control file: what a store is found by.

namespace dg::test {
namespace {

using check::Findings;
using check::Unit;

/// Entries of the example store's link table.
constexpr std::int64_t kLineIndexLink = 2;
constexpr std::int64_t kCustomerIndexLink = 12;
constexpr std::int64_t kLinkEntrySize = 160;

void setResolution(CheckedStore& store, std::int64_t link, const std::string& resolution) {
  std::string padded = resolution;
  padded.resize(79, '\0');
  store.file("LINKSFILE").replace(static_cast<std::size_t>(link * kLinkEntrySize + 81), 79, padded);
}

/// The findings of a kind that stand at a file as a whole.
std::size_t atWhole(const Findings& findings, std::string_view kind, const std::string& file) {
  std::size_t count = 0;
  for (const check::Finding& finding : ofKind(findings, kind)) {
    const bool isDamage = finding.severity == check::Severity::kDamage;
    if (isDamage && finding.place.file == file && finding.place.unit == Unit::kNone) ++count;
  }
  return count;
}

TEST(CheckLinks, ThatLeadNowhere) {
  CheckedStore store;
  setResolution(store, kLineIndexLink, "LNK001:GONELK");
  setResolution(store, kCustomerIndexLink, "LNK001:PARTLK");
  const Findings findings = store.check();
  EXPECT_TRUE(hasDamage(findings, check::kind::kLinkNowhere, "LINKSFILE", kLineIndexLink,
                        kLineIndexLink * kLinkEntrySize));
  EXPECT_TRUE(hasDamage(findings, check::kind::kLinkNowhere, "LINKSFILE", kCustomerIndexLink,
                        kCustomerIndexLink * kLinkEntrySize));
  EXPECT_EQ(findings.damageCount(), 2) << damageText(findings);
}

TEST(CheckLinks, ThatLeadOutOfTheShare) {
  for (const char* resolution : {"..:..:SECRETLK", "LNK001:CON", "LNK001:A*LK"}) {
    CheckedStore store;
    setResolution(store, kLineIndexLink, resolution);
    const Findings findings = store.check();
    EXPECT_TRUE(hasDamage(findings, check::kind::kLinkOutside, "LINKSFILE", kLineIndexLink,
                          kLineIndexLink * kLinkEntrySize))
        << resolution;
  }
}

TEST(CheckLinks, OfOneFileUnderTwoSpellingsAreOneFile) {
  CheckedStore store;
  setResolution(store, kLineIndexLink, "lnk001::PARTLK");
  const Findings findings = store.check();
  EXPECT_EQ(findings.damageCount(), 0) << damageText(findings);
}

TEST(CheckLinks, ATableThatIsNotThereOrHasNothingOfTheStore) {
  CheckedStore missing;
  missing.remove("LINKSFILE");
  EXPECT_EQ(atWhole(missing.check(), check::kind::kLinkTable, "LINKSFILE"), 1U);

  CheckedStore foreign;
  std::string& links = foreign.file("LINKSFILE");
  for (std::size_t at = links.find(":LNK001:"); at != std::string::npos;
       at = links.find(":LNK001:", at)) {
    links.replace(at, 8, ":LNK007:");
  }
  EXPECT_EQ(atWhole(foreign.check(), check::kind::kLinkMissing, "LINKSFILE"), 1U);
}

TEST(CheckLinks, ANameThatNobodyCanAskForAndAFileWithoutALink) {
  CheckedStore store;
  store.file("LINKSFILE").replace(kLineIndexLink * kLinkEntrySize + 1, 8, "XLNK001X");
  const Findings findings = store.check();
  EXPECT_TRUE(hasNote(findings, check::kind::kLinkName, "LINKSFILE", kLineIndexLink,
                      kLineIndexLink * kLinkEntrySize));
  ASSERT_EQ(ofKind(findings, check::kind::kLinkMissing).size(), 1U);
  EXPECT_NE(ofKind(findings, check::kind::kLinkMissing)[0].text.find("LINEI"), std::string::npos);
  EXPECT_EQ(findings.damageCount(), 1) << "the file itself is there\n" << damageText(findings);
}

/// Bytes that got lost move all entries behind them.
TEST(CheckLinks, ATableThatIsShifted) {
  CheckedStore store;
  std::string& links = store.file("LINKSFILE");
  links.erase(kLineIndexLink * kLinkEntrySize, 7);
  const Findings findings = store.check();
  const std::size_t files = std::size(sample::kFileLayouts);
  EXPECT_EQ(atWhole(findings, check::kind::kLinkMissing, "LINKSFILE"), files - kLineIndexLink)
      << damageText(findings);
}

/// A store may do without a part of the suite: then nothing leads to its files, and there are none.
TEST(CheckLinks, APartOfTheSuiteThatTheStoreDoesNotHave) {
  CheckedStore store;
  std::string& links = store.file("LINKSFILE");
  for (const char* name : {"FPLNL", "FPEXL", "FPLNI"}) {
    const std::size_t at = links.find(std::string(":LNK001:") + name);
    ASSERT_NE(at, std::string::npos);
    links.replace(at, 79, 79, '\0');
    const CheckedStore::Located file = store.locate(name);
    store.file(file.stem + "LK")
        .replace(static_cast<std::size_t>(file.entryNumber) * 32, 32, 32, '\0');
  }
  const Findings findings = store.check();
  EXPECT_EQ(findings.damageCount(), 0) << damageText(findings);
  EXPECT_EQ(ofKind(findings, check::kind::kLinkMissing).size(), 3U);
}

TEST(CheckStructure, FilesThatAreNotThere) {
  struct Case {
    const char* removed;
    std::string_view kind;
    const char* file;
  };
  for (const Case& missing : {Case{"ttymap", check::kind::kTerminalTable, "ttymap"},
                              Case{"LNK001\\FILE0", check::kind::kControlFile, "FILE0"},
                              Case{"LNK001\\GLDB", check::kind::kDataFile, "LNK001\\GLLK"}}) {
    CheckedStore store;
    store.remove(missing.removed);
    EXPECT_EQ(atWhole(store.check(), missing.kind, missing.file), 1U) << missing.removed;
  }
}

TEST(CheckStructure, AControlFileThatEndsBeforeItsTables) {
  CheckedStore store;
  store.inStore("FILE0").resize(572 * 512 - 1);
  EXPECT_EQ(atWhole(store.checkQuick(), check::kind::kControlFile, "FILE0"), 1U);
}

TEST(CheckDirectories, EntriesThatGiveNoPlace) {
  struct Case {
    const char* file;
    char op;
    std::int32_t position;  // in the entry
    std::int32_t value;
    std::string_view kind;
  };
  for (const Case& damaged : {Case{"LUNITL", 'C', 14, 0, check::kind::kRecordLength},
                              Case{"LUNITL", 'C', 14, 15, check::kind::kRecordLength},
                              Case{"UNITI", 'C', 14, 256, check::kind::kRecordLength},
                              Case{"UNITL", 'B', 16, 'I', check::kind::kDirectoryType},
                              Case{"UNITI", 'B', 16, 'X', check::kind::kDirectoryType},
                              Case{"UNITL", 'L', 17, -1, check::kind::kDirectoryCapacity},
                              Case{"UNITI", 'L', 17, 0, check::kind::kDirectoryCapacity},
                              Case{"UNITL", 'D', 11, 60'000, check::kind::kDirectoryPastEnd},
                              Case{"FPLNI", 'D', 11, 16'777'215, check::kind::kDirectoryPastEnd}}) {
    CheckedStore store;
    const CheckedStore::Located file = store.locate(damaged.file);
    store.setEntryField(file, damaged.op, damaged.position, damaged.value);
    EXPECT_TRUE(hasDamage(store.checkQuick(), damaged.kind, "LNK001\\UNITLK", file.entryNumber,
                          file.entryNumber * 32))
        << damaged.file << " " << damaged.value;
  }
}

TEST(CheckDirectories, FilesThatShareAPlace) {
  CheckedStore store;
  const CheckedStore::Located ledger = store.locate("LUNITL");
  store.setEntryField(ledger, 'D', 11, ledger.entry.Position - 1);
  EXPECT_TRUE(hasDamage(store.check(), check::kind::kDirectoryOverlap, "LNK001\\UNITLK",
                        ledger.entryNumber, ledger.entryNumber * 32));

  // One whose capacity reaches over all that follow, not only the next.
  CheckedStore wide;
  const CheckedStore::Located units = wide.locate("UNITL");
  wide.setEntryField(units, 'L', 17, units.entry.LastRecord * 3);
  const auto overlaps = ofKind(wide.check(), check::kind::kDirectoryOverlap);
  EXPECT_GE(overlaps.size(), 2U);
}

TEST(CheckDirectories, ADataFileThatEndsBeforeRecordsInUse) {
  CheckedStore store;
  const CheckedStore::Located entries = store.locate("FPLNL");
  const std::int32_t highUsed = store.field("FPLNL", 0, 'L', 7);
  store.inStore("UNITDB").resize(static_cast<std::size_t>(store.recordOffset("FPLNL", highUsed)));
  EXPECT_TRUE(hasDamage(store.check(), check::kind::kDirectoryPastEnd, "LNK001\\UNITLK",
                        entries.entryNumber, entries.entryNumber * 32));
}

TEST(CheckDirectories, NamesThatStandTwiceAndLengthsThatAreOdd) {
  CheckedStore store;
  std::string& directory = store.inStore("UNITLK");
  const std::size_t length = directory.size();
  std::string again = directory.substr(length - 32);
  again.replace(13, 2, 2, '\0');  // as it does not count, its record length says nothing
  directory += again + "short";
  const Findings findings = store.check();
  EXPECT_EQ(findings.damageCount(), 0) << damageText(findings);
  EXPECT_TRUE(hasNote(findings, check::kind::kDirectoryRepeated, "LNK001\\UNITLK",
                      static_cast<std::int64_t>(length) / 32, static_cast<std::int64_t>(length)));
  EXPECT_EQ(ofKind(findings, check::kind::kDirectoryLength).size(), 1U);
}

/// A check over a store whose reads fail after a number of them.
Findings checkFailing(CheckedStore& store, std::uint64_t after, bool forEver) {
  return store.check([=](std::unique_ptr<FileSystem> inner) {
    return failingAfter(after, forEver, std::move(inner));
  });
}

/// The line to the share may break at any moment: what cannot be read is told where it is, and the
/// check comes to its end.
TEST(CheckStructure, WhatCannotBeReadIsAFindingAndTheCheckGoesOn) {
  CheckedStore store;
  constexpr std::uint64_t kManyReads = 1'000;
  std::set<std::string> unreadable;
  std::uint64_t after = 0;
  for (; after < kManyReads; ++after) {
    const Findings findings = checkFailing(store, after, true);
    if (findings.damageCount() == 0) break;  // fewer reads than that
    const auto found = ofKind(findings, check::kind::kUnreadable);
    EXPECT_FALSE(found.empty()) << "read " << after << "\n" << damageText(findings);
    for (const check::Finding& finding : found)
      unreadable.insert(finding.place.file);
  }
  EXPECT_LT(after, kManyReads);
  for (const char* file : {"LINKSFILE", "ttymap", "LNK001\\PARTLK", "PARTI", "INVOL", "FILE0"})
    EXPECT_TRUE(unreadable.contains(file)) << file;
}

/// One read that fails takes no neighbours with it: each place is read again by itself.
TEST(CheckStructure, AReadThatFailsOnceIsMadeAgain) {
  CheckedStore store;
  for (std::uint64_t after = 0; after < 30; ++after) {
    const Findings findings = checkFailing(store, after, false);
    EXPECT_EQ(findings.damageCount(), 0) << "read " << after << "\n" << damageText(findings);
  }
}

}  // namespace
}  // namespace dg::test
