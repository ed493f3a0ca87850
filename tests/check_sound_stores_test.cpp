#include <gtest/gtest.h>

#include "tests/support/checked_store.h"

namespace dg::test {
namespace {

using check::Findings;

TEST(CheckSoundStores, HaveNoDamageWhateverTheirSeedSizeAndTrees) {
  std::vector<SampleOptions> stores = {{.seed = 31, .scale = 2, .indexFill = 100},
                                       {.seed = 32, .scale = 5, .indexFill = 1},
                                       {.seed = 33, .scale = 12, .indexFill = 30}};
  for (std::uint64_t seed = 1; seed <= 10; ++seed)
    stores.push_back({.seed = seed, .warrantySegments = seed % 2 == 0});
  for (const SampleOptions& options : stores) {
    CheckedStore store(options);
    const Findings findings = store.check();
    EXPECT_EQ(findings.damageCount(), 0) << "seed " << options.seed << "\n" << damageText(findings);
  }
}

/// What an example store holds on purpose, because real ones do.
TEST(CheckSoundStores, HaveNotesForWhatIsOddAndLegal) {
  CheckedStore store;
  const Findings findings = store.check();
  for (const std::string_view kind :
       {check::kind::kLinkRepeated, check::kind::kLinkShort, check::kind::kLinkNowhere,
        check::kind::kDirectoryFlagged, check::kind::kIndexRecordTwice,
        check::kind::kDocumentMissing}) {
    EXPECT_FALSE(ofKind(findings, kind).empty()) << kind;
  }
}

TEST(CheckSoundStores, MayHaveMoreOfWhatIsLegal) {
  CheckedStore store;
  // A blank record that was handed out and is on no free chain.
  const std::int32_t highUsed = store.field("LUNITL", 0, 'L', 7);
  store.setField("LUNITL", 0, 'L', 7, highUsed + 1);
  // A file that is shorter than its capacity asks for: only records that nobody has are cut off.
  std::string& data = store.inStore("UNITDB");
  const std::int64_t end = store.blockOffset("FPLNI", store.locate("FPLNI").entry.LastRecord + 1);
  ASSERT_EQ(static_cast<std::int64_t>(data.size()), end);
  data.resize(data.size() - 512);
  // A workstation table without a terminal, and a control file that ends within a block.
  store.file("ttymap") = "LONELY\r\n";
  store.inStore("FILE0").resize(store.inStore("FILE0").size() - 100);

  const Findings findings = store.check();
  EXPECT_EQ(findings.damageCount(), 0) << damageText(findings);
  for (const std::string_view kind : {check::kind::kBlankRecords, check::kind::kDirectoryPastEnd,
                                      check::kind::kTerminalTable, check::kind::kControlFile}) {
    EXPECT_EQ(ofKind(findings, kind).size(), 1U) << kind;
  }
}

}  // namespace
}  // namespace dg::test
