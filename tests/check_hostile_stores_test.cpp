#include <gtest/gtest.h>
#include <string>

#include "tests/support/checked_store.h"
#include "tests/support/damage.h"
#include "tools/check/findings.h"

// Whatever stands in the files: a check comes to an end, within its memory, and its findings are
// bounded.

namespace dg::test {
namespace {

using check::Findings;

TEST(CheckHostileStores, AreExaminedToTheEndWhateverTheirDamage) {
  const Damager damager(composeSampleStore({}));
  const std::uint64_t copies = 4 * Damager::kinds().size();
  std::uint64_t damaged = 0;
  for (std::uint64_t number = 0; number < copies; ++number) {
    const DamagedStore copy = damager.make(number);
    CheckedStore store(copy.files);
    const Findings findings = store.check();
    damaged += findings.damageCount() > 0 ? 1 : 0;
    for (const check::FileFindings& file : findings.files())
      EXPECT_LE(file.kept.size(), 1000U) << copy.story << " in " << file.file;
  }
  EXPECT_GT(damaged, copies / 2);
}

TEST(CheckFindings, KeepDamageBeforeNotesAndCountTheRest) {
  Findings findings(3);
  const check::Place place{.file = "A", .physical = "A"};
  for (int i = 0; i < 5; ++i)
    findings.note(check::kind::kBlankRecords, place, "note " + std::to_string(i));
  findings.damage(check::kind::kFreeLoop, place, "first damage");
  findings.damage(check::kind::kFreeLoop, place, "second damage");
  findings.note(check::kind::kBlankRecords, {.file = "B", .physical = "B"}, "another file's");
  ASSERT_EQ(findings.files().size(), 2U);
  const check::FileFindings& file = findings.files()[0];
  ASSERT_EQ(file.kept.size(), 3U);
  EXPECT_EQ(file.kept[0].text, "note 0");
  EXPECT_EQ(file.kept[1].text, "first damage");
  EXPECT_EQ(file.kept[2].text, "second damage");
  EXPECT_EQ(file.moreNotes, 4);
  EXPECT_EQ(file.moreDamage, 0);
  for (int i = 0; i < 4; ++i)
    findings.damage(check::kind::kFreeLoop, place, "more damage");
  EXPECT_EQ(findings.files()[0].moreNotes, 5);
  EXPECT_EQ(findings.files()[0].moreDamage, 3);
  EXPECT_EQ(findings.damageCount(), 6);
  EXPECT_EQ(findings.noteCount(), 6);
}

}  // namespace
}  // namespace dg::test
