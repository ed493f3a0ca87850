#include <algorithm>
#include <gtest/gtest.h>
#include <new>
#include <string>
#include <vector>

#include "records/failure_log.h"
#include "records/line_builder.h"
#include "shell/main.h"
#include "shell/options.h"
#include "shell/recap_sheet.h"
#include "shell/splash.h"
#include "shell/trap.h"
#include "shell/write_log.h"
#include "tests/support/program_run.h"

namespace dg {
namespace {

TEST(LaunchTest, AnyOtherCommandLineIsRefusedAndTouchesNothing) {
  ProgramRun run;
  run.openStore();
  const ViewCatalogue none;
  for (const char* tail :
       {"", "7q809r21t", "7Q809R21T ", " 7Q809R21T", "7Q809R21T x", "x 7Q809R21T"}) {
    run.messages.clear();
    EXPECT_EQ(Main(tail, none), nullptr) << tail;
    ASSERT_EQ(run.messages.size(), 1U);
    EXPECT_EQ(run.messages[0].text,
              " This application can only be started \n     from the Velmora main menu.    ");
    EXPECT_EQ(run.messages[0].style, kInformation);
    EXPECT_EQ(run.messages[0].title, "");
  }
  EXPECT_TRUE(run.shown.empty());
  EXPECT_FALSE(run.folder.has("dgoperation.log"));
}

TEST(LogTest, EntriesAreAppendedWithTheirLineEnds) {
  ProgramRun run;
  logLine("one");
  WriteLog(gsLogFile, "two");
  logLine("three\r\nmore");
  EXPECT_EQ(run.log(), "one\r\ntwo\r\nthree\r\nmore\r\n");
  EXPECT_EQ(gsLogLine, "three\r\nmore");
}

TEST(LogTest, ControlCharactersOfRecordsDoNotBreakLines) {
  ProgramRun run;
  logLine(std::string("a\nb\rc\td\0e\x7f\xe4\r\nf", 14));
  EXPECT_EQ(run.log(), "a b c d e \xe4\r\nf\r\n");
}

TEST(LogTest, ALogThatCannotBeWrittenLosesTheLineOfATrapOnly) {
  ProgramRun run;
  gsLogFile = environment().temp + "\\no such folder\\dgoperation.log";
  logLine("*lost");
  EXPECT_EQ(run.logged, (std::vector<std::string>{"*lost"}));
  EXPECT_THROW(writeOperationLog("start"), RunTimeError);
}

TEST(LogTest, StandsInTheFolderOfItsVariableWhateverThatHolds) {
  const ProgramRun run;
  setLogFile();
  EXPECT_EQ(gsLogFile, environment().temp + "\\dgoperation.log");
  environment().logFolder = "D:\\logs\\";
  setLogFile();
  EXPECT_EQ(gsLogFile, "D:\\logs\\\\dgoperation.log");
  environment().logFolder = "";
  setLogFile();
  EXPECT_EQ(gsLogFile, "\\dgoperation.log");
}

TEST(LogTest, FailuresAreToldInTheFormOfTheirLayer) {
  ProgramRun run;
  const RunTimeError error(kTypeMismatch);
  EXPECT_EQ(shellFailureText("Error in GetOption function ", error),
            "Error in GetOption function error # :13\r\nType mismatch");
  EXPECT_EQ(viewFailureText("Error in frmAr GetAR routine ", error),
            "Error in frmAr GetAR routine error # :  13  Type mismatch");

  connectFailureLog();
  reportFailure("Error in clsPart ", error);
  EXPECT_EQ(run.log(), "*Error in clsPart error # :  13  Type mismatch\r\n");
}

TEST(TrapTest, AViewsTrapMarksAndLogsAndTellsTheCaller) {
  ProgramRun run;
  bool marked = false;
  Form view("frmX", "X");
  EXPECT_TRUE(trapView(view, "", [] {}));
  EXPECT_FALSE(view.incomplete());
  EXPECT_FALSE(trapView(
      view, "Error in frmX GetX routine ", [] { throw std::bad_alloc(); },
      [&] {
        marked = true;
        EXPECT_TRUE(run.logged.empty()) << "the label turns red before the log is written";
      }));
  EXPECT_TRUE(marked);
  EXPECT_TRUE(view.incomplete());
  EXPECT_EQ(run.logged,
            (std::vector<std::string>{"*Error in frmX GetX routine error # :  7  Out of memory"}));
}

TEST(WriteLogTest, ALogThatCannotBeWrittenIsToldAtItsFirstLine) {
  ProgramRun run;
  int told = 0;
  const Connection watch = logFailed().connect([&] { ++told; });
  gsLogFile = run.folder.path().string() + "\\missing\\dgoperation.log";
  logLine("lost");
  logLine("lost, too");
  EXPECT_EQ(told, 1);
  ASSERT_TRUE(logFailure());
  EXPECT_EQ(logFailure()->number(), 76);
  setLogFile();
  logLine("written");
  EXPECT_FALSE(logFailure());
}

TEST(SplashTest, ItsTextsStandAfterTheLoadAndComeBackAfterAKey) {
  ProgramRun run;
  splash().Show();
  EXPECT_EQ(splash().lblProductName.caption(), "Dealer");
  EXPECT_EQ(splash().Label2.caption(), "Gauge 2");
  EXPECT_EQ(splash().lblVersion.caption(), "Version " + versionText());
  EXPECT_EQ(splash().lblProgress.caption(), "Connecting to Server...");
  const std::string notice = splash().Label3.caption();
  EXPECT_EQ(std::count(notice.begin(), notice.end(), '\n'), 2);
  EXPECT_TRUE(notice.ends_with('\n'));

  splash().dismiss();
  EXPECT_FALSE(splash().visible());
  int repaints = 0;
  const Connection watch = splash().lblProgress.refreshed.connect([&] { ++repaints; });
  showProgress("Loading A/R...");
  EXPECT_EQ(splash().lblProgress.caption(), "Loading A/R...");
  EXPECT_EQ(repaints, 1);
  EXPECT_FALSE(splash().visible()) << "loaded again, but out of sight";
}

TEST(RecapSheetTest, TotalsAndErrorsAreWrittenAndRepainted) {
  class Sheet final : public RecapSheet {
   public:
    Label& lblRecap(int index) override { return index == 4 ? label : other; }
    Label label{"lblRecap(4)"};
    Label other{"lblRecap(5)"};
  };
  EXPECT_THROW(writeRecap(Figure::kLedgerAssets, ""), RunTimeError);
  Sheet sheet;
  setRecapSheet(&sheet);
  int repaints = 0;
  const Connection watch = sheet.label.refreshed.connect([&] { ++repaints; });
  markRecapError(Figure::kLedgerAssets);
  EXPECT_EQ(sheet.label.caption(), "Data Error !");
  EXPECT_EQ(sheet.label.foreColor(), 255);
  writeRecap(Figure::kLedgerAssets, "$1.00");
  EXPECT_EQ(sheet.label.caption(), "$1.00");
  EXPECT_EQ(sheet.label.foreColor(), kBlack);
  EXPECT_EQ(repaints, 2);
  EXPECT_EQ(sheet.other.caption(), "");
  setRecapSheet(nullptr);
}

TEST(OptionTest, AnOptionIsACapitalYAtItsPlace) {
  ProgramRun run;
  std::string options = run.builder.controlFile().block(401);
  options.replace(0, 3, "Yy ");
  options[511] = 'Y';
  run.builder.controlFile().setBlock(401, options);
  run.openEngine();
  EXPECT_TRUE(GetOption(1));
  EXPECT_FALSE(GetOption(2));
  EXPECT_FALSE(GetOption(3));
  EXPECT_TRUE(GetOption(512));
  EXPECT_FALSE(GetOption(513));
  EXPECT_TRUE(run.logged.empty());
  EXPECT_FALSE(GetOption(0));
  EXPECT_EQ(run.logged, (std::vector<std::string>{"*Error in GetOption function error # :5\r\n"
                                                  "Invalid procedure call or argument"}));
}

}  // namespace
}  // namespace dg
