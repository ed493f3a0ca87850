#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "shell/recap_sheet.h"
#include "shell/trap.h"
#include "tests/support/dgtool_run.h"
#include "tests/support/temporary_folder.h"
#include "tools/sample/sample_store.h"

namespace dg {
namespace {

using testing::HasSubstr;

class DgtoolHistoryTest : public testing::Test {
 protected:
  DgtoolHistoryTest() {
    tool_.addView("frmAR", [this](TestView& view) {
      view.onLoad = [this, &view] {
        trapView(
            view, "Error in frmAr GetAR routine ",
            [this] {
              if (receivables_.empty()) throw RunTimeError(kTypeMismatch);
              writeRecap(Figure::kReceivables, receivables_);
            },
            [] { markRecapError(Figure::kReceivables); });
      };
    });
    tool_.addView("frmProfit", [](TestView& view) {
      view.onLoad = [] { writeRecap(Figure::kMonthRate, "-24.90%"); };
    });
  }
  int snapshot(const std::string& day, const std::string& receivables) {
    receivables_ = receivables;
    return tool_.run({"snapshot", "--history", file_, "--as-of", day});
  }
  nlohmann::json history(std::vector<std::string> more = {}) {
    more.insert(more.begin(), {"history", "--history", file_, "--json"});
    EXPECT_EQ(tool_.run(more), 0) << tool_.err;
    return tool_.json();
  }

  DgtoolRun tool_;
  TemporaryFolder folder_;
  std::string file_ = folder_.file("h/history.sqlite");
  std::string receivables_;
};

TEST_F(DgtoolHistoryTest, SnapshotsBecomeDaysAndChanges) {
  EXPECT_EQ(snapshot("2026-11-20T18:00:00", "$500,014.40"), 0);
  EXPECT_EQ(snapshot("2026-11-21", "$1.00"), 0);
  EXPECT_EQ(snapshot("2026-11-21", "$498,779.84"), 0) << "the second one of a day counts";
  EXPECT_EQ(snapshot("2026-11-23", "-$5.00"), 0);
  EXPECT_EQ(snapshot("2026-11-23", ""), 1) << "the morning's figure stays";
  EXPECT_EQ(snapshot("2026-11-24", ""), 1) << "not kept as 0";

  const auto all = history();
  EXPECT_EQ(all["directory"], "LNK001");
  EXPECT_EQ(all["days"].size(), 4U);
  const auto& figure = all["figures"][0];
  EXPECT_EQ(figure["index"], 0);
  EXPECT_EQ(figure["name"], "Accounts Receivable");
  EXPECT_EQ(figure["values"].size(), 3U);
  EXPECT_EQ(figure["values"][2], (nlohmann::json{{"day", "2026-11-23"}, {"amount", "-5"}}));
  EXPECT_EQ(
      figure["changes"]["day"],
      (nlohmann::json{{"from", "2026-11-21"}, {"amount", "-498784.84"}, {"percent", "-100.00"}}));
  EXPECT_TRUE(figure["changes"]["week"].is_null());
  EXPECT_EQ(all["figures"][1]["values"][0]["amount"], "-0.249");

  const auto some = history({"--figure", "mtd gpr", "--since", "2026-11-21"});
  EXPECT_EQ(some["figures"].size(), 1U);
  EXPECT_EQ(some["days"][0], "2026-11-21");
  EXPECT_EQ(some["figures"][0]["values"].size(), 3U);

  EXPECT_EQ(tool_.run({"history", "--history", file_, "--csv", "--figure", "Accounts Receivable",
                       "--figure", "MTD GPR"}),
            0);
  EXPECT_EQ(tool_.out,
            "Day,Accounts Receivable,MTD GPR\r\n2026-11-20,500014.4,-0.249\r\n"
            "2026-11-21,498779.84,-0.249\r\n2026-11-23,-5,-0.249\r\n2026-11-24,,-0.249\r\n");
  EXPECT_EQ(tool_.run({"history", "--history", file_}), 0);
  EXPECT_THAT(tool_.out, HasSubstr("4 days, 2026-11-20 to 2026-11-24"));
  EXPECT_THAT(tool_.out, HasSubstr("-$5.00         -$498,784.84  -100.00%"));
}

/// The kept counts and amounts are those that reading the files apart from any load gives.
TEST_F(DgtoolHistoryTest, WhatNeedsAttentionIsKeptByKind) {
  tool_.useOpenStore();
  tool_.store.openStore(composeSampleStore({.seed = 11}));
  EXPECT_EQ(snapshot("2026-11-24", "$1.00"), 0) << tool_.err;
  ASSERT_EQ(tool_.run({"attention", "--json", "--as-of", "2026-11-24"}), 0);
  const auto attention = tool_.json()["kinds"];
  const auto kept = history()["figures"];
  ASSERT_EQ(kept.size(), 2 + attention.size());
  for (std::size_t i = 0; i < attention.size(); ++i) {
    EXPECT_EQ(kept[i + 2]["kind"], attention[i]["kind"]);
    EXPECT_FALSE(kept[i + 2].contains("index"));
    EXPECT_EQ(kept[i + 2]["values"], nlohmann::json::array({{{"day", "2026-11-24"},
                                                             {"amount", attention[i]["amount"]},
                                                             {"count", attention[i]["count"]}}}));
  }
  const auto units = history({"--figure", "old units"})["figures"][0];
  EXPECT_EQ(units["kind"], "units-old");
  EXPECT_EQ(tool_.run({"history", "--history", file_, "--figure", "units-old", "--csv"}), 0);
  EXPECT_EQ(tool_.out, "Day,Old units,Old units Count\r\n2026-11-24," +
                           units["values"][0]["amount"].get<std::string>() + "," +
                           units["values"][0]["count"].dump() + "\r\n");

  tool_.store.missing = {"UNITDB"};
  tool_.store.openStore(composeSampleStore({.seed = 11}));
  EXPECT_EQ(snapshot("2026-11-25", "$1.00"), 1);
  EXPECT_THAT(tool_.err, HasSubstr("units-old: "));
  EXPECT_EQ(history({"--figure", "units-old"})["figures"][0]["values"].size(), 1U)
      << "not kept as 0";
  EXPECT_EQ(history({"--figure", "orders-old"})["figures"][0]["values"].size(), 2U);
}

TEST_F(DgtoolHistoryTest, WhatCannotBeKeptOrReadHasStatusTwo) {
  EXPECT_EQ(tool_.run({"history", "--history", file_}), 2) << "a file that is named must be there";
  EXPECT_EQ(snapshot("2026-11-20", "$1.00"), 0);
  EXPECT_EQ(tool_.run({"history", "--history", file_, "--figure", "Nope"}), 2);
  EXPECT_THAT(tool_.err, HasSubstr("the figures are Accounts Receivable, MTD GPR"));
  folder_.write("h/history.sqlite", "no database at all, but long enough to be read as one");
  EXPECT_EQ(snapshot("2026-11-21", "$1.00"), 2);
  EXPECT_THAT(tool_.err, HasSubstr("is no history"));
}

}  // namespace
}  // namespace dg
