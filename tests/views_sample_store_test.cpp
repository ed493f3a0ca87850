#include <cstdlib>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "tests/support/raw_store.h"
#include "tests/support/view_run.h"
#include "tools/sample/sample_store.h"
#include "views/operational/floor_plan.h"
#include "views/operational/open_sales.h"
#include "views/operational/shop.h"
#include "views/operational/units.h"
#include "views/operational/warranty.h"

namespace dg::test {
namespace {

constexpr std::size_t kBlock = 512;

/// What the operational views' recap labels must show, added up from a store's bytes.
class StoreTotals {
 public:
  explicit StoreTotals(const RawStore& store) : store_(store) {}

  std::int64_t shopJobs() const {
    std::int64_t cents = 0;
    for (const std::int32_t job : jobs()) {
      const std::string record = store_.record("INVOL", job);
      if (record.at(98) != 'B') cents += signedAt(record, 125, 4);
    }
    return cents;
  }

  std::int64_t openSales() const {
    std::int64_t cents = 0;
    for (const auto& [key, record] : store_.entries("TICKI"))
      cents += signedAt(pageOne("INVOL", record), 125, 4);
    for (std::size_t group = 301 * kBlock; group < 326 * kBlock; group += 128) {
      for (std::size_t slot = group + 4; slot < group + 128; slot += 4) {
        const auto record = static_cast<std::int32_t>(signedAt(store_.controlFile(), slot + 1, 4));
        if (record != 0) cents += signedAt(pageOne("INVOL", record), 125, 4);
      }
    }
    return cents;
  }

  std::int64_t warranties() const {
    std::int64_t cents = 0;
    for (const auto& [key, record] : store_.entries("WARRI")) {
      const std::string claim = store_.record("WARRL", record);
      const bool listed = unsignedAt(claim, 1, 2) == 1 && unsignedAt(claim, 401, 2) == 0 &&
                          unsignedAt(claim, 403, 3) > 10'168;
      if (listed) cents += lineTotal("WARRL", record);
    }
    return cents;
  }

  /// By the unit file, not by its index.
  std::int64_t units() const {
    const std::set<std::int64_t> lines = linesOfUnits();
    std::int64_t cents = 0;
    for (std::int32_t number = 1; number <= store_.lastRecord("UNITL"); ++number) {
      const std::string unit = store_.record("UNITL", number);
      if (unsignedAt(unit, 1, 2) != 1 || unsignedAt(unit, 149, 2) > 1) continue;
      if (!lines.contains(unsignedAt(unit, 3, 2))) continue;
      auto next = static_cast<std::int32_t>(signedAt(unit, 505, 4));
      for (; next != 0; next = static_cast<std::int32_t>(signedAt(ledger(next), 61, 4)))
        cents += signedAt(ledger(next), 57, 4);
    }
    return cents;
  }

  /// By the floor plan's own file, not by its index.
  std::int64_t floorPlan() const {
    std::map<std::string, std::int32_t> parts;
    for (const auto& [key, record] : store_.entries("PARTI"))
      parts[key] = record;
    std::int64_t cents = 0;
    for (std::int32_t number = 1; number <= store_.lastRecord("FPLNL"); ++number) {
      const std::string entry = store_.record("FPLNL", number);
      if (unsignedAt(entry, 1, 2) != 1 || unsignedAt(entry, 41, 2) != 0 ||
          unsignedAt(entry, 60, 4) != 0)
        continue;
      std::int64_t cost = signedAt(entry, 51, 3);
      const auto part = parts.find(entry.substr(4, 14));
      if (cost == 0 && part != parts.end())
        cost = unsignedAt(store_.record("PARTL", part->second), 61, 3);
      cents += cost;
    }
    return cents;
  }

 private:
  std::vector<std::int32_t> jobs() const {
    std::vector<std::int32_t> records;
    for (std::size_t block = 451; block <= 571; ++block) {
      if (block > 458 && block < 501) continue;
      for (std::size_t slot = block * kBlock; slot < (block + 1) * kBlock; slot += 4) {
        const std::int64_t record = signedAt(store_.controlFile(), slot + 1, 4);
        if (record > 0) records.push_back(static_cast<std::int32_t>(record));
      }
    }
    return records;
  }
  static std::int32_t link(const std::string& page) {
    return static_cast<std::int32_t>(std::abs(signedAt(page, 110, 3)));
  }
  std::string pageOne(const char* file, std::int32_t record) const {
    std::string page = store_.record(file, record);
    while (unsignedAt(page, 115, 1) != 1)
      page = store_.record(file, link(page));
    return page;
  }
  /// Lines of all pages: whole units times price.
  std::int64_t lineTotal(const char* file, std::int32_t record) const {
    std::int64_t cents = 0;
    for (;;) {
      const std::string page = store_.record(file, record);
      for (std::int64_t line = 0; line < unsignedAt(page, 146, 1); ++line) {
        const std::string bytes = page.substr(160 + static_cast<std::size_t>(line) * 44, 44);
        if (bytes.substr(0, 2) == "\xC4\xAA") continue;  // a remark
        cents += signedAt(bytes, 31, 2) / 10 * signedAt(bytes, 33, 3);
      }
      if (unsignedAt(page, 115, 1) == 1) return cents;
      record = link(page);
    }
  }
  std::set<std::int64_t> linesOfUnits() const {
    std::set<std::int64_t> lines;
    for (const auto& [key, record] : store_.entries("LINEI")) {
      if (unsignedAt(key, 1, 2) < 1000 && store_.record("LINEL", record).at(141) == 'U')
        lines.insert(unsignedAt(key, 1, 2));
    }
    return lines;
  }
  std::string ledger(std::int32_t record) const { return store_.record("LUNITL", record); }

