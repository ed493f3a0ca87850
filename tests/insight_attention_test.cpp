#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "engine/state.h"
#include "insight/attention.h"
#include "shell/recap_sheet.h"
#include "tests/support/dgtool_run.h"
#include "tests/support/full_run.h"
#include "tests/support/paged_records.h"
#include "tools/sample/sample_store.h"

namespace dg {
namespace {

using test::FullRun;
using test::runFully;
using testing::HasSubstr;

constexpr std::uint64_t kSteps = 1'000'000;
constexpr Date kToday{46350};

/// Reads everything anew at the end of each load, as nothing in the program does.
class Greedy final : public OpenWorkObserver {
 public:
  void loadBegins() override { told.clear(); }
  void loadEnds() override {
    own.clear();
    own.readMissing();
    customers = readCustomers({});
    parts = readIdleParts(kToday, 30, {});
  }
  void begin(OpenFamily family) override { told.begin(family); }
  void add(OpenFamily family, OpenWork item) override { told.add(family, std::move(item)); }
  void end(OpenFamily family) override { told.end(family); }
  void fail(OpenFamily family, const RunTimeError& error) override { told.fail(family, error); }

  OpenItems told;  ///< by the walks of the views
  OpenItems own;   ///< by walks of its own
  std::optional<std::array<WholeFileItems, 2>> customers;
  std::optional<WholeFileItems> parts;
};

TEST(AttentionTest, ReadingLeavesNoTraceInAnyWindow) {
  for (const bool segments : {false, true}) {
    const auto files = composeSampleStore({.seed = 11, .warrantySegments = segments});
    const auto run = [&files] {
      return runFully(files, kSteps, test::RunExtent::kEverything, test::KeepPicture::kYes);
    };
    const FullRun plain = run();
    ASSERT_GT(plain.windows, 0);
    Greedy greedy;
    FullRun watched;
    {
      const ObservingScope observing(greedy);
      watched = run();
    }
    EXPECT_TRUE(watched.picture == plain.picture);
    EXPECT_EQ(watched.log, plain.log);
    EXPECT_TRUE(watched.faults.empty());

    ASSERT_TRUE(greedy.customers && greedy.parts);
    EXPECT_FALSE((*greedy.customers)[0].items.empty());
    EXPECT_FALSE(greedy.parts->items.empty());
    for (const FamilyEntry& family : openFamilies()) {
      const auto told = ageingOf(family.family, greedy.told, kToday);
      const auto own = ageingOf(family.family, greedy.own, kToday);
      EXPECT_GT(told.count, 0U) << family.name;
      EXPECT_EQ(told.total, own.total) << family.name;
      EXPECT_EQ(told.count, own.count) << family.name;
    }
  }
}

class RulesTest : public testing::Test {
 protected:
  /// An item of the shop that came in so many days ago; without an age it has no date.
  void job(const std::string& number, std::optional<int> age, std::int32_t amount,
           const std::string& status = "O") {
    OpenWork item{.what = number, .who = {}, .amount = Currency(amount)};
    if (age) item.date = Date(kToday.days() - *age);
    item.promised = item.date;
    item.status = status;
    items_.add(OpenFamily::kShop, std::move(item));
  }
  KindResult old() const {
    return attentionOf(AttentionKind::kShopOld, items_, kToday, defaultLimits());
  }

