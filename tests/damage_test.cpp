#include "tests/support/damage.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <iostream>
#include <string>
#include <vector>

#include "tests/support/full_run.h"
#include "tests/support/resident_memory.h"
#include "tests/support/temporary_folder.h"
#include "tools/sample/sample_store.h"

namespace dg::test {
namespace {

/// A number out of the environment, for long runs; see scripts/damage.
std::uint64_t fromEnvironment(const char* name, std::uint64_t otherwise) {
  const char* text = std::getenv(name);
  return text == nullptr || *text == '\0' ? otherwise : std::strtoull(text, nullptr, 10);
}

#if defined(__SANITIZE_ADDRESS__)
// The sanitizer keeps freed memory for a while; its figures say nothing about the program.
constexpr std::int64_t kMostKilobytes = INT64_MAX;
#else
constexpr std::int64_t kMostKilobytes = std::int64_t{512} * 1024;
#endif

const std::vector<SampleFile>& soundStore() {
  static const std::vector<SampleFile> files = composeSampleStore({});
  return files;
}

/// Calls to the file system of a run over the sound store.
std::uint64_t soundSteps() {
  static const std::uint64_t steps = runFully(soundStore(), UINT64_MAX).steps;
  return steps;
}

/// Damage may make a run longer: a list that comes twice, a chain walked to its guard for every
/// row. Beyond this it counts as endless.
constexpr std::uint64_t kLongerAtMost = 20;

TEST(DamageTest, ASoundStoreHasNoFaults) {
  const FullRun run = runFully(soundStore(), UINT64_MAX);
  EXPECT_TRUE(run.faults.empty()) << testing::PrintToString(run.faults);
  EXPECT_TRUE(run.failed.empty()) << testing::PrintToString(run.failed);
  EXPECT_TRUE(run.messages.empty());
  EXPECT_GT(run.windows, 300);
}

/// The copies in shards, so that tests run side by side.
class DamagedCopies : public testing::TestWithParam<std::uint64_t> {};
constexpr std::uint64_t kShards = 8;

/// Workers that fetch ahead change nothing: neither what is shown nor what is told.
void compareFar(const DamagedStore& store, const FullRun& near) {
  const TemporaryFolder folder;
  for (const SampleFile& file : store.files)
    folder.write("store/" + file.path, file.content);
  const FullRun far = runFullyFar(folder.file("store"));
  EXPECT_TRUE(far.faults.empty()) << store.story << testing::PrintToString(far.faults);
  EXPECT_EQ(far.windows, near.windows) << store.story;
  EXPECT_EQ(far.failed, near.failed) << store.story;
  EXPECT_EQ(far.log, near.log) << store.story;
}
/// Of the copies of a shard, those that are read over a far line too.
constexpr std::uint64_t kFarEach = 12;

TEST_P(DamagedCopies, AreReadWithoutHarmAndFailuresAreTold) {
  const std::uint64_t usual = 7 * Damager::kinds().size();
  const std::uint64_t first = fromEnvironment("DG_DAMAGE_FIRST", 0);
  const std::uint64_t end = first + fromEnvironment("DG_DAMAGE_COUNT", usual);
  const bool trace = fromEnvironment("DG_DAMAGE_TRACE", 0) != 0;
  const std::uint64_t limit = kLongerAtMost * soundSteps();
  const Damager damager(soundStore());
  const std::int64_t before = residentKilobytes();
  for (std::uint64_t number = first + GetParam(); number < end; number += kShards) {
    const DamagedStore store = damager.make(number);
    if (trace) std::cerr << "copy " << number << ": " << store.story << std::endl;
    const FullRun run = runFully(store.files, limit);
    EXPECT_TRUE(run.faults.empty())
        << "copy " << number << " (" << store.story << "): " << testing::PrintToString(run.faults);
    if ((number - first) / kShards % kFarEach == 0) compareFar(store, run);
    if (!trace) continue;
    std::cerr << "  calls " << run.steps << ", windows " << run.windows << ", labels in error "
              << run.failed.size() << std::endl;
  }
  const std::int64_t growth = residentKilobytes() - before;
  if (trace) std::cerr << "resident memory grew by " << growth << " kB" << std::endl;
  EXPECT_LT(growth, kMostKilobytes);
}

INSTANTIATE_TEST_SUITE_P(DamageTest, DamagedCopies, testing::Range(std::uint64_t{0}, kShards));

}  // namespace
}  // namespace dg::test
