#include <algorithm>
#include <atomic>
#include <chrono>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <thread>
#ifdef __GLIBC__
#include <pthread.h>
#endif

#include "platform/fetch_pool.h"
#include "platform/file_call.h"
#include "platform/share_line.h"
#include "tests/support/full_run.h"
#include "tests/support/network_folder.h"
#include "tests/support/scopes.h"
#include "tests/support/temporary_folder.h"
#include "tools/sample/sample_store.h"

namespace dg {
namespace {

using std::chrono::microseconds;
using std::chrono::milliseconds;

constexpr microseconds kNear(300);

TEST(ShareLine, IsFarWhileAnswersAreSlowAndNotAfterOneThatIs) {
  const auto note = [](ShareLine& line, int answers, microseconds each) {
    for (int i = 0; i < answers; ++i)
      line.note(each);
    return line.isFar();
  };
  constexpr microseconds kQuick(50);
  constexpr microseconds kSlow(900);
  ShareLine disk(kNear, kPatience);
  EXPECT_TRUE(disk.isFar()) << "nothing is known yet";
  EXPECT_FALSE(note(disk, 1, kQuick));
  EXPECT_FALSE(note(disk, 1, kSlow) || note(disk, 40, kQuick) || note(disk, 2, kSlow));
  EXPECT_TRUE(note(disk, 1, kSlow));
  EXPECT_FALSE(note(disk, 100, kQuick));
  ShareLine server(kNear, kPatience);
  EXPECT_TRUE(note(server, 1, kSlow));
  for (int i = 0; i < 100; ++i) {
    note(server, 10, kQuick);
    for (int known = 0; known < 100; ++known)
      server.note(kQuick, ShareLine::Tells::kOnlyIfSlow);
    EXPECT_TRUE(note(server, 1, kSlow)) << "most is known already";
  }
}

/// Counts the reads that workers have done.
class Reads {
 public:
  Reads() : former_(watchFileCalls([](FileCall call) { done() += call == FileCall::kRead; })) {
    done() = 0;
  }
  ~Reads() { watchFileCalls(former_); }
  Reads(const Reads&) = delete;
  Reads& operator=(const Reads&) = delete;

  /// Whether there come to be so many.
  static bool reach(int count) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (done() < count && std::chrono::steady_clock::now() < end)
      std::this_thread::yield();
    return done() >= count;
  }

 private:
  static std::atomic<int>& done() {
    static std::atomic<int> count = 0;
    return count;
  }
  FileCallWatcher former_;
};

TEST(FetchPool, WhatIsNeededLateStandsInNobodysWay) {
  if (!test::NetworkFolder::isPossible()) GTEST_SKIP() << "no folder can stand for the network";
  const TemporaryFolder folder;
  constexpr int kLarge = 40;
  const std::string megabyte(read_ahead::kLongestRun, 'x');
  for (int i = 0; i < kLarge; ++i)
    folder.write("net/SRV/LNK/LARGE" + std::to_string(i), megabyte);
  folder.write("net/SRV/LNK/DOCUMENT", "a vendor's order");
  const EnvironmentScope environment;
  const test::NetworkFolder network(folder.file("net"));

  const Reads reads;
  FetchPool pool(std::make_shared<ShareLine>(kEveryLineIsFar, kPatience));
  for (int i = 0; i < kLarge; ++i) {
    pool.expect("\\\\SRV\\LNK\\LARGE" + std::to_string(i), FileAccess::kRead, Expected::kLater);
  }
  constexpr int kMost = FetchPool::kMostBytesAhead / read_ahead::kLongestRun;
  ASSERT_TRUE(Reads::reach(kMost));
  pool.expect("\\\\SRV\\LNK\\DOCUMENT", FileAccess::kRead, Expected::kSoon);
  ASSERT_TRUE(Reads::reach(kMost + 1));
  const FetchedRun document = pool.takeFile("\\\\SRV\\LNK\\DOCUMENT", FileAccess::kRead);
  ASSERT_TRUE(document.bytes);
  EXPECT_EQ(std::string(document.bytes.get(), document.length), "a vendor's order");
  // Of the others no more than the bound: the next is fetched when one is taken.
  int fetched = 0;
  while (pool.takeFile("\\\\SRV\\LNK\\LARGE" + std::to_string(fetched), FileAccess::kRead).bytes)
    ++fetched;
  EXPECT_GE(fetched, kMost);
}

#ifdef __GLIBC__
/// While it lives no thread can be started: its stack has no room.
class NoThreads {
 public:
  NoThreads() {
    ::pthread_getattr_default_np(&former_);
    pthread_attr_t huge;
    ::pthread_attr_init(&huge);
    ::pthread_attr_setstacksize(&huge, std::size_t{1} << 47);
    isInPlace_ = ::pthread_setattr_default_np(&huge) == 0;
    ::pthread_attr_destroy(&huge);
  }
  ~NoThreads() {
    ::pthread_setattr_default_np(&former_);
    ::pthread_attr_destroy(&former_);
  }
  NoThreads(const NoThreads&) = delete;
  NoThreads& operator=(const NoThreads&) = delete;

  bool isInPlace() const { return isInPlace_; }

 private:
  pthread_attr_t former_;
  bool isInPlace_ = false;
};

TEST(FetchPool, ALoadWhoseWorkersCannotStartReadsByItself) {
  const TemporaryFolder folder;
  const std::string store = folder.file("store");
  writeSampleStore(store, {});
  const test::FullRun usual =
      test::runFullyFar(store, test::RunExtent::kLoadAndRefresh, test::KeepPicture::kYes);
  const NoThreads none;
  ASSERT_TRUE(none.isInPlace());
  EXPECT_THROW(std::thread([] {}).join(), std::system_error);
  const test::FullRun alone =
      test::runFullyFar(store, test::RunExtent::kLoadAndRefresh, test::KeepPicture::kYes);
  EXPECT_TRUE(alone.faults.empty()) << testing::PrintToString(alone.faults);
  EXPECT_TRUE(alone.log == usual.log);
  EXPECT_TRUE(alone.picture == usual.picture);
}
#endif

}  // namespace
}  // namespace dg
