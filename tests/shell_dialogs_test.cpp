#include <cstdint>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "engine/codec.h"
#include "platform/file.h"
#include "platform/settings.h"
#include "shell/about.h"
#include "shell/setup.h"
#include "shell/sort_grid.h"
#include "shell/view_log.h"
#include "shell/write_log.h"
#include "tests/support/program_run.h"

namespace dg {
namespace {

using Rows = std::vector<Grid::Row>;

class SetupTest : public testing::Test {
 protected:
  void addAccount(int company, std::int32_t account, char kind, const std::string& name) {
    std::string record(64, ' ');
    Pack('C', record, company, 3);
    Pack('L', record, account, 5);
    record[8] = kind;
    record.replace(9, name.size(), name);
    std::string key(6, '\0');
    Pack('C', key, company, 1);
    Pack('L', key, account, 3);
    run_.builder.index("CHRTI").add(key, run_.builder.records("CHRTL").add(record));
  }
  /// A chart of three asset accounts and one for liabilities, and the dialog over it.
  frmSetup& open(const std::string& kind) {
    addAccount(1, 12345, 'A', "CASH ON HAND");
    addAccount(1, 20000, 'L', "TRADE PAYABLES");
    addAccount(2, 7, 'A', "PETTY CASH");
    addAccount(12, 100, 'A', "LAND");
    run_.openEngine();
    SetupKind = kind;
    dialog_.Form_Load();
    return dialog_;
  }
  static std::string saved(const char* section) {
    return GetSetting("DealerGauge", section, "Accounts", "never saved");
  }