  const RawStore& store_;
};

SampleOptions optionsOf(std::uint64_t seed, bool segments) {
  SampleOptions options;
  options.seed = seed;
  options.warrantySegments = segments;
  return options;
}

class SampleViewsTest : public testing::TestWithParam<bool> {};

TEST_P(SampleViewsTest, RecapLabelsShowWhatTheBytesAddUpTo) {
  for (const std::uint64_t seed : {1U, 7U}) {
    SCOPED_TRACE(seed);
    std::vector<SampleFile> files = composeSampleStore(optionsOf(seed, GetParam()));
    const RawStore store(files);
    const StoreTotals totals(store);
    ViewRun run;
    run.open(std::move(files));
    run.load<frmFp>();
    run.load<frmOpenSales>();
    run.load<frmShop>();
    run.load<frmUnits>();
    if (GetParam()) {
      run.load<frmWarSeg>();
    } else {
      run.load<frmWarranty>();
    }
    EXPECT_EQ(run.recap(2), dollars(totals.openSales()));
    EXPECT_EQ(run.recap(3), dollars(totals.shopJobs()));
    EXPECT_EQ(run.recap(6), dollars(totals.warranties()));
    EXPECT_EQ(run.recap(11), dollars(totals.floorPlan()));
    EXPECT_EQ(run.recap(12), dollars(totals.units()));
    EXPECT_THAT(run.logged, IsEmpty());
  }
}

/// Clicks every row of every grid of a form.
void clickRows(const Form& form) {
  for (const auto& control : form.controls()) {
    auto* grid = dynamic_cast<Grid*>(control.get());
    if (grid == nullptr || !grid->hasClickAction()) continue;
    for (int row = 0; row < grid->Rows(); ++row)
      grid->rowClick(row);
  }
}

TEST_P(SampleViewsTest, EveryDetailWindowOpens) {
  ViewRun run;
  run.open(composeSampleStore(optionsOf(3, GetParam())));
  run.onModal = [](Form& form) { clickRows(form); };
  std::map<std::string, std::size_t> expected;
  const auto clickAll = [&](const View& view, const char* window) {
    for (const auto& control : view.controls()) {
      if (const auto* grid = dynamic_cast<const Grid*>(control.get()))
        expected[window] += grid->rows().size();
    }
    clickRows(view);
  };
  clickAll(run.load<frmFp>(), "frmFpdtl");
  clickAll(run.load<frmOpenSales>(), "frmPTSDetail");
  clickAll(run.load<frmShop>(), "frmShopDetail");
  clickAll(run.load<frmUnits>(), "frmUnitDtl");
  if (GetParam()) {
    clickAll(run.load<frmWarSeg>(), "frmWarrDetail");
  } else {
    clickAll(run.load<frmWarranty>(), "frmWarrDetail");
  }
  std::map<std::string, std::size_t> opened;
  for (const ShownWindow& window : run.windows) {
    ++opened[window.name];
    for (const auto& [name, rows] : window.grids) {
      if (name == "grdUnitDtl") expected["frmUnitInfo"] += rows.size();
      for (const Grid::Row& row : rows) {
        if (name == "grdFpdtl" && row.at(2) == "Yes") ++expected["frmFpx"];
      }
    }
  }
  EXPECT_EQ(opened, expected);
  for (const char* name : {"frmFpdtl", "frmFpx", "frmPTSDetail", "frmShopDetail", "frmUnitDtl",
                           "frmUnitInfo", "frmWarrDetail"})
    EXPECT_GT(opened[name], 0U) << name;
  EXPECT_THAT(run.messages, IsEmpty());
  EXPECT_THAT(run.logged, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(BothWarrantyOptions, SampleViewsTest, testing::Bool(),
                         [](const auto& option) {
                           return option.param ? "Segments" : "WholeClaims";
                         });

}  // namespace
}  // namespace dg::test
