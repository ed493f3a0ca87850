#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "engine/business_basic.h"
#include "engine/state.h"
#include "platform/file.h"
#include "shell/recap_sheet.h"
#include "shell/splash.h"
#include "shell/trap.h"
#include "tests/support/dgtool_run.h"
#include "tests/support/memory_file_system.h"
#include "tools/dgtool/options.h"

namespace dg {
namespace {

using Arguments = std::vector<std::string>;

constexpr ColumnSpec kColumns[] = {{.name = "Name"}, {.name = "Total"}};

void addPlainViews(DgtoolRun& tool) {
  tool.addView("frmGLA", [](TestView& view) { view.put<Grid>("grdGLCash", kColumns); });
  tool.addView("frmGLL", [](TestView& view) { view.put<Grid>("grdGLCash", kColumns); });
}

TEST(DgtoolCommandLineTest, HelpAndVersionWorkEverywhere) {
  DgtoolRun tool;
  const Arguments commands[] = {{},
                                {"report"},
                                {"inspect"},
                                {"inspect", "files"},
                                {"inspect", "keys"},
                                {"inspect", "record"},
                                {"sample"}};
  for (Arguments command : commands) {
    command.push_back("--help");
    EXPECT_EQ(tool.run(command), 0);
    EXPECT_NE(tool.out.find("--version"), std::string::npos) << tool.out;
    EXPECT_EQ(tool.err, "");
    command.back() = "--version";
    EXPECT_EQ(tool.run(command), 0);
    EXPECT_EQ(tool.out, "dgtool " + versionText() + "\n");
  }
}

TEST(DgtoolCommandLineTest, AWrongCommandLineIsToldAndHasItsOwnStatus) {
  DgtoolRun tool;
  addPlainViews(tool);
  const struct {
    Arguments arguments;
    const char* complaint;
  } kCases[] = {
      {{}, "subcommand"},
      {{"reprot"},
       "no command reprot; the commands are report inspect attention snapshot history brief recap "
       "stores check sample"},
      {{"inspect"}, "subcommand"},
      {{"report", "--nonsense"}, "--nonsense"},
      {{"report", "frmGLA"}, "frmGLA"},
      {{"report", "--view", "frmNope"}, "no view frmNope; the views are frmRecap frmGLA frmGLL"},
      {{"report", "--json", "--csv", "grdGLCash"}, "excludes"},
      {{"report", "--details", "--csv", "grdGLCash"}, "excludes"},
      {{"report", "--csv", "grdGLCash"},
       "ambiguous, name one of frmGLA.grdGLCash frmGLL.grdGLCash"},
      {{"report", "--csv", "grdNope"}, "no grid grdNope"},
      {{"report", "--xlsx", "/no/such/folder/x.xlsx"}, "there is no such folder"},
      {{"report", "--click", "grdGLCash:1"}, "VIEW.GRID:INDEX"},
      {{"report", "--click", "frmGLA.grdGLCash:x"}, "VIEW.GRID:INDEX"},
      {{"report", "--click", "frmNope.grdGLCash:1"}, "frmNope is not loaded"},
      {{"report", "--click", "frmGLA.grdNope:1"}, "no grid grdNope"},
      {{"report", "--click", "frmGLA.grdGLCash:2"}, "no column 2"},
      {{"report", "--as-of", "11/24/26"}, "--as-of"},
      {{"report", "--store", "/no/such/store"}, "/no/such/store"},
      {{"inspect", "keys"}, "NAME"},
      {{"inspect", "keys", "CUSTI", "--find", "0g"}, "hexadecimal"},
      {{"inspect", "keys", "CUSTI", "--limit", "-1"}, "--limit"},
      {{"inspect", "keys", "NOPE"}, "NOPE"},
      {{"inspect", "keys", "CUSTL"}, "not an index"},
      {{"inspect", "record", "CUSTL", "many"}, "NUMBER"},
      {{"inspect", "record", "CUSTL", "0"}, "Illegal Record Number"},
      {{"inspect", "record", "CUSTL", "1", "--as", "clsNope"}, "no record class clsNope"},
      {{"inspect", "record", "FILE0", "580"}, "0 to 579"},
      {{"sample"}, "DIR"},
      {{"sample", "/tmp/x", "--scale", "0"}, "--scale"},
      {{"sample", "/tmp/x", "--seed", "-1"}, "--seed"},
      {{"sample", "/tmp/x", "--seed", "18446744073709551616"}, "--seed"},
      {{"report", "--store", ""}, "--store"},
      {{"sample", DG_SOURCE_DIR "/README.md"}, "README.md"},
  };
  for (const auto& each : kCases) {
    EXPECT_EQ(tool.run(each.arguments), 2) << each.complaint;
    EXPECT_NE(tool.err.find(each.complaint), std::string::npos) << each.complaint << " in:\n"
                                                                << tool.err;
    EXPECT_EQ(tool.out, "") << each.complaint;
  }
}

TEST(DgtoolCommandLineTest, AStoreThatIsNotThereHasStatusTwo) {
  for (const char* missing : {"cQTCatalog.ini", "ttymap"}) {
    DgtoolRun tool;
    tool.store.missing = {missing};
    EXPECT_EQ(tool.run({"report"}), 2);
    EXPECT_EQ(tool.out, "");
    EXPECT_NE(tool.err.find("the store cannot be reached"), std::string::npos) << tool.err;
    EXPECT_EQ(tool.run({"inspect", "files"}), 2);
    EXPECT_EQ(tool.out, "");

    EXPECT_EQ(tool.run({"report", "--json"}), 2);
    const auto document = tool.json();
    EXPECT_EQ(document["recap"].size(), 22U);
    EXPECT_EQ(document["views"].size(), 0U);
    EXPECT_FALSE(document["log"].empty());
  }
}

TEST(DgtoolCommandLineTest, ADataErrorHasStatusOne) {
  DgtoolRun tool;
  tool.addView("frmAR", [](TestView& view) {
    view.onLoad = [&view] {
      trapView(
          view, "Error in frmAr GetAR routine ", [] { throw RunTimeError(kTypeMismatch); },
          [] { markRecapError(Figure::kReceivables); });
    };
  });
  EXPECT_EQ(tool.run({"report"}), 1);
  EXPECT_NE(tool.out.find("Accounts Receivable  Data Error !"), std::string::npos) << tool.out;
  EXPECT_EQ(tool.err,
            "dgtool: frmAR: Could not be read completely: see the log.\n"
            "dgtool: Error in frmAr GetAR routine error # :  13  Type mismatch\n");
  EXPECT_NE(tool.out.find("\n\nCould not be read completely: see the log.\n"), std::string::npos);

  EXPECT_EQ(tool.run({"report", "--json"}), 1);
  EXPECT_EQ(tool.json()["recap"][0]["error"], true);
  EXPECT_EQ(tool.json()["recap"][1]["error"], false);
  EXPECT_EQ(tool.json()["views"][1]["incomplete"], true);
  EXPECT_FALSE(tool.json()["views"][0].contains("incomplete"));
  EXPECT_EQ(tool.json()["log"][0], "*Error in frmAr GetAR routine error # :  13  Type mismatch");

  EXPECT_EQ(tool.run({"report", "--view", "FRMRECAP"}), 0) << tool.err;
}

TEST(DgtoolCommandLineTest, ALoadThatBreaksOffHasStatusOneAndAStoreWithoutANameHasNot) {
  DgtoolRun tool;
  tool.store.missing = {"FILE0"};
  bool breaks = false;
  tool.addView("frmAR", [&](TestView& view) {
    view.onLoad = [&] {
      if (breaks) throw RunTimeError(kOverflow);
    };
  });
  EXPECT_EQ(tool.run({"report", "--json"}), 0);
  EXPECT_EQ(tool.json()["storeName"], "Error finding Store Name");
  EXPECT_EQ(tool.run({"report", "--json", "--refresh"}), 0);

  breaks = true;
  EXPECT_EQ(tool.run({"report", "--json"}), 1);
  EXPECT_EQ(tool.json()["log"].back(), "*Error  6 : Overflow");
}

TEST(DgtoolCommandLineTest, FilesThatAreThereAndDoNotOpenAreNamed) {
  DgtoolRun tool;
  tool.store.openStore();
  auto files = setFileSystem(nullptr);
  dynamic_cast<MemoryFileSystem&>(*files).setReadOnly(true);  // what asks to write is refused
  setFileSystem(std::move(files));
  tool.useOpenStore();
  tool.addView("frmAR", [](TestView& view) {
    view.onLoad = [] {
      for (const char* name : {"FILE0", "FILE0", "GONE"})
        sharedEngine().OpenFile(name);
    };
  });
  EXPECT_EQ(tool.run({"report"}), 1);
  EXPECT_NE(tool.out.find("Left out, since they could not be opened: FILE0.\n"), std::string::npos)
      << tool.out;
  EXPECT_EQ(tool.run({"report", "--json"}), 1);
  EXPECT_EQ(tool.json()["unopened"], (nlohmann::json{{"count", 1}, {"names", {"FILE0"}}}));
}

TEST(DgtoolCommandLineTest, AShareThatGoesDuringARefreshIsTold) {
  DgtoolRun tool;
  int loads = 0;
  tool.addView("frmAR", [&](TestView& view) {
    view.onLoad = [&] {
      if (++loads == 2) setFileSystem(std::make_unique<MemoryFileSystem>());
    };
  });
  EXPECT_EQ(tool.run({"report", "--refresh"}), 2);
  EXPECT_NE(tool.err.find("The share \\\\SRV1\\VLMRLNK\\ could not be reached"), std::string::npos)
      << tool.err;
}

TEST(DgtoolCommandLineTest, AnAnswerThatCannotBeWrittenHasStatusTwo) {
  DgtoolRun tool;
  tool.store.openStore();
  std::ostringstream out;
  std::ostringstream err;
  out.setstate(std::ios::badbit);
  EXPECT_EQ(runDgtool({"report"}, Console{out, err}, tool.views), 2);
  EXPECT_NE(err.str().find("cannot be written"), std::string::npos);
}

TEST(DgtoolCommandLineTest, TheLogIsWrittenUnlessItIsTurnedOff) {
  DgtoolRun tool;
  EXPECT_EQ(tool.run({"report", "--no-log"}), 0);
  EXPECT_FALSE(tool.store.folder.has("dgoperation.log"));
  EXPECT_EQ(tool.run({"report", "--as-of", "2024-02-29 23:59"}), 0);
  EXPECT_EQ(tool.store.log(),
            "2/29/24 11:59:00 PM  Program Start from : PC7  Terminal :12\r\n"
            "2/29/24 11:59:00 PM  Program End \r\n");
}

TEST(DgtoolCommandLineTest, ProgressIsShownOnATerminalOnly) {
  DgtoolRun tool;
  tool.addView("frmAR",
               [](TestView& view) { view.onLoad = [] { showProgress("Loading A/R..."); }; });
  EXPECT_EQ(tool.run({"report"}), 0);
  EXPECT_EQ(tool.err, "");
  tool.errIsTerminal = true;
  EXPECT_EQ(tool.run({"report", "--refresh"}), 0);
  EXPECT_NE(tool.err.find("Loading A/R..."), std::string::npos);
  EXPECT_TRUE(tool.err.ends_with("\r\x1B[K")) << "the line is cleared in the end";
}

TEST(DgtoolOptionsTest, MomentsAreChecked) {
  EXPECT_EQ(parseMoment("2026-11-24T10:30:00"), Date(46350, 37800));
  EXPECT_EQ(parseMoment("2026-11-24 10:30"), Date(46350, 37800));
  EXPECT_EQ(parseMoment("2026-11-24"), Date(46350));
  for (const char* wrong :
       {"", "2026", "2026-11-24T", "2026-11-24T1030", "2026-13-01", "2026-02-29",
        "2026-11-24T24:00", "2026-11-24T10:60", "2026-11-24T10:30:60", "2026-11-24T10:30:00Z",
        "26-11-24", "2026-1-1", "+026-11-24", "2026-11-24X10:30"}) {
    EXPECT_FALSE(parseMoment(wrong)) << wrong;
  }
}

TEST(DgtoolOptionsTest, KeysAreHexadecimal) {
  EXPECT_EQ(parseHex("00fF 7a"), std::string("\x00\xFF\x7A", 3));
  EXPECT_EQ(parseHex(""), "");
  for (const char* wrong : {"0", "0x00", "00 0", "zz", "00 0 0"})
    EXPECT_FALSE(parseHex(wrong)) << wrong;
}

}  // namespace
}  // namespace dg