  ProgramRun run_;
  frmSetup dialog_;
};

const Rows kAssetRows = {
    {"1", "12345", "CASH ON HAND"}, {"2", "7", "PETTY CASH"}, {"12", "100", "LAND"}};

TEST_F(SetupTest, TheDialogOffersTheWholeChartOfItsKind) {
  SetupCancelled = -1;
  open("A");
  EXPECT_EQ(dialog_.grdA(0).heading(), "Avalable Asset Accounts");
  EXPECT_EQ(dialog_.grdA(1).heading(), "Account to Display");
  EXPECT_EQ(dialog_.grdA(0).rows(), kAssetRows);
  EXPECT_EQ(dialog_.grdA(0).Bookmark(), 0);
  EXPECT_EQ(dialog_.grdA(1).Rows(), 0);
  EXPECT_EQ(SetupCancelled, 0);
  EXPECT_TRUE(run_.messages.empty());
}

TEST_F(SetupTest, AnyOtherKindIsLiabilities) {
  open("L");
  EXPECT_EQ(dialog_.grdA(0).heading(), "Avalable Liability Accounts");
  EXPECT_EQ(dialog_.grdA(0).rows(), (Rows{{"1", "20000", "TRADE PAYABLES"}}));
  dialog_.cmdMove(1).click();
  dialog_.cmdDone.click();
  EXPECT_EQ(saved("Liability"), "0120000");
  EXPECT_EQ(saved("Asset"), "never saved");
}

TEST_F(SetupTest, SelectedRowsMoveFromTheLastSelectionToTheFirst) {
  open("A");
  int changes = 0;
  const Connection watch = dialog_.grdA(1).changed.connect([&] { ++changes; });
  dialog_.grdA(0).SelBookmarks = {0, 2};
  dialog_.cmdMove(0).click();
  EXPECT_EQ(dialog_.grdA(1).rows(), (Rows{kAssetRows[2], kAssetRows[0]}));
  EXPECT_EQ(dialog_.grdA(0).rows(), (Rows{kAssetRows[1]}));
  EXPECT_EQ(changes, 1);

  dialog_.cmdMove(0).click();
  EXPECT_EQ(dialog_.grdA(0).Rows(), 1) << "nothing is selected any more";
  dialog_.grdA(1).SelBookmarks = {1};
  dialog_.cmdMove(2).click();
  EXPECT_EQ(dialog_.grdA(0).rows(), (Rows{kAssetRows[1], kAssetRows[0]}));
  dialog_.cmdMove(3).click();
  dialog_.cmdMove(3).click();
  EXPECT_EQ(dialog_.grdA(0).Rows(), 3);
  EXPECT_EQ(dialog_.grdA(1).Rows(), 0);
}

TEST_F(SetupTest, DoneStoresTheListAndCloses) {
  open("A");
  dialog_.cmdMove(1).click();
  dialog_.cmdDone.click();
  EXPECT_EQ(saved("Asset"), "0112345,027,12100");
  EXPECT_EQ(run_.shown, (std::vector<std::string>{"unload frmSetup"}));
  EXPECT_EQ(SetupCancelled, 0);

  int asked = 0;
  dialog_.cmdMove(3).click();
  dialog_.mayForget = [&](int accounts) {
    asked = accounts;
    return false;
  };
  dialog_.cmdDone.click();
  EXPECT_EQ(asked, 3);
  EXPECT_EQ(saved("Asset"), "0112345,027,12100");
  dialog_.mayForget = {};
  dialog_.cmdDone.click();
  EXPECT_EQ(saved("Asset"), "") << "an empty list replaces the stored one too";
}

TEST_F(SetupTest, RowsThatAFilterHidesStay) {
  open("A");
  dialog_.grdA(0).filteredRows = [] { return std::vector<int>{0, 2}; };
  dialog_.cmdMove(1).click();
  EXPECT_EQ(dialog_.grdA(1).rows(), (Rows{kAssetRows[0], kAssetRows[2]}));
  EXPECT_EQ(dialog_.grdA(0).rows(), (Rows{kAssetRows[1]}));
}

TEST_F(SetupTest, ListsSortByTheirHeadsAndADoubleClickMoves) {
  gSortDirection = 0;
  open("A");
  dialog_.grdA(0).headClick(2);
  EXPECT_EQ(dialog_.grdA(0).rows()[1], kAssetRows[2]) << "LAND behind CASH";
  dialog_.grdA(0).headClick(2);
  EXPECT_EQ(dialog_.grdA(0).rows()[0], kAssetRows[1]);
  EXPECT_EQ(gSortDirection, 0) << "the views' direction is theirs";
  dialog_.grdA(0).dblClick(0);
  EXPECT_EQ(dialog_.grdA(1).rows(), (Rows{kAssetRows[1]}));
  EXPECT_EQ(dialog_.grdA(0).Rows(), 2);
}

TEST_F(SetupTest, SettingsThatCannotBeWrittenKeepTheDialogOpen) {
  open("A");
  dialog_.cmdMove(1).click();
  run_.folder.write("blocked", "a file where a folder must be");
  environment().settingsFile = run_.folder.file("blocked/DealerGauge.ini");
  dialog_.cmdDone.click();
  ASSERT_EQ(run_.messages.size(), 1U);
  EXPECT_TRUE(run_.messages[0].text.starts_with("Run-time error '")) << run_.messages[0].text;
  EXPECT_TRUE(run_.shown.empty());
  environment().settingsFile = run_.folder.file("DealerGauge.ini");
  dialog_.cmdDone.click();
  EXPECT_EQ(saved("Asset"), "0112345,027,12100");
}

TEST_F(SetupTest, AChartThatCannotBeReadKeepsTheRowsSoFar) {
  addAccount(1, 1, 'A', "FIRST");
  std::string key(6, '\0');
  Pack('C', key, 9, 1);
  run_.builder.index("CHRTI").add(key, 999'999);
  run_.openEngine();
  SetupKind = "A";
  dialog_.Form_Load();
  EXPECT_EQ(dialog_.grdA(0).rows(), (Rows{{"1", "1", "FIRST"}}));
  ASSERT_EQ(run_.messages.size(), 1U);
  const std::string text = run_.messages[0].text;
  EXPECT_TRUE(text.starts_with("Error :81 ")) << text;
  EXPECT_TRUE(text.ends_with("\r\ncan not load GL chart of accounts !")) << text;
  EXPECT_EQ(run_.logged, (std::vector<std::string>{"*81 : module frmsetup/getglaccount\r\n"
                                                   "---posit = 999999  Gltype=A"
                                                   "---error line =  0 cr = 1 crx = 1---cnt = 1",
                                                   "*" + text}));
  dialog_.cmdMove(1).click();
  dialog_.cmdDone.click();
  EXPECT_EQ(saved("Asset"), "011");
}

TEST(ViewLogTest, ItShowsTheLogOfThisRun) {
  ProgramRun run;
  setFileSystem(nullptr);
  frmViewLog viewer;
  viewer.Form_Load();
  EXPECT_EQ(viewer.Label1.caption(), gsLogFile);
  EXPECT_EQ(viewer.rtb1.text(), "") << "no log yet";

  logLine("*Error in frmAr GetAR routine ");
  viewer.Form_Load();
  EXPECT_EQ(viewer.rtb1.text(), "*Error in frmAr GetAR routine \r\n");

  std::string printed;
  viewer.cmdPrint.click();
  viewer.onPrint = [&](const std::string& text) { printed = text; };
  viewer.cmdPrint.click();
  EXPECT_EQ(printed, viewer.rtb1.text());
  viewer.onPrint = [](const std::string&) { throw RunTimeError(kDeviceIoError); };
  viewer.cmdPrint.click();
  EXPECT_TRUE(run.messages.empty());
  viewer.cmdExit.click();
  EXPECT_EQ(run.shown, (std::vector<std::string>{"unload frmViewLog"}));
}

/// A registry of one value, and what was started.
struct FakeSystem {
  std::string key, bytes;
  bool hasProgram = true;
  bool starts = true;
  std::vector<std::string> started = {};

  void putInto(frmAbout& dialog) {
    dialog.systemInformation.readRegistry = [this](const std::string& asked, const std::string&,
                                                   std::uint32_t& type, std::string& value) {
      if (asked != key) return false;
      type = 1;
      value = bytes;
      return true;
    };
    dialog.systemInformation.fileExists = [this](const std::string&) { return hasProgram; };
    dialog.systemInformation.start = [this](const std::string& path) {
      started.push_back(path);
      return starts;
    };
  }
};

TEST(AboutTest, SystemInformationIsStartedFromWhereTheRegistrySaysElseAMessageTells) {
  constexpr const char* kDirect = "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO";
  constexpr const char* kLocation = "SOFTWARE\\Microsoft\\Shared Tools Location";
  const std::string folder("C:\\Shared\0junk", 14);
  struct Case {
    FakeSystem system;
    std::vector<std::string> started;
    bool message;
  };
  std::vector<Case> cases = {
      {{kDirect, "C:\\info.exe", false}, {"C:\\info.exe"}, false},
      {{kLocation, folder}, {"C:\\Shared\\MSINFO32.EXE"}, false},
      {{kLocation, folder, false}, {}, true},
      {{kDirect, "C:\\info.exe", true, false}, {"C:\\info.exe"}, true},
      {{"", ""}, {}, true},
  };
  for (Case& one : cases) {
    ProgramRun run;
    frmAbout dialog;
    one.system.putInto(dialog);
    dialog.cmdSysInfo.click();
    EXPECT_EQ(one.system.started, one.started);
    ASSERT_EQ(run.messages.size(), one.message ? 1U : 0U);
    if (one.message) {
      EXPECT_EQ(run.messages[0].text, "System Information Is Unavailable At This Time");
    }
  }
}

TEST(AboutTest, RegistryNumbersAreDecimalTexts) {
  EXPECT_EQ(registryText(4, "\x03\x02\x01"), "66051");
  EXPECT_EQ(registryText(4, "\xff\xff\xff\xff"), "-1");
  EXPECT_EQ(registryText(4, ""), "0");
  EXPECT_EQ(registryText(1, std::string("ab\0c", 4)), "ab");
}

}  // namespace
}  // namespace dg
