#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "shell/recap_sheet.h"
#include "shell/sort_grid.h"
#include "shell/splash.h"
#include "tests/support/dgtool_run.h"

namespace dg {
namespace {

using nlohmann::json;

constexpr ColumnSpec kColumns[] = {
    {.name = "Name", .group = "Vendor"},
    {.name = "ndate", .kind = ColumnKind::kNumber, .hidden = true},
    {.name = "Amount", .caption = "Total", .kind = ColumnKind::kMoney, .mask = kCurrencyStyle},
};
constexpr HeadSort kSorts[] = {{"Name", true}, {""}, {"Amount"}};

Grid& putGrid(TestView& view, const std::string& name) {
  Grid& grid = view.put<Grid>(name, kColumns);
  for (const auto& [text, amount] : {std::pair("B", 20), {"A", 100}, {"C", -3}}) {
    grid.AddNew();
    grid.set("Name", std::string(text));
    grid.set("ndate", 1);
    grid.set("Amount", Currency(amount));
  }
  grid.onHeadClick = [&grid](int column) { sortByHead(grid, column, kSorts); };
  return grid;
}

/// A window that a click opens, with a grid of so many rows.
void openWindow(const std::string& name, int rows, const std::function<void(int)>& onRow = {}) {
  TestView window(name, name);
  Grid& grid = window.put<Grid>("grdDetail", kColumns);
  for (int row = 0; row < rows; ++row)
    grid.AddNew();
  grid.onRowClick = onRow;
  window.ShowModal();
}

std::vector<std::string> places(const json& window) {
  std::vector<std::string> result;
  for (const json& detail : window["details"]) {
    result.push_back(detail["control"].get<std::string>() + "[" + detail["row"].dump() + "] " +
                     detail["window"]["name"].get<std::string>());
  }
  return result;
}

std::vector<std::string> column(const json& grid, std::size_t index) {
  std::vector<std::string> cells;
  for (const json& row : grid["rows"])
    cells.push_back(row[index]);
  return cells;
}

constexpr const char* kWindow = R"json({
  "name": "frmAR",
  "caption": "frmAR caption",
  "labels": {"lblTotal": "$12.00", "lblDetail(1)": "detail"},
  "hidden": ["lblDetail(1)", "Frame5"],
  "combos": {"cmbRequest": ["All Requests", "  1 - X"]},
  "grids": {
    "grdARCur": {
      "columns": [
        {"name": "Name", "caption": "Name", "hidden": false},
        {"name": "ndate", "caption": "ndate", "hidden": true},
        {"name": "Amount", "caption": "Total", "hidden": false}
      ],
      "rows": [["B", "1", "$20.00"], ["A", "1", "$100.00"], ["C", "1", "($3.00)"]]
    }
  }
})json";

TEST(DgtoolReportTest, AWindowIsToldWithAllThatIsOnIt) {
  DgtoolRun tool;
  tool.addView("frmAR", [](TestView& view) {
    view.put<Label>("lblTotal", "$12.00");
    view.put<Label>("lblDetail(1)", "detail").setVisible(false);
    view.put<Frame>("Frame5", "").setVisible(false);
    ComboBox& combo = view.put<ComboBox>("cmbRequest");
    combo.AddItem("All Requests");
    combo.AddItem("  1 - X");
    putGrid(view, "grdARCur");
    view.onLoad = [] { writeRecap(Figure::kReceivables, "$12.00"); };
  });
  ASSERT_EQ(tool.run({"report", "--json"}), 0) << tool.err;
  const json document = tool.json();
  EXPECT_EQ(document["program"], "Dealer Gauge 2");
  EXPECT_EQ(document["version"], versionText());
  EXPECT_EQ(document["compiled"], " Compiled  11/24/26  10:30:00 AM");
  const json statusBar = {"Client :PC7", "Host :SRV1", "Terminal :12",
                          "Source :LNK001      Store # 001"};
  EXPECT_EQ(document["statusBar"], statusBar);
  EXPECT_EQ(document["storeName"].get<std::string>().size(), 35U);
  ASSERT_EQ(document["recap"].size(), 22U);
  EXPECT_EQ(document["recap"][0],
            json::parse(R"({"index": 0, "caption": "$12.00", "error": false})"));
  EXPECT_EQ(document["recap"][16]["caption"], " ");

  ASSERT_EQ(document["views"].size(), 2U);
  EXPECT_EQ(document["views"][0]["name"], "frmRecap");
  EXPECT_EQ(document["views"][1], json::parse(kWindow));

  ASSERT_EQ(tool.run({"report", "--json", "--view", "frmar"}), 0);
  ASSERT_EQ(tool.json()["views"].size(), 1U);
  EXPECT_EQ(tool.json()["views"][0]["name"], "frmAR");
  EXPECT_EQ(tool.json()["recap"][0]["caption"], "$12.00");
}

