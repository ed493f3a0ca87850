#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "engine/state.h"
#include "platform/file.h"
#include "shell/main.h"
#include "shell/main_window.h"
#include "shell/recap_sheet.h"
#include "shell/splash.h"
#include "shell/write_log.h"
#include "tests/support/memory_file_system.h"
#include "tests/support/program_run.h"

namespace dg {
namespace {

using Names = std::vector<std::string>;

/// In the order of a start.
const Names kViews = {"frmRecap", "frmAR",        "frmFp",    "frmGLA",     "frmGLL",
                      "frmInv",   "frmOpenSales", "frmPo",    "frmProfit",  "frmReturn",
                      "frmSales", "frmShop",      "frmUnits", "frmWarranty"};

/// What the views of a run do, in order, and what tests make them do.
struct Stage {
  Names events;  ///< "load frmX", "drop frmX"
  std::map<std::string, std::function<void()>> onLoad;
};

class FakeView : public View {
 public:
  FakeView(std::string name, Stage& stage) : View(std::move(name), ""), stage_(stage) {}
  ~FakeView() override { stage_.events.push_back("drop " + name()); }
  void Form_Load() override {
    stage_.events.push_back("load " + name());
    showProgress("Loading " + name());
    if (stage_.onLoad[name()]) stage_.onLoad[name()]();
  }

 private:
  Stage& stage_;
};

class FakeRecap final : public FakeView, public RecapSheet {
 public:
  explicit FakeRecap(Stage& stage) : FakeView("frmRecap", stage) { setRecapSheet(this); }
  ~FakeRecap() override { setRecapSheet(nullptr); }
  Label& lblRecap(int index) override {
    if (!labels_.contains(index))
      labels_[index] = std::make_unique<Label>(elementName("lblRecap", index));
    return *labels_[index];
  }

 private:
  std::map<int, std::unique_ptr<Label>> labels_;
};

/// The events that begin with a word, without it.
Names only(const Names& events, const std::string& word) {
  Names result;
  for (const std::string& event : events) {
    if (event.starts_with(word + " ")) result.push_back(event.substr(word.size() + 1));
  }
  return result;
}

class MainWindowTest : public testing::Test {
 public:
  ~MainWindowTest() override { WarrantySegments = false; }

 protected:
  MainWindowTest() {
    for (const std::string& name : kViews)
      if (name != "frmRecap") addView(name);
    addView("frmWarSeg");
    catalogue_.add("frmRecap", [this] { return std::make_unique<FakeRecap>(stage_); });
    stage_.onLoad["frmProfit"] = [] { writeRecap(Figure::kMonthSales, "$1.00"); };
  }

  void addView(const std::string& name) {
    catalogue_.add(name, [this, name] { return std::make_unique<FakeView>(name, stage_); });
  }
  void setOption(int position, char answer) {
    std::string options = run_.builder.controlFile().block(401);
    options[static_cast<std::size_t>(position) - 1] = answer;
    run_.builder.controlFile().setBlock(401, options);
  }
  /// Names a store and a company, opens the store and starts the program.
  frmTRVN& start(std::vector<std::string> only = {}) {
    std::string company = run_.builder.controlFile().block(1);
    company.replace(150, 35, "RIVER LANDSCAPE OF DENVER          ");
    run_.builder.controlFile().setBlock(1, company);
    run_.openStore();
    window_ = startProgram(catalogue_, std::move(only));
    return *window_;
  }
  void clear() {
    stage_.events = run_.shown = run_.logged = {};
    run_.messages.clear();
  }
  Names messageTexts() const {
    Names texts;
    for (const MessageBox& box : run_.messages)
      texts.push_back(box.text);
    return texts;
  }

