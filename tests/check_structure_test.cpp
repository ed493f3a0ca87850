#include <gtest/gtest.h>

#include "tests/support/checked_store.h"
#include "tests/support/faulty_file_system.h"

// Link table, terminal table, directories, control file: what a store is found by.

namespace dg {
namespace {

using check::Findings;
using check::Unit;
using test::CheckedStore;
using test::damageText;
using test::hasDamage;
using test::hasNote;
using test::ofKind;

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
  directory += directory.substr(length - 32) + "short";
  const Findings findings = store.check();
  EXPECT_TRUE(hasNote(findings, check::kind::kDirectoryRepeated, "LNK001\\UNITLK",
                      static_cast<std::int64_t>(length) / 32, static_cast<std::int64_t>(length)));
  EXPECT_EQ(ofKind(findings, check::kind::kDirectoryLength).size(), 1U);
}

/// Every read of a check may fail: it goes on with what is left, and tells.
TEST(CheckStructure, AReadThatFailsIsAFindingAndTheCheckGoesOn) {
  CheckedStore store;
  constexpr std::uint64_t kManyReads = 1'000;
  std::uint64_t after = 0;
  for (; after < kManyReads; ++after) {
    const Findings findings = store.check([after](std::unique_ptr<FileSystem> inner) {
      auto faulty = std::make_unique<FaultyFileSystem>(std::move(inner));
      faulty->failAfter(after);
      return faulty;
    });
    if (findings.damageCount() == 0) break;  // fewer reads than that
    ASSERT_EQ(ofKind(findings, check::kind::kUnreadable).size(), 1U) << "read " << after << "\n"
                                                                     << damageText(findings);
  }
  EXPECT_GT(after, 10U);
  EXPECT_LT(after, kManyReads);
}

}  // namespace
}  // namespace dg
