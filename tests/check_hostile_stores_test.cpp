#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <string>

#include "tests/support/checked_store.h"
#include "tools/check/findings.h"
#include "tools/sample/random.h"
#include "tools/sample/store_layout.h"

// Whatever stands in the files: a check comes to an end, within its memory, and its findings are
// bounded.

namespace dg::test {
namespace {

using check::Findings;

constexpr std::array<const char*, 13> kFiles = {
    "LINKSFILE",      "LNK001\\PARTLK", "LNK001\\CUSTLK", "LNK001\\GLLK", "LNK001\\INVOLK",
    "LNK001\\UNITLK", "LNK001\\PARTDB", "LNK001\\CUSTDB", "LNK001\\GLDB", "LNK001\\INVODB",
    "LNK001\\UNITDB", "LNK001\\FILE0",  "ttymap"};

/// Bytes that make odd numbers of the fields they fall on.
constexpr std::array<char, 6> kBytes = {'\0', '\1', '\x7f', '\x80', '\xfe', '\xff'};

void overwrite(sample::Random& random, std::string& file, std::size_t begin, std::size_t end) {
  const auto at = begin + static_cast<std::size_t>(random.below(end - begin));
  const auto length = static_cast<std::size_t>(random.between(1, 6));
  for (std::size_t i = at; i < std::min(at + length, end); ++i)
    file[i] = random.pick(kBytes);
}

/// Most of it falls on headers, trees and the first records, where it leads astray: tables that
/// are destroyed altogether lead nowhere.
TEST(CheckHostileStores, BytesOverwrittenAnywhere) {
  const CheckedStore sound;
  for (std::uint64_t seed = 1; seed <= 60; ++seed) {
    sample::Random random(seed, "damage");
    CheckedStore store = sound;
    for (int place = 0; place < 150; ++place) {
      constexpr std::int64_t kMost = 20'000;
      CheckedStore::Located file =
          store.locate(std::string(random.pick(sample::kFileLayouts).name));
      std::string& data = store.file(file.stem + "DB");
      const std::int64_t length =
          std::min(kMost, (file.entry.LastRecord + std::int64_t{1}) * file.entry.RecordLength);
      overwrite(random, data, static_cast<std::size_t>(file.begin()),
                static_cast<std::size_t>(file.begin() + length));
    }
    for (int place = 0; place < 20; ++place)
      overwrite(random, store.inStore("FILE0"), 301 * 512, 572 * 512);
    std::string& table = store.file(random.pick(kFiles));
    overwrite(random, table, 0, table.size());

    const Findings findings = store.check();
    EXPECT_GT(findings.damageCount(), 10) << "seed " << seed;
    for (const check::FileFindings& file : findings.files())
      EXPECT_LE(file.kept.size(), 1000U) << file.file;
  }
}

TEST(CheckHostileStores, FilesCutAnywhere) {
  const CheckedStore sound;
  for (std::uint64_t seed = 1; seed <= 26; ++seed) {
    sample::Random random(seed, "cut");
    CheckedStore store = sound;
    std::string& file = store.file(kFiles[seed % kFiles.size()]);
    file.resize(static_cast<std::size_t>(random.below(file.size() / 2)));
    const Findings findings = store.check();
    EXPECT_GT(findings.damageCount() + findings.noteCount(), 0) << "seed " << seed;
  }
}

/// Every directory entry claims all that its numbers can claim.
TEST(CheckHostileStores, CapacitiesBeyondAllMeasure) {
  CheckedStore store;
  for (const char* name : {"PARTL", "CUSTL", "INVOL", "UNITL", "LUNITL", "FPEXL", "UNITI"}) {
    const CheckedStore::Located file = store.locate(name);
    store.setEntryField(file, 'L', 17, 2'147'483'647);
    if (file.entry.FileType == "L") {
      store.setField(name, 0, 'L', 7, 2'147'483'647);
      store.setField(name, 0, 'L', 11, 2'147'483'647);
    }
  }
  EXPECT_GT(store.check().damageCount(), 0);
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
