#include "tools/sample/sample_store.h"

#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "engine/business_basic.h"
#include "engine/codec.h"
#include "engine/state.h"
#include "engine/text_utilities.h"
#include "platform/run_time_error.h"
#include "records/lines.h"
#include "tests/support/error_number.h"
#include "tests/support/program_run.h"
#include "tests/support/temporary_folder.h"
#include "tools/sample/folder_swap.h"
#include "tools/sample/index_writer.h"
#include "tools/sample/store_layout.h"

namespace dg {
namespace {

using sample::IndexEntry;

std::map<std::string, std::string> byPath(const SampleOptions& options) {
  std::map<std::string, std::string> files;
  for (SampleFile& file : composeSampleStore(options)) {
    const std::string path = file.path;
    EXPECT_TRUE(files.emplace(path, std::move(file.content)).second) << path << " stands twice";
  }
  return files;
}

/// An example store in memory, open as its workstation would have it.
class OpenStore {
 public:
  explicit OpenStore(const SampleOptions& options) { run_.openEngine(composeSampleStore(options)); }
  cBusinessBasic& engine() { return sharedEngine(); }

 private:
  ProgramRun run_;
};

const char* const kStoreFolder = "share/SRV1/VLMRLNK/LNK001/";

TEST(SampleStore, SameOptionsGiveTheSameBytes) {
  const SampleOptions options{.seed = 11, .scale = 2};
  const auto first = byPath(options);
  EXPECT_EQ(first, byPath(options));
  SampleOptions other = options;
  other.seed = 12;
  const auto second = byPath(other);
  for (const char* name : {"PARTDB", "FILE0", "DARR.TRVN"})
    EXPECT_NE(first.at(kStoreFolder + std::string(name)),
              second.at(kStoreFolder + std::string(name)));
}

TEST(SampleStore, RefusesOptionsThatMakeNoStore) {
  const SampleOptions bad[] = {
      {.scale = 0}, {.scale = 1001}, {.indexFill = 0}, {.indexFill = 101}, {.asOf = Date()}};
  for (const SampleOptions& options : bad)
    EXPECT_THROW(composeSampleStore(options), RunTimeError);
}

TEST(SampleStore, WorkstationFindsServerAndTerminal) {
  OpenStore store({});
  ASSERT_TRUE(SharedEngine);
  EXPECT_EQ(SystemInfo->mUNCDrive, "SRV1");
  EXPECT_EQ(SystemInfo->mDirectory, "LNK001");
  EXPECT_EQ(SystemInfo->TerminalID, "12");
}

TEST(SampleStore, OpensEveryLogicalFile) {
  OpenStore store({});
  for (const sample::FileLayout& layout : sample::kFileLayouts) {
    SCOPED_TRACE(layout.name);
    const auto file = store.engine().LogicalOpen(std::string(layout.name));
    ASSERT_TRUE(file);
    EXPECT_EQ(file->FileType, std::string(1, layout.type));
    if (layout.type == 'I') {
      bool orb = false;
      EXPECT_EQ(store.engine().KLength(file, orb), layout.length);
      continue;
    }
    bool orb = false;
    EXPECT_EQ(file->RecordLength, layout.length);
    EXPECT_LE(file->HighUsedRecord(orb), file->LastRecord);
    EXPECT_LE(file->ActiveCount(orb), file->HighUsedRecord(orb));
  }
}

/// All entries of an index by KNext from its first.
std::vector<IndexEntry> walkForwards(cBusinessBasic& engine,
                                     const std::shared_ptr<cLogicalFile>& index) {
  std::vector<IndexEntry> entries;
  std::string cursor;
  std::string key;
  std::int32_t record = 0;
  bool orb = false;
  for (engine.KFind(index, cursor, key, record, orb); record != 0;
       engine.KNext(index, cursor, key, record, orb)) {
    entries.push_back({key, std::abs(record)});
  }
  return entries;
}

std::vector<IndexEntry> walkBackwards(cBusinessBasic& engine,
                                      const std::shared_ptr<cLogicalFile>& index) {
  std::vector<IndexEntry> entries;
  std::string cursor;
  std::string key;
  std::int32_t record = 0;
  bool orb = false;
  for (engine.KLast(index, cursor, key, record, orb); record != 0;
       engine.KPrev(index, cursor, key, record, orb)) {
    entries.push_back({key, record});
  }
  return entries;
}

TEST(SampleStore, EngineWalksEveryIndexBothWaysAndFindsEveryKey) {
  for (const int fill : {1, 60, 100}) {
    OpenStore store({.seed = 5, .scale = 4, .indexFill = fill});
    for (const sample::FileLayout& layout : sample::kFileLayouts) {
      if (layout.type != 'I') continue;
      SCOPED_TRACE(testing::Message() << layout.name << " at " << fill << " %");
      const auto index = store.engine().LogicalOpen(std::string(layout.name));
      ASSERT_TRUE(index);
      bool orb = false;
      const std::vector<IndexEntry> entries = walkForwards(store.engine(), index);
      ASSERT_EQ(store.engine().KCount(index, orb), static_cast<std::int32_t>(entries.size()));
      if (entries.empty()) continue;

      std::vector<IndexEntry> backwards = walkBackwards(store.engine(), index);
      std::reverse(backwards.begin(), backwards.end());
      ASSERT_TRUE(entries == backwards);
      for (std::size_t i = 0; i < entries.size(); ++i) {
        const bool repeated = i > 0 && entries[i].key == entries[i - 1].key;
        ASSERT_TRUE(!repeated || layout.duplicateKeys);
        if (repeated) continue;
        std::string cursor;
        std::string key = entries[i].key;
        std::int32_t record = 0;
        store.engine().KFind(index, cursor, key, record, orb);
        ASSERT_EQ(record, entries[i].record) << "key " << i;
      }
    }
  }
}

TEST(SampleStore, LinesHaveTheMixThatViewsMeet) {
  OpenStore store({});
  bool orb = false;
  std::set<std::string> codes;
  std::multiset<std::string> types;
  int commodities = 0;
  int noStock = 0;
  int negative = 0;
  int large = 0;
  int oddCents = 0;
  int noSales = 0;
  int atLoss = 0;
  int reserved = 0;
  clsLines line;
  const auto index = store.engine().LogicalOpen("LINEI");
  for (const IndexEntry& entry : walkForwards(store.engine(), index)) {
    line.Read(entry.record, orb);
    ASSERT_EQ(line.Line, Unpack('C', entry.key, 1));
    if (line.Line >= 1000) {
      ++reserved;
      continue;
    }
    EXPECT_TRUE(codes.insert(line.Alpha_Line).second) << line.Alpha_Line;
    types.insert(line.Line_Type);
    commodities += line.Commodities.size() > 1 ? 1 : 0;
    noStock += line.Cost_of_Mdse == Currency() ? 1 : 0;
    negative += line.Cost_of_Mdse < Currency() ? 1 : 0;
    large += line.Cost_of_Mdse >= Currency(1'000'000) ? 1 : 0;
    oddCents += line.Cost_of_Mdse.tenThousandths() % Currency::kUnit != 0 ? 1 : 0;
    noSales += line.YTD_Sales == Currency() ? 1 : 0;
    atLoss += line.YTD_Cost > line.YTD_Sales ? 1 : 0;
    EXPECT_LE(line.YTD_Items_Filled, line.YTD_Items_Ordered);
    EXPECT_NE(line.Seas_Date_Last_Gen, kEmptyDate) << "lies in the extension";
  }
  EXPECT_EQ(codes.size(), 40U);
  EXPECT_GT(types.count("P"), types.count("U"));
  EXPECT_GT(types.count("U"), 0U);
  EXPECT_GT(types.count("R"), 0U);
  for (const int count : {commodities, noStock, negative, large, oddCents, noSales, atLoss})
    EXPECT_GT(count, 0);
  EXPECT_EQ(reserved, 3) << "lines that end the scans";
}

TEST(SampleStore, ReceivablesAddUpToLineThirty) {
  const std::string text = byPath({}).at(kStoreFolder + std::string("DARR.TRVN"));
  std::istringstream lines(text);
  std::string line;
  std::int64_t sum = 0;
  int count = 0;
  while (std::getline(lines, line)) {
    ++count;
    const std::vector<std::string> fields = Split(Trun(line, true), ",");
    ASSERT_EQ(fields.size(), 2U) << "line " << count;
    if (count == 1) continue;
    const std::int64_t cents = std::stoll(fields[1]);
    if (count < 30) sum += cents;
    if (count == 30) {
      EXPECT_EQ(cents, sum);
    }
  }
  EXPECT_GT(count, 31) << "futures follow the total";
}

TEST(SampleStore, WarrantySegmentsSetBothOptions) {
  for (const bool segments : {false, true}) {
    const std::string control =
        byPath({.warrantySegments = segments}).at(kStoreFolder + std::string("FILE0"));
    const std::string options = control.substr(401 * 512, 512);
    EXPECT_EQ(options[317 - 1], segments ? 'Y' : 'N');
    EXPECT_EQ(options[320 - 1], segments ? 'Y' : 'N');
  }
}

TEST(SampleFolder, ReplacesAStoreAsAWhole) {
  const TemporaryFolder root;
  writeSampleStore(root.file("store"), {.seed = 1});
  const std::string name = "store/" + std::string(kStoreFolder) + "PARTDB";
  const std::string first = root.read(name);
  root.write("store/temp/dgoperation.log", "old");
  writeSampleStore(root.file("store/"), {.seed = 2});
  EXPECT_NE(root.read(name), first);
  EXPECT_FALSE(root.has("store/temp/dgoperation.log"));
  EXPECT_EQ(root.names(), std::vector<std::string>{"store"});
  for (const auto& [path, content] : byPath({.seed = 2}))
    EXPECT_EQ(root.read("store/" + path), content) << path;
}

TEST(SampleFolder, LeavesForeignThingsAlone) {
  const TemporaryFolder root;
  root.write("store/share/letter.txt", "mine");
  root.write("file", "mine");
  for (const char* name : {"store", "file"}) {
    EXPECT_EQ(errorNumber([&] { writeSampleStore(root.file(name), {}); }), kPathFileAccess);
  }
  EXPECT_EQ(errorNumber([] { writeSampleStore("", {}); }), kPathNotFound);
  EXPECT_EQ(root.read("store/share/letter.txt"), "mine");
  EXPECT_EQ(root.read("file"), "mine");
  EXPECT_EQ(root.names(), (std::vector<std::string>{"file", "store"}));
}

TEST(SampleFolder, KeepsTheOldStoreWhenTheNewOneFails) {
  const TemporaryFolder root;
  writeSampleStore(root.file("store"), {});
  const std::string before = root.read("store/temp/cQTCatalog.ini");
  {
    sample::FolderSwap swap(root.file("store"));
    swap.write("temp", "a file where a folder must be");
    EXPECT_NE(errorNumber([&] { swap.write("temp/cQTCatalog.ini", "new"); }), 0);
  }
  EXPECT_EQ(root.read("store/temp/cQTCatalog.ini"), before);
  EXPECT_EQ(root.names(), std::vector<std::string>{"store"});
}

}  // namespace
}  // namespace dg
