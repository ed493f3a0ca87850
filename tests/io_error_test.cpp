#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/support/faulty_file_system.h"
#include "tests/support/full_run.h"
#include "tools/sample/sample_store.h"

namespace dg::test {
namespace {

const std::vector<SampleFile>& soundStore() {
  static const std::vector<SampleFile> files = composeSampleStore({});
  return files;
}

constexpr std::uint64_t kStepLimit = 500'000;

struct BrokenRun {
  FullRun run;
  std::uint64_t reads = 0;
};

/// A run whose line to the share breaks after so many reads, for one read or for good.
BrokenRun runWithBreak(std::uint64_t reads, bool forEver, RunExtent extent) {
  ProgramRun surroundings;
  surroundings.openStore(soundStore());
  auto line = std::make_unique<FaultyFileSystem>(setFileSystem(nullptr));
  const FaultyFileSystem& counter = *line;
  line->failAfter(reads, forEver);
  FullRun run = runFully(surroundings, std::move(line), kStepLimit, extent, KeepPicture::kYes);
  return {std::move(run), counter.reads()};
}

/// Whether anything tells the user of a failure. The detail windows log without an asterisk.
bool isTold(const FullRun& run) {
  constexpr std::string_view kWindows[] = {"GetDetail", "BuildPage", "BuildDetail"};
  return !run.failed.empty() || !run.messages.empty() ||
         std::ranges::any_of(run.log, [&](const std::string& line) {
           return line.starts_with('*') ||
                  std::ranges::any_of(kWindows, [&](std::string_view word) {
                    return line.find(word) != std::string::npos;
                  });
         });
}

/// Breaks the line at the first `dense` reads, where the terminal table, links and directories are
/// read, and then at about `count` places spread over the rest of the run. A break that is not
/// told must have done no harm.
void breakEverywhere(RunExtent extent, std::uint64_t dense, std::uint64_t count, bool forEver) {
  const BrokenRun sound = runWithBreak(UINT32_MAX, false, extent);
  ASSERT_TRUE(sound.run.faults.empty()) << testing::PrintToString(sound.run.faults);
  ASSERT_FALSE(isTold(sound.run)) << testing::PrintToString(sound.run.log);
  ASSERT_GT(sound.reads, dense);
  const std::uint64_t stride = (sound.reads - dense) / count + 1;
  for (std::uint64_t n = 0; n < sound.reads; n += n < dense ? 1 : stride) {
    const FullRun run = runWithBreak(n, forEver, extent).run;
    EXPECT_TRUE(run.faults.empty()) << "read " << n << ": " << testing::PrintToString(run.faults);
    // The window of a purchase order leaves out what it cannot read, and says nothing.
    if (extent == RunExtent::kEverything || isTold(run)) continue;
    EXPECT_TRUE(run.picture == sound.run.picture) << "read " << n << " failed silently";
  }
}

TEST(IoErrorTest, OneFailedReadIsToldWhereverItHappens) {
  breakEverywhere(RunExtent::kLoadAndRefresh, 30, 25, false);
}
TEST(IoErrorTest, ALineThatStaysBrokenIsToldWhereverItBreaks) {
  breakEverywhere(RunExtent::kLoadAndRefresh, 30, 25, true);
}
TEST(IoErrorTest, WindowsOpenOverABrokenLine) {
  breakEverywhere(RunExtent::kEverything, 0, 8, false);
  breakEverywhere(RunExtent::kEverything, 0, 8, true);
}

}  // namespace
}  // namespace dg::test