  ProgramRun run_;
  Stage stage_;
  ViewCatalogue catalogue_;
  std::unique_ptr<frmTRVN> window_;
};

TEST_F(MainWindowTest, TheLoadFillsTheWindowAndLoadsTheViewsInOrder) {
  Names progress;
  const Connection watch = splash().lblProgress.refreshed.connect(
      [&] { progress.push_back(splash().lblProgress.caption()); });
  const frmTRVN& window = start();
  EXPECT_EQ(window.caption(), "Velmora Dealer Gauge 2");
  EXPECT_EQ(window.sb1.panels(), (Names{"Client :PC7", "Host :SRV1", "Terminal :12",
                                        "Source :LNK001      Store # 001"}));
  EXPECT_EQ(window.lblStoreName.caption(), "RIVER LANDSCAPE OF DENVER          ");
  EXPECT_EQ(only(stage_.events, "load"), kViews);
  EXPECT_EQ(progress.size(), 14U);
  EXPECT_EQ(run_.log(), "11/24/26 10:30:00 AM  Program Start from : PC7  Terminal :12\r\n");
  EXPECT_EQ(run_.shown,
            (Names{"show frmSplash", "show frmRecap", "unload frmSplash", "show frmTRVN"}));
  EXPECT_TRUE(run_.messages.empty());
  EXPECT_EQ(window.CurrentView()->name(), "frmRecap");
  EXPECT_EQ(window.CurrentView()->bounds(), (Bounds{110, 110, 10905, 8445}));
  EXPECT_EQ(window.LastError, "");
}

TEST_F(MainWindowTest, TheTreeStandsOpenWithTheRecapSelected) {
  frmTRVN& window = start();
  std::string drawn;
  for (const TreeView::Node& node : window.tv1.nodes()) {
    EXPECT_TRUE(node.expanded) << node.key;
    drawn += node.key + "<" + node.parent + " ";
  }
  EXPECT_EQ(
      drawn,
      "A< A3<A A7<A A5<A A1<A I1<A1 I2<A1 I3<A1 A4<A A2<A A6<A L< L2<L L1<L S< S2<S S1<S R< ");
  EXPECT_EQ(window.tv1.nodes()[12].text, "G/L Liabilites");
  EXPECT_EQ(window.tv1.selected(), "R");
  window.settree();
  EXPECT_EQ(messageTexts(),
            (Names{"Error in settree routine error # :35602\r\nKey is not unique in collection"}));
  EXPECT_EQ(run_.logged.back(), "*" + messageTexts()[0]);
  EXPECT_EQ(window.LastError, messageTexts()[0]);
}

TEST_F(MainWindowTest, TheShopsOptionDecidesBetweenTheWarrantyViews) {
  setOption(320, 'Y');
  stage_.onLoad["frmFp"] = [] { EXPECT_TRUE(WarrantySegments); };
  stage_.onLoad["frmShop"] = [] { WarrantySegments = false; };
  EXPECT_EQ(start().loadedViews().back()->name(), "frmWarranty");
  EXPECT_EQ(window_->view("frmWarSeg"), nullptr);

  stage_.onLoad["frmShop"] = [] { WarrantySegments = true; };
  clear();
  window_->ReLoadBm();
  EXPECT_EQ(window_->loadedViews().back()->name(), "frmWarSeg");
  EXPECT_EQ(window_->view("frmWarranty"), nullptr);
  window_->tv1.click("A7");
  EXPECT_EQ(window_->CurrentView()->name(), "frmWarSeg");

  stage_.onLoad.clear();
  WarrantySegments = false;
  window_->ReLoadBm();
  EXPECT_NE(window_->view("frmWarranty"), nullptr) << "a refresh does not ask the first option";
}

TEST_F(MainWindowTest, GoingToAViewShowsWhatWasLoaded) {
  frmTRVN& window = start();
  Names seen;
  const Connection watch =
      window.viewShown.connect([&](View* view) { seen.push_back(view->name()); });
  clear();
  for (const TreeEntry& entry : treeEntries())
    window.tv1.click(std::string(entry.key));
  EXPECT_EQ(seen, (Names{"frmAR", "frmWarranty", "frmGLA", "frmInv", "frmFp", "frmUnits",
                         "frmOpenSales", "frmShop", "frmReturn", "frmGLL", "frmPo", "frmProfit",
                         "frmSales", "frmRecap"}));
  EXPECT_EQ(run_.shown[0], "hide frmRecap");
  EXPECT_EQ(run_.shown[1], "show frmAR");
  EXPECT_EQ(run_.shown.size(), 2 * seen.size()) << "nodes without a view leave the current one";
  EXPECT_TRUE(stage_.events.empty());
}

TEST_F(MainWindowTest, MenusGoToTheirNodesAndViewRecapNowhere) {
  frmTRVN& window = start();
  const auto reached = [&](const char* menu, int index) {
    window.menuClick(menu, index);
    return window.CurrentView()->name() + " " + window.tv1.selected();
  };
  const Names expected = {
      "frmAR A3",   "frmWarranty A7", "frmGLA A5",  "",          "frmOpenSales A4",
      "frmShop A2", "frmReturn A6",   "",           "frmGLL L2", "frmPo L1",
      "",           "frmProfit S2",   "frmSales S1"};
  std::string last = "frmRecap R";
  for (int index = 0; index < 16; ++index) {
    const auto place = static_cast<std::size_t>(index);
    if (place < expected.size() && !expected[place].empty()) last = expected[place];
    EXPECT_EQ(reached("mview", index), last) << index;
  }
  EXPECT_EQ(reached("minv", 0), "frmInv I1");
  EXPECT_EQ(reached("minv", 1), "frmFp I2");
  EXPECT_EQ(reached("minv", 2), "frmUnits I3");
}

TEST_F(MainWindowTest, CommandsGoThroughTheirHooks) {
  frmTRVN& window = start();
  Names called;
  window.onExit = [&] { called.push_back("exit"); };
  window.onHelp = [&] { called.push_back("help"); };
  window.menuClick("mfile", 5);
  window.menuClick("mhelp", 0);
  window.menuClick("mhelp", 1);
  EXPECT_EQ(called, (Names{"exit", "help"}));

  clear();
  window.menuClick("mopt", 0);
  window.menuClick("mhelp", 2);
  EXPECT_EQ(run_.shown, (Names{"modal frmViewLog", "modal frmAbout"}));

  window.onViewLog = [&] { called.push_back("log"); };
  recapSheet().onViewLog();
  EXPECT_EQ(called.back(), "log");
  window.menuClick("mfile", 0);
  recapSheet().onViewLog();
  EXPECT_EQ(called.size(), 4U) << "the recap of a refresh is connected as well";
}

TEST_F(MainWindowTest, ARefreshLoadsAllButTheProfitAgain) {
  frmTRVN& window = start();
  View* const profit = window.view("frmProfit");
  EXPECT_EQ(recapSheet().lblRecap(13).caption(), "$1.00");
  window.tv1.click("A3");
  clear();
  WarrantySegments = false;
  window.ReLoadBm();

  EXPECT_EQ(
      run_.shown,
      (Names{"hide frmAR", "show frmSplash", "unload frmUnits", "unload frmFp", "unload frmSales",
             "unload frmGLL", "unload frmPo", "unload frmReturn", "unload frmOpenSales",
             "unload frmGLA", "unload frmWarranty", "unload frmShop", "unload frmAR",
             "unload frmRecap", "unload frmInv", "hide frmSplash", "show frmRecap"}));
  EXPECT_EQ(only(stage_.events, "drop").size(), 13U);
  EXPECT_EQ(
      only(stage_.events, "load"),
      (Names{"frmRecap", "frmInv", "frmAR", "frmShop", "frmWarranty", "frmGLA", "frmOpenSales",
             "frmReturn", "frmPo", "frmGLL", "frmSales", "frmFp", "frmUnits"}));
  EXPECT_EQ(window.view("frmProfit"), profit);
  EXPECT_EQ(recapSheet().lblRecap(13).caption(), "") << "nothing writes the new recap's profit";
  EXPECT_EQ(window.CurrentView()->name(), "frmRecap");
  EXPECT_EQ(window.tv1.selected(), "A3") << "the highlight stays where it was";
  EXPECT_TRUE(std::ranges::equal(window.loadedViews(), kViews, {}, &View::name));
  EXPECT_TRUE(run_.logged.empty());
}

TEST_F(MainWindowTest, NoRefreshAndNoEndRunsInsideALoad) {
  stage_.onLoad["frmPo"] = [this] {
    if (!window_) return;  // the first load
    EXPECT_TRUE(window_->loading());
    window_->menuClick("mfile", 0);
    window_->Form_Unload();
  };
  frmTRVN& window = start();
  clear();
  window.ReLoadBm();
  EXPECT_EQ(only(stage_.events, "load").size(), 13U);
  EXPECT_EQ(run_.messages.size(), 0U);
  EXPECT_FALSE(window.loading());
  EXPECT_NE(window.view("frmUnits"), nullptr);
}

TEST_F(MainWindowTest, AFailedRefreshIsShownAndLogged) {
  frmTRVN& window = start();
  stage_.onLoad["frmShop"] = [] { throw RunTimeError(kOverflow); };
  clear();
  window.ReLoadBm();
  EXPECT_EQ(messageTexts(), (Names{"Error in ReLoadBm function error # :6\r\nOverflow"}));
  EXPECT_EQ(run_.logged, (Names{"*Error in ReLoadBm function error # :6\r\nOverflow"}));
  EXPECT_EQ(window.LastError, messageTexts()[0]);
  EXPECT_FALSE(splash().visible());
  stage_.onLoad.clear();
  clear();
  window.ReLoadBm();
  EXPECT_TRUE(run_.messages.empty());
  EXPECT_EQ(window.loadedViews().size(), 14U);
}

TEST_F(MainWindowTest, TheEndUnloadsTheViewsReleasesTheEnginesAndLogsLast) {
  frmTRVN& window = start();
  clear();
  window.menuClick("mfile", 5);
  EXPECT_EQ(run_.shown,
            (Names{"unload frmUnits", "unload frmFp", "unload frmProfit", "unload frmSales",
                   "unload frmGLL", "unload frmPo", "unload frmReturn", "unload frmOpenSales",
                   "unload frmGLA", "unload frmWarranty", "unload frmShop", "unload frmAR",
                   "unload frmRecap", "unload frmInv"}));
  EXPECT_EQ(stage_.events, (Names{"drop frmRecap", "drop frmInv", "drop frmAR", "drop frmShop",
                                  "drop frmWarranty", "drop frmGLA", "drop frmOpenSales",
                                  "drop frmReturn", "drop frmPo", "drop frmGLL", "drop frmSales",
                                  "drop frmProfit", "drop frmFp", "drop frmUnits"}));
  EXPECT_EQ(SharedEngine, nullptr);
  EXPECT_EQ(SystemInfo, nullptr);
  EXPECT_TRUE(run_.log().ends_with("\r\n11/24/26 10:30:00 AM  Program End \r\n"));
  window.Form_Unload();
  EXPECT_EQ(run_.logged.size(), 1U);
}

TEST_F(MainWindowTest, AFilteredRunLoadsTheRecapAndTheNamedViews) {
  setOption(320, 'N');
  setOption(317, 'Y');
  frmTRVN& window = start({"frmWarSeg", "frmAR"});
  EXPECT_EQ(only(stage_.events, "load"), (Names{"frmRecap", "frmAR", "frmWarSeg"}))
      << "the shop's option decides, although the shop is left out";
  window.tv1.click("S2");
  EXPECT_EQ(window.CurrentView()->name(), "frmRecap") << "the view is not there";
  EXPECT_TRUE(run_.messages.empty());
}

TEST_F(MainWindowTest, WithoutACatalogFileTheWindowStaysEmpty) {
  run_.missing = {"cQTCatalog.ini"};
  const frmTRVN& window = start();
  ASSERT_EQ(run_.messages.size(), 2U);
  EXPECT_EQ(run_.messages[0].title, "EpcError");
  EXPECT_EQ(run_.messages[1].title, "Connection Error");
  EXPECT_TRUE(stage_.events.empty());
  EXPECT_TRUE(window.tv1.nodes().empty());
  EXPECT_EQ(window.CurrentView(), nullptr);
  EXPECT_EQ(run_.log(),
            "11/24/26 10:30:00 AM  Program Start from :   Terminal :\r\n"
            "*Form TRVNV2 load error :11/24/26 10:30:00 AM\r\n"
            "*Error  91 : Object variable or With block variable not set\r\n");
  EXPECT_EQ(window.LastError,
            "Error in form load event error # :91\r\n"
            "Object variable or With block variable not set");
  EXPECT_EQ(run_.shown, (Names{"show frmSplash", "unload frmSplash", "show frmTRVN"}));
}

TEST_F(MainWindowTest, WithoutAShareTheMenusGiveMessagesAndNothingBreaks) {
  auto files = std::make_unique<MemoryFileSystem>();
  files->add(environment().temp + "\\cQTCatalog.ini",
             "[eZ-Lines]\r\nServer=SRV1\r\nDirectory=LNK\r\n");
  setFileSystem(std::move(files));
  const auto window = startProgram(catalogue_);
  EXPECT_EQ(run_.messages.size(), 2U) << "one for each of the two engine objects";
  EXPECT_EQ(run_.logged.size(), 3U);
  EXPECT_EQ(run_.logged[1], "*Form TRVNV2 load error :11/24/26 10:30:00 AM");

  run_.messages.clear();
  window->menuClick("mview", 0);
  window->menuClick("mfile", 0);
  EXPECT_EQ(messageTexts(), (Names{"Run-time error '35601':\n\nElement not found",
                                   "Error in ReLoadBm function error # :91\r\n"
                                   "Object variable or With block variable not set"}));
  window->Form_Unload();
  EXPECT_EQ(run_.logged.back(), "11/24/26 10:30:00 AM  Program End ");
}

TEST_F(MainWindowTest, WithoutAControlFileTheLoadGoesOn) {
  run_.missing = {"FILE0"};
  const frmTRVN& window = start();
  EXPECT_EQ(window.lblStoreName.caption(), "Error finding Store Name");
  EXPECT_EQ(window.loadedViews().size(), 14U);
  EXPECT_EQ(run_.logged, (Names{"11/24/26 10:30:00 AM  Program Start from : PC7  Terminal :12",
                                "*Error in GetStoreName function error # :91\r\n"
                                "Object variable or With block variable not set",
                                "*Error in GetOption function error # :91\r\n"
                                "Object variable or With block variable not set"}));
  EXPECT_TRUE(run_.messages.empty());
}

TEST_F(MainWindowTest, AnErrorThatLeavesAViewEndsTheLoadThere) {
  stage_.onLoad["frmGLA"] = [] { throw RunTimeError(kSubscriptOutOfRange); };
  const frmTRVN& window = start();
  EXPECT_EQ(only(stage_.events, "load"), (Names{"frmRecap", "frmAR", "frmFp", "frmGLA"}));
  EXPECT_EQ(run_.logged.back(), "*Error  9 : Subscript out of range");
  EXPECT_TRUE(window.visible());
  EXPECT_FALSE(window.CurrentView()->visible());
}

TEST_F(MainWindowTest, ALogThatCannotBeWrittenEndsTheLoadBeforeTheViews) {
  gsLogFile = environment().temp + "\\no such folder\\dgoperation.log";
  const frmTRVN& window = start();
  EXPECT_TRUE(stage_.events.empty());
  EXPECT_EQ(window.LastError, "Error in form load event error # :76\r\nPath not found");
}

}  // namespace
}  // namespace dg