  OpenItems items_;
};

TEST_F(RulesTest, DatesDecideAndTheOldestStandsFirst) {
  items_.begin(OpenFamily::kShop);
  job("limit", 30, 1);
  job("first of a day", 31, -20);
  job("second of a day", 31, 300);
  job("future", -400, 4'000);
  job("undated", {}, 50'000);
  job("oldest", 91, 600'000);
  job("scratch", 500, 7'000'000, "S");
  items_.end(OpenFamily::kShop);

  const KindResult result = old();
  std::vector<std::string> numbers;
  for (const AttentionRow& row : result.rows)
    numbers.push_back(row.what);
  EXPECT_EQ(numbers, (std::vector<std::string>{"oldest", "first of a day", "second of a day"}));
  EXPECT_EQ(result.amount, Currency(600'280));
  EXPECT_EQ(result.days, 30);

  const Ageing ageing = ageingOf(OpenFamily::kShop, items_, kToday);
  const std::array<std::int32_t, 5> amounts{4'001, 280, 0, 7'600'000, 50'000};
  for (std::size_t i = 0; i < amounts.size(); ++i)
    EXPECT_EQ(ageing.buckets[i].amount, Currency(amounts[i])) << kAgeBuckets[i];
  EXPECT_EQ(ageing.count, 7U);
}

TEST_F(RulesTest, WhatCannotBeReadOrAddedIsAnErrorOfItsKindAlone) {
  EXPECT_FALSE(old().error.empty()) << "nobody has read the shop";
  items_.begin(OpenFamily::kShop);
  for (int i = 0; i < 2; ++i) {
    items_.add(OpenFamily::kShop,
               {.what = {},
                .who = {},
                .amount = Currency::fromTenThousandths(std::numeric_limits<std::int64_t>::max()),
                .date = Date(1)});
  }
  items_.end(OpenFamily::kShop);
  EXPECT_EQ(old().error, "Overflow");
  EXPECT_TRUE(old().rows.empty());
  EXPECT_EQ(ageingOf(OpenFamily::kShop, items_, kToday).error, "Overflow");
}

class AttentionCommandTest : public testing::Test {
 protected:
  void open(const std::vector<std::string>& missing = {}) {
    tool_.store.missing = missing;
    tool_.store.openStore(composeSampleStore({}));
    tool_.useOpenStore();
  }
  DgtoolRun tool_;
};

TEST_F(AttentionCommandTest, AFileThatIsMissingFailsItsKindsAlone) {
  open({"UNITDB"});
  EXPECT_EQ(tool_.run({"attention", "--json", "--all"}), 1);
  const auto document = tool_.json();
  int failed = 0;
  for (const auto& kind : document["kinds"]) {
    failed += kind.contains("error") ? 1 : 0;
    EXPECT_EQ(kind.contains("error"),
              kind["kind"] == "units-old" || kind["kind"].get<std::string>().starts_with("floor"))
        << kind["kind"];
  }
  EXPECT_GT(failed, 0);
  EXPECT_TRUE(tool_.store.logged.empty());
}

TEST_F(AttentionCommandTest, AClaimWhoseLinesBreakOffIsToldBesideItsAmount) {
  const auto addClaim = [this](std::int32_t reference, const test::PageFields& fields) {
    sample::RecordWriter header(test::kPageLength);
    header.integer(1, 'C', 1).integer(5, 'L', reference).integer(403, 'D', 90'126);
    const auto record =
        tool_.store.builder.records("WARRL").add(test::pageRecord(fields, header.bytes()));
    tool_.store.builder.index("WARRI").add(sample::integerKey('L', reference, 4), record);
  };
  const std::vector<std::string> lines = {test::pricedLine("AB", "1", 10, 100)};
  addClaim(1, {.lines = lines});
  addClaim(2, {.page = 3, .link = 99, .lines = lines});  // page 2 is missing
  EXPECT_EQ(tool_.run({"attention", "--json", "--kind", "warranties-old"}), 1);
  const auto document = tool_.json();
  const auto& kind = document["kinds"][0];
  EXPECT_EQ(kind["count"], 2);
  EXPECT_TRUE(kind.value("incomplete", false));
  for (const auto& ageing : document["ageing"])
    EXPECT_EQ(ageing.contains("incomplete"), ageing["of"] == "warranties") << ageing["of"];
  EXPECT_EQ(tool_.run({"attention"}), 1);
  EXPECT_THAT(tool_.out, HasSubstr("Could not be read completely."));
}

TEST_F(AttentionCommandTest, KindsAndLimitsAreChosen) {
  open();
  ASSERT_EQ(tool_.run({"attention", "--json", "--kind", "Shop-Old", "--limit", "shop-old=0"}), 0)
      << tool_.err;
  const auto document = tool_.json();
  ASSERT_EQ(document["kinds"].size(), 1U);
  EXPECT_EQ(document["kinds"][0]["days"], 0);
  EXPECT_EQ(document["ageing"].size(), 7U);
  ASSERT_EQ(tool_.run({"attention", "--csv", "--kind", "shop-old", "--limit", "shop-old=0"}), 0);
  const auto lines = std::ranges::count(tool_.out, '\n');
  EXPECT_EQ(static_cast<std::size_t>(lines), document["kinds"][0]["rows"].size() + 1);
  ASSERT_EQ(tool_.run({"attention"}), 0);
  EXPECT_THAT(tool_.out, HasSubstr(" more\n"));
  for (const char* wrong : {"shop-old", "shop-old=", "shop-old=-1", "shop-old=10000", "shop=3",
                            "shop-complete=3", "shop-old=3x"}) {
    EXPECT_EQ(tool_.run({"attention", "--limit", wrong}), 2) << wrong;
  }
  EXPECT_EQ(tool_.run({"attention", "--kind", "nothing"}), 2);
  EXPECT_THAT(tool_.err, HasSubstr("parts-idle"));
}

}  // namespace
}  // namespace dg
