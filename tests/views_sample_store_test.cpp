// Whole example stores through the whole program.
#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "shell/main.h"
#include "shell/recap_sheet.h"
#include "tests/support/program_run.h"
#include "views/view_catalogue.h"

namespace dg::test {
namespace {

using Texts = std::vector<std::string>;

/// The program over a store, started.
struct StoreRun {
  explicit StoreRun(std::vector<SampleFile> files) {
    run.openStore(std::move(files));
    window = startProgram(viewCatalogue());
  }
  Texts recap() {
    Texts captions;
    for (int index = 0; index < kRecapLabels; ++index)
      captions.push_back(recapSheet().lblRecap(index).caption());
    return captions;
  }

  ProgramRun run;
  std::unique_ptr<frmTRVN> window;
};

TEST(SampleProgram, EveryViewLoadsAndEveryRowOpensWithoutAnError) {
  for (const SampleOptions& options :
       {SampleOptions{.seed = 5}, SampleOptions{.seed = 6, .asOf = Date::fromText("2/29/1996")},
        SampleOptions{.seed = 7, .scale = 2, .warrantySegments = true, .indexFill = 100}}) {
    StoreRun program(composeSampleStore(options));
    for (View* view : program.window->loadedViews()) {
      for (const auto& control : view->controls()) {
        auto* grid = dynamic_cast<Grid*>(control.get());
        if (grid == nullptr) continue;
        EXPECT_GT(grid->Rows(), 0) << view->name() << "." << grid->name();
        for (int row = 0; row < grid->Rows(); ++row)
          grid->rowClick(row);
      }
    }
    EXPECT_EQ(program.run.logged.size(), 1U) << testing::PrintToString(program.run.logged);
    EXPECT_TRUE(program.run.messages.empty()) << program.run.messages.front().text;
    for (const std::string& caption : program.recap())
      EXPECT_NE(caption, kDataError);
  }
}

TEST(SampleProgram, AStoreWithoutRecordsHasEmptyViewsAndTotalsOfZero) {
  StoreRun program(sample::StoreBuilder{SampleOptions{}}.finish());
  for (View* view : program.window->loadedViews()) {
    for (const auto& control : view->controls()) {
      const auto* grid = dynamic_cast<const Grid*>(control.get());
      if (grid == nullptr) continue;
      EXPECT_EQ(grid->Rows(), 0) << view->name() << "." << grid->name();
    }
  }
  const Texts recap = program.recap();
  for (int label = 1; label <= 12; ++label)
    EXPECT_EQ(recap[static_cast<std::size_t>(label)], "$.00") << label;
  EXPECT_EQ(program.window->view("frmInv")->get<Label>("lblinvtot(1)").caption(),
            "Sales YTD : $.00");
  EXPECT_EQ(program.window->view("frmSales")->get<Label>("lblCashTot").caption(),
            "Cash Total  .00");
  EXPECT_EQ(program.run.logged.size(), 1U) << testing::PrintToString(program.run.logged);
}

TEST(SampleProgram, ARefreshShowsTheSameButForTheProfit) {
  StoreRun program(composeSampleStore({.seed = 3}));
  const Texts before = program.recap();
  const auto profitRows = [&] {
    return program.window->view("frmProfit")->get<Grid>("grdProfit").rows();
  };
  const std::vector<Grid::Row> profit = profitRows();
  program.window->ReLoadBm();
  const Texts after = program.recap();
  EXPECT_TRUE(std::equal(before.begin(), before.begin() + 13, after.begin()));
  EXPECT_EQ(Texts(after.begin() + 13, after.end()), (Texts{"", "", "", " ", " ", " ", "", "", ""}));
  EXPECT_EQ(profitRows(), profit) << "loaded once a run";
  EXPECT_EQ(program.run.logged.size(), 1U);
}

}  // namespace
}  // namespace dg::test
