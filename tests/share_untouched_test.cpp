#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <iterator>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <sys/wait.h>

#include "tests/support/full_run.h"
#include "tests/support/memory_file_system.h"
#include "tests/support/temporary_folder.h"
#include "tools/sample/sample_store.h"

namespace dg::test {
namespace {

namespace fs = std::filesystem;

constexpr std::uint64_t kStepLimit = 500'000;

/// All that a write, a creation or a removal would change: content, length, mode, the times of the
/// last change of content and of status, to the nanosecond. The time of the last access is not in
/// it: reading may change that.
std::map<std::string, std::string> listing(const fs::path& root) {
  std::map<std::string, std::string> found;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(root)) {
    struct stat status = {};
    EXPECT_EQ(::lstat(entry.path().c_str(), &status), 0);
    std::string facts;
    for (const std::int64_t fact :
         {std::int64_t{status.st_mode}, std::int64_t{status.st_size},
          std::int64_t{status.st_mtim.tv_sec}, std::int64_t{status.st_mtim.tv_nsec},
          std::int64_t{status.st_ctim.tv_sec}, std::int64_t{status.st_ctim.tv_nsec}})
      facts += std::to_string(fact) + " ";
    if (entry.is_regular_file()) {
      std::ifstream stream(entry.path(), std::ios::binary);
      const std::string content{std::istreambuf_iterator<char>(stream),
                                std::istreambuf_iterator<char>()};
      facts += std::to_string(std::hash<std::string>{}(content));
    }
    found[entry.path().lexically_relative(root).string()] = facts;
  }
  return found;
}

/// A store on disk whose share nothing may change.
class ShareUntouchedTest : public testing::Test {
 protected:
  ShareUntouchedTest() { writeSampleStore(store_, {}); }

  FullRun run() { return runFullyOnDisk(store_, kStepLimit); }
  fs::path share() const { return fs::path(store_) / "share"; }
  fs::path inStore(const std::string& name) const {
    return share() / "SRV1" / "VLMRLNK" / "LNK001" / name;
  }

  TemporaryFolder folder_;
  const std::string store_ = folder_.file("store");
};

TEST_F(ShareUntouchedTest, ARunLeavesEveryFileAsItWas) {
  const auto before = listing(share());
  ASSERT_GT(before.size(), 80U);
  const FullRun run = this->run();
  EXPECT_TRUE(run.faults.empty()) << testing::PrintToString(run.faults);
  EXPECT_TRUE(run.failed.empty());
  EXPECT_GT(run.windows, 300);
  EXPECT_EQ(listing(share()), before);
  EXPECT_GT(runFullyFar(store_).windows, 300);
  EXPECT_EQ(listing(share()), before);
  // The log is what the program does write, in the workstation's own folder.
  EXPECT_TRUE(fs::exists(fs::path(store_) / "temp" / "dgoperation.log"));
}

TEST_F(ShareUntouchedTest, MissingFilesAreNotCreated) {
  for (const char* name : {"FILE0", "PARTDB", "GLLK", "DARR.TRVN"})
    fs::remove(inStore(name));
  fs::remove(share() / "SRV1" / "VLMRLNK" / "ttymap");
  const auto before = listing(share());
  const FullRun run = this->run();
  EXPECT_TRUE(run.faults.empty()) << testing::PrintToString(run.faults);
  EXPECT_EQ(listing(share()), before);

  fs::remove(share() / "SRV1" / "VLMRLNK" / "LINKSFILE");
  const auto withoutLinks = listing(share());
  EXPECT_TRUE(this->run().faults.empty());
  EXPECT_EQ(listing(share()), withoutLinks);
}

/// Data files are opened for writing, as the suite does, and would take the place of a standard
/// stream that is closed: what is printed would stand in them.
TEST_F(ShareUntouchedTest, ClosedStandardStreamsDoNotLeadIntoAFile) {
  const auto before = listing(share());
  const std::string place = " --store '" + store_ + "' --no-log";
  const std::string commands[] = {
      "report" + place,
      "report --json --details" + place,
      "report --xlsx '" + folder_.file("book.xlsx") + "'" + place,
      "inspect files" + place,
      "inspect keys CUSTI" + place,
      "inspect record CUSTL 1" + place,
      "check" + place,
      "sample '" + folder_.file("other") + "'",
      "report --view frmNope" + place,
  };
  for (const std::string& command : commands) {
    for (const char* closed : {"<&-", ">&-", "2>&-", "<&- >&- 2>&-"}) {
      // What is left open leads nowhere.
      const std::string line = "exec </dev/null >/dev/null 2>/dev/null; '" DG_DGTOOL "' " + command;
      const int status = std::system((line + " " + closed).c_str());
      ASSERT_TRUE(WIFEXITED(status)) << command << closed;
      const bool printsNothing = command.starts_with("report --xlsx");
      if (std::string_view(closed).starts_with(">&-") && !printsNothing) {
        EXPECT_EQ(WEXITSTATUS(status), 2) << command << ": the answer went nowhere";
      }
      ASSERT_EQ(listing(share()), before) << command << closed;
    }
  }
}

/// The suite's terminals open their files for reading and writing, and so does this program. A
/// share that grants reading only refuses that: the files count as missing, and every view that
/// needs one says so. What is read as plain text still shows.
TEST(ReadOnlyShareTest, FilesCountAsMissingAndEveryViewSaysSo) {
  ProgramRun surroundings;
  surroundings.openStore(composeSampleStore({}));
  auto files = setFileSystem(nullptr);
  dynamic_cast<MemoryFileSystem&>(*files).setReadOnly(true);
  const FullRun run = runFully(surroundings, std::move(files), kStepLimit);
  EXPECT_TRUE(run.faults.empty()) << testing::PrintToString(run.faults);
  for (const char* stage : {"load", "refresh"}) {
    for (const int label : {1, 2, 3, 4, 5, 6, 7, 8, 9, 11, 12}) {
      EXPECT_EQ(std::ranges::count(run.failed,
                                   std::string(stage) + " lblRecap(" + std::to_string(label) + ")"),
                1)
          << stage << " " << label;
    }
  }
}

}  // namespace
}  // namespace dg::test