TEST(DgtoolReportTest, ClicksSortInTheirOrderAndAfterTheRefresh) {
  DgtoolRun tool;
  int loads = 0;
  tool.addView("frmInv", [&](TestView& view) {
    putGrid(view, "grdInvest");
    view.onLoad = [&] { ++loads; };
  });
  const auto names = [&](const std::vector<std::string>& more) {
    std::vector<std::string> arguments{"report", "--json"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    EXPECT_EQ(tool.run(arguments), 0) << tool.err;
    return column(tool.json()["views"][1]["grids"]["grdInvest"], 0);
  };
  using Names = std::vector<std::string>;
  EXPECT_EQ(names({}), (Names{"B", "A", "C"}));
  EXPECT_EQ(names({"--click", "frmInv.grdInvest:0"}), (Names{"C", "B", "A"}));
  EXPECT_EQ(names({"--click", "frmInv.grdInvest:2", "--click", "frmInv.grdInvest:0"}),
            (Names{"A", "B", "C"}));
  EXPECT_EQ(names({"--click", "frmInv.grdInvest:1", "--click", "frminv.GRDINVEST:2"}),
            (Names{"C", "B", "A"}));
  loads = 0;
  EXPECT_EQ(names({"--refresh", "--click", "frmInv.grdInvest:2"}), (Names{"A", "B", "C"}));
  EXPECT_EQ(loads, 2);
}

TEST(DgtoolReportTest, DetailsFollowTheRowsThatOpenThem) {
  DgtoolRun tool;
  tool.addView("frmFp", [](TestView& view) {
    Grid& grid = putGrid(view, "grdFp");
    grid.onRowClick = [](int row) {
      if (row == 1) return;  // opens nothing
      openWindow("frmFpdtl", 2, [](int detail) {
        if (detail == 1) openWindow("frmFpx", 1);
      });
    };
    putGrid(view, "grdStill");
  });
  tool.addView("frmPo", [](TestView& view) {
    putGrid(view, "grdPO").onRowClick = [](int) { openWindow("frmPODetail", 1); };
    view.put<Button>("cmdVtot", "").onClick = [] { openWindow("frmVtotal", 3); };
    view.put<Button>("cmdPrint", "").onClick = [] { ADD_FAILURE() << "not a window of figures"; };
  });
  ASSERT_EQ(tool.run({"report", "--json", "--details"}), 0) << tool.err;
  const json document = tool.json();
  EXPECT_TRUE(document["views"][0]["details"].empty()) << "the recap opens nothing";
  const json& plan = document["views"][1];
  EXPECT_EQ(places(plan), (std::vector<std::string>{"grdFp[0] frmFpdtl", "grdFp[2] frmFpdtl"}));
  const json& window = plan["details"][1]["window"];
  EXPECT_EQ(places(window), (std::vector<std::string>{"grdDetail[1] frmFpx"}));
  EXPECT_TRUE(window["details"][0]["window"]["details"].empty());
  EXPECT_EQ(places(document["views"][2]),
            (std::vector<std::string>{"grdPO[0] frmPODetail", "grdPO[1] frmPODetail",
                                      "grdPO[2] frmPODetail", "cmdVtot[-1] frmVtotal"}));

  ASSERT_EQ(tool.run({"report", "--json"}), 0);
  EXPECT_FALSE(tool.json()["views"][1].contains("details"));
  ASSERT_EQ(tool.run({"report", "--details"}), 0);
  EXPECT_NE(tool.out.find("-- grdFp, row 3: frmFpdtl"), std::string::npos);
  EXPECT_NE(tool.out.find("-- cmdVtot: frmVtotal"), std::string::npos);
}

TEST(DgtoolReportTest, AWindowThatOpensItselfAgainEndsSomewhere) {
  DgtoolRun tool;
  tool.addView("frmUnits", [](TestView& view) {
    putGrid(view, "grdUnits").onRowClick = [](int) {
      static std::function<void(int)> again;
      again = [](int) { openWindow("frmUnitDtl", 1, again); };
      again(0);
    };
  });
  EXPECT_EQ(tool.run({"report", "--json", "--details"}), 0);
  EXPECT_FALSE(tool.json()["views"][1]["details"].empty());
}

TEST(DgtoolReportTest, TextStandsInColumns) {
  static constexpr Place kSheet[] = {
      {.control = "lblTitle", .row = 0},
      {.control = "Frame1", .row = 2},
      {.control = "lblB", .row = 0, .column = 1, .frame = "Frame1"},
      {.control = "lblA", .row = 0, .column = 0, .frame = "Frame1"},
      {.control = "lblLines", .row = 1, .frame = "Frame1"},
      {.control = "grdVtot", .row = 1},
      {.control = "Frame2", .row = 3},
      {.control = "lblUnseen", .row = 0, .frame = "Frame2"},
  };
  class Sheet final : public View {
   public:
    Sheet() : View("frmPo", "Orders") {
      add<Label>("lblTitle", "Purchase && Orders", LabelRole::kTitle);
      add<Frame>("Frame1", "Address");
      add<Label>("lblA", "Name :", LabelRole::kCaption);
      add<Label>("lblB", "$7.00");
      add<Label>("lblLines", "one\r\ntwo");
      Grid& grid = add<Grid>("grdVtot", kColumns, "Totals");
      grid.AddNew();
      grid.set("Name", std::string("B\xF6hm"));
      grid.set("Amount", Currency(5));
      add<Frame>("Frame2", "").setVisible(false);
      add<Label>("lblUnseen", "unseen");
      add<Label>("lblLoose", "loose");
      add<Label>("lblHint", "Click here", LabelRole::kHint);  // not for a report
      setSheet(kSheet);
    }
    void Form_Load() override {}
  };
  DgtoolRun tool;
  tool.views.add("frmPo", [] { return std::make_unique<Sheet>(); });
  ASSERT_EQ(tool.run({"report", "--view", "frmPo"}), 0);
  const std::string expected = "== Purchase & Orders " + std::string(57, '=') +
                               "\n\n"
                               "Totals\n"
                               "Vendor\n"
                               "Name  Total\n"
                               "----  -----\n"
                               "B\xC3\xB6hm  $5.00\n"
                               "(1 row)\n"
                               "\n"
                               "Address\n"
                               "Name :  $7.00\n"
                               "one\n"
                               "two\n"
                               "\n"
                               "loose\n";
  EXPECT_EQ(tool.out.substr(tool.out.find("== ")), expected);
}

}  // namespace
}  // namespace dg
