#include <algorithm>
#include <chrono>
#include <gtest/gtest.h>
#include <memory>
#include <sstream>
#include <string>
#include <utility>

#include "platform/environment.h"
#include "platform/file.h"
#include "platform/read_ahead.h"
#include "platform/values/run_time_error.h"
#include "tests/support/error_number.h"
#include "tests/support/memory_file_system.h"
#include "tests/support/network_folder.h"
#include "tests/support/scopes.h"
#include "tests/support/silent_line.h"
#include "tests/support/temporary_folder.h"
#include "tools/dgtool/json_report.h"
#include "tools/dgtool/session.h"
#include "tools/sample/sample_store.h"
#include "views/view_catalogue.h"

namespace dg {
namespace {

using read_ahead::kExtentSize;

constexpr const char* kFile = "\\\\srv\\VLMRLNK\\d\\DATADB";

/// Bytes that differ from extent to extent and within each.
std::string content(std::size_t size) {
  std::string bytes(size, '\0');
  for (std::size_t i = 0; i < size; ++i)
    bytes[i] = static_cast<char>((i * 7 + i / kExtentSize * 31) % 251);
  return bytes;
}

/// One file in memory that is open, and the reads that reach it.
class ReadAhead : public testing::Test {
 protected:
  void open(std::string bytes) {
    auto memory = std::make_unique<MemoryFileSystem>();
    memory->add(kFile, std::move(bytes));
    // A second way to the same content, past what is kept.
    back_ = memory->open(kFile, FileAccess::kReadWrite);
    fileSystem_ = std::make_unique<FileSystemScope>(std::move(memory));
    file_ = fileSystem().open(kFile, FileAccess::kReadWrite);
  }
  std::string read(std::int64_t offset, std::size_t count) {
    return readFrom(*file_, offset, count);
  }
  static std::string readFrom(File& file, std::int64_t offset, std::size_t count) {
    std::string bytes(count, '?');
    bytes.resize(file.read(offset, bytes.data(), count));
    return bytes;
  }
  /// How many reads reach the file while `step` runs.
  template <class Step>
  static std::uint64_t calls(Step step) {
    const std::uint64_t before = readStatistics().calls;
    step();
    return readStatistics().calls - before;
  }

