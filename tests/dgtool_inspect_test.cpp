#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

#include "engine/codec.h"
#include "engine/keyed_index.h"
#include "platform/file.h"
#include "records/index_walk.h"
#include "tests/support/damage.h"
#include "tests/support/dgtool_run.h"

namespace dg {
namespace {

using nlohmann::json;

/// Customers 10, 20, ... of the index, at records 1, 2, ....
void addKeys(DgtoolRun& tool, int count) {
  for (int i = 1; i <= count; ++i)
    tool.store.builder.index("CUSTI").add(integerKey('L', 10 * i), i);
}

std::vector<int> records(const json& document) {
  std::vector<int> result;
  for (const json& entry : document["entries"])
    result.push_back(entry["record"]);
  return result;
}

TEST(DgtoolInspectTest, FilesAreListedWithTheirRecordZero) {
  DgtoolRun tool;
  auto& customers = tool.store.builder.records("CUSTL");
  customers.add("\0\1");
  customers.addFreed();
  customers.add("\0\1");
  ASSERT_EQ(tool.run({"inspect", "files", "--json"}), 0) << tool.err;
  EXPECT_EQ(tool.json()["directory"], "LNK001");
  const json files = tool.json()["files"];
  const auto find = [&](const std::string& name) {
    for (const json& file : files)
      if (file["name"] == name) return file;
    return json();
  };
  const json file = find("CUSTL");
  EXPECT_EQ(file["fileType"], "L");
  EXPECT_EQ(file["recordLength"], 200);
  EXPECT_GE(file["lastRecord"], 3);
  EXPECT_GT(file["startBlock"], 0);
  EXPECT_EQ(file["activeCount"], 2);
  EXPECT_EQ(file["highUsedRecord"], 3);
  EXPECT_EQ(find("CUSTI")["fileType"], "I");
  EXPECT_FALSE(find("CUSTI").contains("activeCount"));

  ASSERT_EQ(tool.run({"inspect", "files"}), 0);
  EXPECT_NE(tool.out.find("\nCUSTL   L "), std::string::npos) << tool.out;
}

TEST(DgtoolInspectTest, DamagedFilesAreToldOneByOne) {
  DgtoolRun tool;
  tool.store.missing = {"GLLK", "CUSTDB"};
  EXPECT_EQ(tool.run({"inspect", "files", "--json"}), 1);
  const json files = tool.json()["files"];
  for (const json& file : files) {
    const std::string name = file["name"];
    const bool damaged = name.starts_with("CHRT") || name.starts_with("GLDT") ||
                         name.starts_with("VNDR") || name == "PUTBI" || name == "RTTBI" ||
                         name.find("CUST") != std::string::npos ||
                         name.find("MAN") != std::string::npos;
    EXPECT_EQ(file.contains("error"), damaged) << file;
  }
  EXPECT_EQ(tool.run({"inspect", "files"}), 1);
}

TEST(DgtoolInspectTest, KeysAreWalkedFromAnyPlaceInBothDirections) {
  DgtoolRun tool;
  addKeys(tool, 300);
  const auto walk = [&](const std::vector<std::string>& more) {
    std::vector<std::string> arguments{"inspect", "keys", "CUSTI", "--json"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    EXPECT_EQ(tool.run(arguments), 0) << tool.err;
    return records(tool.json());
  };
  using Records = std::vector<int>;
  Records all;
  for (int i = 1; i <= 300; ++i)
    all.push_back(i);
  EXPECT_EQ(walk({}), all);
  EXPECT_EQ(tool.json()["keyLength"], 4);
  EXPECT_EQ(tool.json()["count"], 300);
  EXPECT_EQ(tool.json()["entries"][0]["key"], "0000000a");
  std::ranges::reverse(all);
  EXPECT_EQ(walk({"--reverse"}), all);
  EXPECT_EQ(walk({"--last", "--reverse"}), all);

  EXPECT_EQ(walk({"--limit", "2"}), (Records{1, 2}));
  EXPECT_EQ(walk({"--limit", "0"}), Records{});
  EXPECT_EQ(walk({"--last"}), Records{300});
  EXPECT_EQ(walk({"--find", "00000014", "--limit", "2"}), (Records{2, 3}));
  EXPECT_EQ(walk({"--find", "00000015", "--limit", "2"}), (Records{-3, 4}));
  EXPECT_EQ(walk({"--find", "00000015", "--reverse"}), (Records{-3, 2, 1}));
  EXPECT_EQ(walk({"--find", "00", "--limit", "1"}), Records{-1});
  EXPECT_EQ(walk({"--find", "ffff"}), Records{});

  ASSERT_EQ(tool.run({"inspect", "keys", "CUSTI", "--limit", "1"}), 0);
  EXPECT_EQ(tool.out, "CUSTI: 300 keys of 4 bytes\n0000000a         1  |    |\n");
}

TEST(DgtoolInspectTest, AnEmptyIndexHasNoEntriesFromEitherEnd) {
  DgtoolRun tool;
  for (const char* direction : {"--limit=5", "--reverse", "--last"}) {
    ASSERT_EQ(tool.run({"inspect", "keys", "CUSTI", "--json", direction}), 0) << tool.err;
    EXPECT_TRUE(tool.json()["entries"].empty());
    EXPECT_EQ(tool.json()["count"], 0);
  }
}

/// Entries taken out of the last leaf can leave the end mark there alone.
TEST(DgtoolInspectTest, TheLastKeyIsFoundBeforeALeafOfTheEndMarkAlone) {
  DgtoolRun tool;
  addKeys(tool, 300);
  std::vector<SampleFile> files = tool.store.builder.finish();
  int last = 300;
  for (const test::PlacedFile& file : test::placedFiles(files)) {
    if (file.name != "CUSTI") continue;
    std::string& data = files[file.data].content;
    for (std::int32_t node = 1; node <= file.lastRecord; ++node) {
      const std::int32_t at = (file.startBlock + node) * kBlockSize + 1;
      const std::int32_t count = Unpack('C', data, at);
      if (count < 2 || Unpack('C', data, at + 2) != kNoNextLeaf) continue;
      last -= count - 1;
      Pack('C', data, 1, at);
      data.replace(static_cast<std::size_t>(at) + 3, 8, 8, '\xFF');
    }
  }
  ASSERT_LT(last, 300);
  tool.store.openStore(std::move(files));
  tool.useOpenStore();
  ASSERT_EQ(tool.run({"inspect", "keys", "CUSTI", "--last", "--json"}), 0) << tool.err;
  EXPECT_EQ(records(tool.json()), std::vector<int>{last});
  ASSERT_EQ(tool.run({"inspect", "keys", "CUSTI", "--reverse", "--json"}), 0) << tool.err;
  EXPECT_EQ(records(tool.json()).size(), static_cast<std::size_t>(last));
}

TEST(DgtoolInspectTest, AnIndexWhoseLeavesBreakOffStillShowsThoseBefore) {
  DgtoolRun tool;
  addKeys(tool, 300);
  std::vector<SampleFile> files = tool.store.builder.finish();
  for (const test::PlacedFile& file : test::placedFiles(files)) {
    if (file.name != "CUSTI") continue;
    std::string& data = files[file.data].content;
    const auto leaf = static_cast<std::size_t>(file.startBlock + 1) * kBlockSize;
    Pack('C', data, 1, static_cast<std::int32_t>(leaf) + 3);  // the first leaf leads to itself
  }
  tool.store.openStore(std::move(files));
  tool.useOpenStore();
  EXPECT_EQ(tool.run({"inspect", "keys", "CUSTI", "--json", "--limit", "3"}), 1);
  EXPECT_EQ(tool.json()["keyLength"], 4);
  EXPECT_TRUE(tool.json()["count"].is_null());
  EXPECT_EQ(tool.json()["error"], "Overflow");
  EXPECT_EQ(records(tool.json()), (std::vector<int>{1, 2, 3}));
}

TEST(IndexWalkTest, OnlyTheFirstRecordNumberIsTakenByItsMagnitude) {
  ProgramRun run;
  for (int i = 1; i <= 4; ++i)
    run.builder.index("CUSTI").add(integerKey('L', i), i % 2 == 0 ? i : -10 * i);
  run.openEngine();
  std::vector<int> met;
  IndexWalk walk("CUSTI", integerKey('L', 0));
  for (; !walk.atEnd(); walk.next())
    met.push_back(walk.record());
  EXPECT_EQ(met, (std::vector<int>{10, 2}));
  EXPECT_EQ(walk.record(), -30);
  walk.next();
  EXPECT_EQ(walk.record(), 4) << "it can be gone on from there";
}

TEST(DgtoolInspectTest, ARecordIsShownAsBytesOrThroughItsClass) {
  DgtoolRun tool;
  std::string line(192, ' ');
  Pack('C', line, 1, 1);
  Pack('C', line, 23, 3);
  line[100] = '\x1B';
  line[101] = '\xE4';
  tool.store.builder.records("LINEL").add(line);
  tool.store.builder.records("ELINEL").add(std::string(64, 'x'));

  ASSERT_EQ(tool.run({"inspect", "record", "LINEL", "1"}), 0) << tool.err;
  EXPECT_TRUE(tool.out.starts_with(
      "000000  00 01 00 17 20 20 20 20  20 20 20 20 20 20 20 20  |....            |\n"))
      << tool.out;
  EXPECT_NE(
      tool.out.find("000060  20 20 20 20 1b e4 20 20  20 20 20 20 20 20 20 20  |    .\xC3\xA4"),
      std::string::npos)
      << tool.out;
  ASSERT_EQ(tool.run({"inspect", "record", "LINEL", "1", "--json"}), 0);
  EXPECT_EQ(tool.json()["length"], 192);
  EXPECT_TRUE(tool.json()["hex"].get<std::string>().starts_with("0001001720"));

  ASSERT_EQ(tool.run({"inspect", "record", "LINEL", "1", "--as", "CLSLINES", "--json"}), 0);
  EXPECT_EQ(tool.json()["class"], "clsLines");
  EXPECT_EQ(tool.json()["members"]["Line"], 23);
  EXPECT_EQ(tool.json()["length"], 256) << "the extension stands behind the record";
  EXPECT_FALSE(tool.json().contains("hex"));
  ASSERT_EQ(tool.run({"inspect", "record", "LINEL", "1", "--as", "clsLines", "--hex"}), 0);
  EXPECT_TRUE(tool.out.starts_with("Line "));
  EXPECT_NE(tool.out.find("\n\n000000  00 01"), std::string::npos);

  ASSERT_EQ(tool.run({"inspect", "record", "FILE0", "401"}), 0) << tool.err;
  EXPECT_TRUE(tool.out.starts_with("000000  ")) << tool.out;
}

TEST(DgtoolInspectTest, ARecordWithoutItsExtensionStillHasItsFirstMembers) {
  DgtoolRun tool;
  std::string line(192, ' ');
  Pack('C', line, 23, 3);
  tool.store.builder.records("LINEL").add(line);
  tool.store.builder.records("LINEL").reserve(900);
  EXPECT_EQ(tool.run({"inspect", "record", "LINEL", "900", "--as", "clsLines", "--json"}), 1);
  EXPECT_EQ(tool.json()["length"], 192);
  EXPECT_NE(tool.err.find("ELINEL"), std::string::npos) << tool.err;
}

TEST(DgtoolInspectTest, AFailureThatAClassTrapsItselfIsTold) {
  DgtoolRun tool;
  tool.store.builder.records("LINEL").add(std::string(192, ' '));
  tool.store.builder.records("ELINEL").add(std::string(64, ' '));
  auto files = tool.store.builder.finish();
  for (auto& file : files) {
    if (!file.path.ends_with("LINKSFILE")) continue;
    file.content.replace(file.content.find("COMODI"), 6, "NOMODI");
  }
  tool.store.openStore(std::move(files));
  tool.useOpenStore();
  EXPECT_EQ(tool.run({"inspect", "record", "LINEL", "1", "--as", "clsLines", "--json"}), 1);
  EXPECT_EQ(tool.json()["members"]["Commodities"], json::array({" "}));
  EXPECT_NE(tool.err.find("COMODI"), std::string::npos) << tool.err;
}

}  // namespace
}  // namespace dg
