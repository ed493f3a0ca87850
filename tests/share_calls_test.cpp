#include "tests/support/share_calls.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/full_run.h"
#include "tests/support/temporary_folder.h"
#include "tools/sample/sample_store.h"

namespace dg::test {
namespace {

constexpr std::uint64_t kStepLimit = 500'000;
constexpr int kErrors[] = {EIO, EACCES, EMFILE, ESTALE, ENOTCONN};
constexpr const char* kCallNames[kShareCalls] = {"open", "read", "close", "status", "folder"};

/// Views that show something else than over a sound line, and pass for complete. The recap shows
/// which figures failed.
std::string silentViews(const FullRun& run, const FullRun& sound) {
  std::string names;
  for (const auto& [name, text] : run.complete) {
    const bool isRecap = name.ends_with("frmRecap");
    if (text != sound.complete.at(name) && !(isRecap && !run.failed.empty())) names += name + "; ";
  }
  return names;
}

/// How far the next call to fail lies behind the last one, in the long run: with
/// DG_SHARE_GROWTH=1.01 in the environment nearly every call is tried; see scripts/damage.
std::optional<double> longGrowth() {
  const char* growth = std::getenv("DG_SHARE_GROWTH");
  return growth == nullptr ? std::nullopt : std::optional(std::atof(growth));
}

class ShareCallsTest : public testing::Test {
 protected:
  ShareCallsTest() : store_(folder_.file("store")), share_(store_ + "/share") {
    writeSampleStore(store_, {});
    // Folders are listed only for names in other letters. A document is left out where it is not
    // found, and nothing else fails with it.
    const std::filesystem::path directory = share_ + "/SRV1/VLMRLNK/LNK001";
    std::filesystem::rename(directory / "V00001", directory / "v00001");
  }

  FullRun run(const ShareCallScope&, RunExtent extent) const {
    if (isFar_) return runFullyFar(store_, extent, KeepPicture::kYes);
    return runFullyOnDisk(store_, kStepLimit, extent, KeepPicture::kYes);
  }
  /// A run in which a call fails must come to its end, and either tell of it or show all that a
  /// sound run shows.
  void attempt(const ShareFault& fault, RunExtent extent, const FullRun& sound) {
    const FullRun failing = run(ShareCallScope(share_, fault), extent);
    const std::string story = std::string(kCallNames[static_cast<int>(fault.call)]) + " " +
                              std::to_string(fault.after) + ", error " +
                              std::to_string(fault.error) + (fault.forEver ? " for ever" : "");
    EXPECT_TRUE(failing.faults.empty()) << story << ": " << testing::PrintToString(failing.faults);
    EXPECT_EQ(silentViews(failing, sound), "") << story << testing::PrintToString(failing.log);
  }
  /// Sweeps the n-th call of each kind, n growing by a factor, once and for good; the errors take
  /// turns where they are not all tried.
  void sweep(RunExtent extent, double growth, bool allErrors) {
    std::uint64_t counts[kShareCalls] = {};
    FullRun sound;
    {
      const ShareCallScope counting(share_);
      sound = run(counting, extent);
      for (int call = 0; call < kShareCalls; ++call)
        counts[call] = counting.count(static_cast<ShareCall>(call));
    }
    ASSERT_TRUE(sound.faults.empty()) << testing::PrintToString(sound.faults);
    ASSERT_EQ(sound.complete.size(), extent == RunExtent::kOneLoad ? 14U : 28U);
    std::size_t turn = 0;
    for (int call = 0; call < kShareCalls; ++call) {
      ASSERT_GT(counts[call], 10U) << kCallNames[call];
      std::vector<int> errors(std::begin(kErrors), std::end(kErrors));
      if (call == static_cast<int>(ShareCall::kRead))
        errors.insert(errors.end(), {ShareFault::kShortRead, ShareFault::kNoBytes});
      for (std::uint64_t n = 0; n < counts[call];
           n = static_cast<std::uint64_t>(static_cast<double>(n) * growth) + 1) {
        for (const bool forEver : {false, true}) {
          const std::size_t tries = allErrors ? errors.size() : 1;
          for (std::size_t i = 0; i < tries; ++i) {
            attempt({static_cast<ShareCall>(call), errors[turn++ % errors.size()], n, forEver},
                    extent, sound);
          }
        }
      }
    }
  }

  TemporaryFolder folder_;
  std::string store_;
  std::string share_;
  bool isFar_ = false;
};

TEST_F(ShareCallsTest, AFailingCallIsToldOrDoesNoHarm) {
  sweep(RunExtent::kLoadAndRefresh, longGrowth().value_or(1.6), longGrowth().has_value());
}
/// Which worker's call fails is not the same each time; what may come of it is.
TEST_F(ShareCallsTest, AFailingCallOfAWorkerIsToldOrDoesNoHarm) {
  isFar_ = true;
  sweep(RunExtent::kLoadAndRefresh, longGrowth().value_or(3), longGrowth().has_value());
}
TEST_F(ShareCallsTest, WindowsOpenOverFailingCalls) {
  const auto growth = longGrowth();
  sweep(RunExtent::kEverything, growth ? 1 + 8 * (*growth - 1) : 12, false);
}

}  // namespace
}  // namespace dg::test
