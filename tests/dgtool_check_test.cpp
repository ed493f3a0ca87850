#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "tests/support/dgtool_run.h"
#include "tools/sample/sample_store.h"

namespace dg {
namespace {

using nlohmann::json;

/// dgtool over a full example store, from which a test may take files away.
class DgtoolCheckTest : public ::testing::Test {
 protected:
  DgtoolRun tool;

  void openStore(std::vector<std::string> missing) {
    tool.run({"--version"});
    tool.store.missing = std::move(missing);
    tool.store.openStore(composeSampleStore({}));
  }
  json findings(const std::string& kind) {
    json found = json::array();
    const json document = tool.json();
    for (const json& finding : document["findings"]) {
      if (finding["kind"] == kind) found.push_back(finding);
    }
    return found;
  }
};

TEST_F(DgtoolCheckTest, ASoundStoreHasNotesAndTheStatusOfSuccess) {
  openStore({});
  ASSERT_EQ(tool.run({"check", "--json"}), 0) << tool.out << tool.err;
  const json document = tool.json();
  EXPECT_EQ(document["directory"], "LNK001");
  EXPECT_EQ(document["extent"], "whole");
  EXPECT_EQ(document["damage"], 0);
  EXPECT_EQ(document["files"], 32);
  EXPECT_GT(document["records"], 1'000);
  EXPECT_GT(document["indexEntries"], 1'000);
  EXPECT_EQ(document["notes"], document["findings"].size());
  EXPECT_EQ(document["omitted"], json::array());
  const json missing = findings("document-missing");
  ASSERT_FALSE(missing.empty());
  EXPECT_EQ(missing[0]["severity"], "note");
  EXPECT_EQ(missing[0]["file"], "PUTBI");
  EXPECT_EQ(missing[0]["physicalFile"], "LNK001\\GLDB");
  EXPECT_GT(missing[0]["block"], 0);
  EXPECT_GT(missing[0]["offset"], 1'024);
  EXPECT_FALSE(missing[0].contains("record"));

  ASSERT_EQ(tool.run({"check"}), 0);
  EXPECT_NE(tool.out.find("\nPUTBI\n  note    The document V00009 is not there.\n          block "),
            std::string::npos)
      << tool.out;
  EXPECT_NE(tool.out.find("in use examined: 0 findings of damage, "), std::string::npos);
  EXPECT_EQ(tool.err, "");
}

TEST_F(DgtoolCheckTest, DamageIsTheStatusOne) {
  openStore({"GLLK", "V00001"});
  ASSERT_EQ(tool.run({"check", "--json"}), 1);
  const json nowhere = findings("link-nowhere");
  ASSERT_GT(nowhere.size(), 3U);
  EXPECT_EQ(nowhere[0]["severity"], "damage");
  EXPECT_EQ(nowhere[0]["file"], "LINKSFILE");
  EXPECT_EQ(nowhere[0]["offset"], 160 * nowhere[0]["entry"].get<int>());

  ASSERT_EQ(tool.run({"check", "--limit", "3", "--json"}), 1);
  EXPECT_EQ(findings("link-nowhere").size(), 3U);
  const json omitted = tool.json()["omitted"];
  ASSERT_EQ(omitted.size(), 1U);
  EXPECT_EQ(omitted[0]["file"], "LINKSFILE");
  EXPECT_GT(omitted[0]["damage"], 0);
  EXPECT_GT(omitted[0]["notes"], 0);

  ASSERT_EQ(tool.run({"check", "--limit", "3"}), 1);
  const std::string rest = "  and " + omitted[0]["damage"].dump() + " findings of damage more\n";
  EXPECT_NE(tool.out.find(rest), std::string::npos) << tool.out;
}

TEST_F(DgtoolCheckTest, AQuickCheckReadsNoRecords) {
  openStore({});
  ASSERT_EQ(tool.run({"check", "--quick", "--json"}), 0);
  EXPECT_EQ(tool.json()["extent"], "quick");
  EXPECT_EQ(tool.json()["records"], 0);
  EXPECT_TRUE(findings("document-missing").empty());
  ASSERT_EQ(tool.run({"check", "--quick"}), 0);
  EXPECT_EQ(tool.out.find("in use"), std::string::npos) << tool.out;
}

TEST_F(DgtoolCheckTest, WhatKeepsProgramsFromStartingIsDamageAndNotAFailure) {
  openStore({"ttymap", "LINKSFILE"});
  ASSERT_EQ(tool.run({"check", "--json"}), 1) << tool.err;
  EXPECT_EQ(findings("terminal-table").size(), 1U);
  EXPECT_EQ(findings("link-table").size(), 1U);
}

TEST_F(DgtoolCheckTest, AStoreThatCannotBeReachedOrAWrongOptionIsTheStatusTwo) {
  openStore({"cQTCatalog.ini"});
  EXPECT_EQ(tool.run({"check"}), 2);
  EXPECT_NE(tool.err.find("the store cannot be reached"), std::string::npos);
  EXPECT_EQ(tool.out, "");
  tool.store.openStore({});
  EXPECT_EQ(tool.run({"check"}), 2);
  for (const char* limit : {"0", "-1", "many"})
    EXPECT_EQ(tool.run({"check", "--limit", limit}), 2) << limit;
  EXPECT_EQ(tool.run({"check", "PARTL"}), 2);
}

TEST_F(DgtoolCheckTest, ProgressIsShownOnATerminalOnly) {
  openStore({});
  tool.errIsTerminal = true;
  ASSERT_EQ(tool.run({"check", "--quick"}), 0);
  EXPECT_NE(tool.err.find("Examining CUSTI..."), std::string::npos);
  EXPECT_TRUE(tool.err.ends_with("\r\x1B[K")) << "nothing of it stays";
  EXPECT_EQ(tool.out.find("Examining"), std::string::npos);
}

}  // namespace
}  // namespace dg
