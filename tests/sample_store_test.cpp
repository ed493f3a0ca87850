#include "tools/sample/sample_store.h"

#include <gtest/gtest.h>
#include <map>
#include <string>
#include <vector>

#include "platform/values/run_time_error.h"
#include "tests/support/error_number.h"
#include "tests/support/temporary_folder.h"
#include "tools/sample/folder_swap.h"

namespace dg {
namespace {

std::map<std::string, std::string> byPath(const SampleOptions& options) {
  std::map<std::string, std::string> files;
  for (SampleFile& file : composeSampleStore(options)) {
    const std::string path = file.path;
    EXPECT_TRUE(files.emplace(path, std::move(file.content)).second) << path << " stands twice";
  }
  return files;
}

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