  std::unique_ptr<FileSystemScope> fileSystem_;
  std::unique_ptr<File> back_;
  std::unique_ptr<File> file_;
};

TEST_F(ReadAhead, GivesTheFilesBytesWhereverExtentsMeet) {
  const std::string bytes = content(3 * kExtentSize + 1000);
  open(bytes);
  const ReadAheadScope keeping;
  const auto edge = static_cast<std::int64_t>(kExtentSize);
  for (const std::int64_t begin : {std::int64_t{0}, edge, 2 * edge, 3 * edge, 3 * edge + 1000}) {
    for (const std::int64_t offset : {begin - 513, begin - 1, begin, begin + 1}) {
      if (offset < 0) continue;
      for (const std::size_t count :
           {std::size_t{0}, std::size_t{1}, std::size_t{512}, kExtentSize, 2 * kExtentSize + 3}) {
        const std::size_t start = std::min(static_cast<std::size_t>(offset), bytes.size());
        EXPECT_EQ(read(offset, count), bytes.substr(start, count)) << offset << ' ' << count;
      }
    }
  }
  EXPECT_EQ(errorNumber([&] { read(-1, 1); }), 63);
  EXPECT_EQ(read(INT64_MAX - 5, 100), "");
}

TEST_F(ReadAhead, FetchesAnExtentOnceForAllWhoReadThePath) {
  open(content(4 * kExtentSize));
  const ReadAheadScope keeping;
  EXPECT_EQ(calls([&] {
              for (std::int64_t offset = 0; offset < 60'000; offset += 512)
                read(offset, 512);
            }),
            1u);
  EXPECT_EQ(calls([&] {
              const auto second = fileSystem().open(kFile, FileAccess::kRead);
              file_.reset();
              readFrom(*second, 100, 512);
              readFrom(*fileSystem().open(kFile, FileAccess::kRead), 200, 512);
            }),
            0u);
}

TEST_F(ReadAhead, ReadsOnInLongerRunsWhereAReaderGoesStraightOn) {
  constexpr std::size_t kExtents = 64;
  open(content(kExtents * kExtentSize));
  const ReadAheadScope keeping;
  EXPECT_LE(calls([&] {
              for (std::size_t i = 0; i < kExtents * kExtentSize; i += 512)
                read(static_cast<std::int64_t>(i), 512);
            }),
            9u);
}

TEST_F(ReadAhead, ForgetsAtTheScopesEndAndAtAWrite) {
  open("old");
  {
    const ReadAheadScope keeping;
    EXPECT_EQ(read(0, 3), "old");
    back_->write(0, "new");
    EXPECT_EQ(read(0, 3), "old");
    const ReadAheadScope inner;  // ends without a trace
  }
  EXPECT_EQ(read(0, 3), "new");
  const ReadAheadScope keeping;
  EXPECT_EQ(read(0, 3), "new");
  file_->write(1, "o");
  EXPECT_EQ(read(0, 3), "now");
}

TEST_F(ReadAhead, SeesWhatAFileGrewByBehindItsFormerEnd) {
  open(content(1000));
  const ReadAheadScope keeping;
  EXPECT_EQ(read(900, 512), content(1000).substr(900));
  EXPECT_EQ(read(1000, 512), "");
  back_->write(1000, "a record more");
  EXPECT_EQ(read(1000, 512), "a record more");
  // Up to the former end the file stays as it was first read.
  EXPECT_EQ(read(900, 512), content(1000).substr(900));
}

/// A file whose end and whose readable bytes can change behind the reader's back.
class ShakyFile final : public File {
 public:
  struct State {
    std::string bytes;
    std::int64_t badByte = -1;  ///< reads that touch it fail
  };
  explicit ShakyFile(std::shared_ptr<State> state) : state_(std::move(state)) {}

  std::size_t read(std::int64_t offset, char* buffer, std::size_t count) override {
    countRead(0);
    const std::int64_t bad = state_->badByte;
    if (bad >= offset && bad < offset + static_cast<std::int64_t>(count)) {
      throw RunTimeError(kDeviceIoError);
    }
    const std::size_t start = std::min(static_cast<std::size_t>(offset), state_->bytes.size());
    return state_->bytes.copy(buffer, count, start);
  }
  void write(std::int64_t, std::string_view) override {}
  std::int64_t size() override { return static_cast<std::int64_t>(state_->bytes.size()); }

 private:
  std::shared_ptr<State> state_;
};

class ShakyFileSystem final : public FileSystem {
 public:
  explicit ShakyFileSystem(std::shared_ptr<ShakyFile::State> state) : state_(std::move(state)) {}
  std::unique_ptr<File> open(const std::string&, FileAccess) override {
    return std::make_unique<ShakyFile>(state_);
  }
  bool fileExists(const std::string&) override { return true; }
  bool directoryExists(const std::string&) override { return true; }

 private:
  std::shared_ptr<ShakyFile::State> state_;
};

class ReadAheadTrouble : public ReadAhead {
 public:
  ~ReadAheadTrouble() override { closeNumbered(1); }

 protected:
  ReadAheadTrouble() {
    fileSystem_ = std::make_unique<FileSystemScope>(std::make_unique<ShakyFileSystem>(state_));
    openNumbered(1, kFile, FileAccess::kReadWrite);
  }

  std::shared_ptr<ShakyFile::State> state_ = std::make_shared<ShakyFile::State>();
};

TEST_F(ReadAheadTrouble, ABadPlaceFailsOnlyThoseWhoReadIt) {
  state_->bytes = content(8 * kExtentSize);
  const auto bad = static_cast<std::int64_t>(5 * kExtentSize + 5000);
  state_->badByte = bad;
  const ReadAheadScope keeping;
  for (std::size_t i = 0; i < state_->bytes.size(); i += 500) {
    const auto offset = static_cast<std::int64_t>(i);
    if (bad >= offset && bad < offset + 500) {
      EXPECT_EQ(errorNumber([&] { readNumbered(1, offset, 500); }), 57) << i;
    } else {
      std::string expected = state_->bytes.substr(i, 500);
      expected.resize(500, '\0');
      EXPECT_EQ(readNumbered(1, offset, 500), expected) << i;
    }
  }
  // The line is back: so is the place.
  state_->badByte = -1;
  EXPECT_EQ(readNumbered(1, bad, 10), state_->bytes.substr(static_cast<std::size_t>(bad), 10));
}

TEST_F(ReadAheadTrouble, AFileThatShrinksGivesNulsWhereNothingWasKept) {
  state_->bytes = content(3 * kExtentSize);
  const std::string before = state_->bytes;
  const ReadAheadScope keeping;
  readNumbered(1, 0, 512);
  state_->bytes.resize(100);
  EXPECT_EQ(readNumbered(1, 512, 512), before.substr(512, 512));
  EXPECT_EQ(readNumbered(1, 2 * kExtentSize, 512), std::string(512, '\0'));
  EXPECT_EQ(readNumbered(1, kExtentSize - 2, 4),
            before.substr(kExtentSize - 2, 2) + std::string(2, '\0'));
}

TEST_F(ReadAheadTrouble, KeepsNoMoreThanItsBound) {
  constexpr std::size_t kSize = read_ahead::kMostKept + 8 * read_ahead::kLongestRun;
  state_->bytes.assign(kSize, 'x');
  const ReadAheadScope keeping;
  readNumbered(1, 0, 1);
  for (std::size_t i = 0; i < kSize; i += kExtentSize) {
    readNumbered(1, static_cast<std::int64_t>(i), 1);
    readNumbered(1, 0, 1);  // used again and again, so it stays
  }
  const auto isKept = [&](std::size_t offset) {
    return calls([&] { readNumbered(1, static_cast<std::int64_t>(offset), 1); }) == 0;
  };
  EXPECT_TRUE(isKept(0));
  std::size_t kept = 0;
  while (isKept(kSize - kept - kExtentSize))
    kept += kExtentSize;
  EXPECT_LE(kept, read_ahead::kMostKept);
  EXPECT_GT(kept, read_ahead::kMostKept / 2);
}

/// Reports of an example store after a load, after a refresh, and how many reads the two took.
struct Reports {
  std::string loaded;
  std::string refreshed;
  std::uint64_t calls = 0;
};

constexpr std::chrono::microseconds kNoLineIsFar = std::chrono::hours(1);

StoreOptions optionsOf(const std::string& store) {
  StoreOptions options;
  options.store = store;
  options.computer = "127.0.0.1";
  options.asOf = Date::fromText("11/24/26 10:30:00");
  options.noLog = true;
  return options;
}

Reports reportsOf(const std::string& store, const ReadAheadSettings& settings) {
  const ReadAheadSettingsScope way(settings);
  Reports reports;
  std::ostringstream unused;
  const Console console{unused, unused};
  {
    Session session(optionsOf(store), console);
    const std::uint64_t before = readStatistics().calls;
    frmTRVN& main = session.load(viewCatalogue(), {});
    const auto report = [&] {
      std::ostringstream out;
      writeJsonReport({session, main, main.loadedViews(), true, {}, out});
      return out.str();
    };
    reports.calls = readStatistics().calls - before;
    reports.loaded = report();
    session.refresh();
    reports.refreshed = report();
  }
  return reports;
}

TEST(ReadAheadLoad, AShareThatFallsSilentIsGivenUpAndTold) {
  if (!test::NetworkFolder::isPossible()) GTEST_SKIP() << "no folder can stand for the network";
  const TemporaryFolder folder;
  const std::string store = folder.file("store");
  writeSampleStore(store, {});
  const EnvironmentScope environment;
  const test::NetworkFolder network(store + "/share");
  const ReadAheadSettingsScope far(
      {.near = kEveryLineIsFar, .patience = std::chrono::milliseconds(100)});
  std::ostringstream unused;
  const Console console{unused, unused};
  Session session(optionsOf(store), console);
  frmTRVN& main = session.load(viewCatalogue(), {});
  ASSERT_EQ(main.lostShare(), "");
  for (const int answers : {0, 1, 2, 5, 10, 20, 40, 80}) {
    {
      const test::SilentLine line(answers);
      session.refresh();
      EXPECT_NE(main.lostShare(), "") << answers;
    }
    session.refresh();
    EXPECT_EQ(main.lostShare(), "") << answers;
  }
  int asked = 0;
  const WhileWaiting formerAsked = setWhileWaiting([&asked](std::chrono::milliseconds) {
    ++asked;
    return false;
  });
  const ReadAheadSettingsScope patient(
      {.near = kEveryLineIsFar, .patience = std::chrono::hours(1)});
  {
    const test::SilentLine line(10);
    session.refresh();
    EXPECT_NE(main.lostShare(), "");
    EXPECT_GT(asked, 0);
  }
  setWhileWaiting(formerAsked);
}

TEST(ReadAheadLoad, GivesTheSameReportsWithFarFewerReads) {
  if (!test::NetworkFolder::isPossible()) GTEST_SKIP() << "no folder can stand for the network";
  const TemporaryFolder folder;
  const std::string store = folder.file("store");
  writeSampleStore(store, {});
  const EnvironmentScope environment;
  const test::NetworkFolder network(store + "/share");
  const Reports direct = reportsOf(store, {.isEnabled = false});
  EXPECT_GT(direct.loaded.size(), 10'000u);
  for (const auto near : {kNoLineIsFar, kEveryLineIsFar}) {
    const Reports keeping = reportsOf(store, {.near = near});
    EXPECT_TRUE(keeping.loaded == direct.loaded);
    EXPECT_TRUE(keeping.refreshed == direct.refreshed);
    EXPECT_LT(keeping.calls * 10, direct.calls);
  }
}

}  // namespace
}  // namespace dg
