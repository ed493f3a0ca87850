#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "engine/codec.h"
#include "tests/support/damage.h"
#include "tests/support/full_run.h"
#include "tests/support/temporary_folder.h"
#include "tools/sample/index_writer.h"
#include "tools/sample/sample_store.h"

namespace dg::test {
namespace {

using sample::Random;

constexpr std::size_t kBlock = 512;

volatile std::sig_atomic_t stopAsked = 0;
void askToStop(int) {
  stopAsked = 1;
}

/// In a terminal's process: whether to go on. One whose test is gone ends as well.
bool goesOn() {
  static const pid_t test = ::getppid();
  return stopAsked == 0 && ::getppid() == test;
}

/// Another terminal of the store: a process that changes files until it is told to stop, and then
/// leaves every file as it was.
class Terminal {
 public:
  explicit Terminal(const std::function<void()>& work) : process_(::fork()) {
    if (process_ != 0) return;
    std::signal(SIGTERM, &askToStop);
    work();
    ::_exit(0);
  }
  ~Terminal() { end(); }
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;

  /// Whether the process was there, and ended by itself when it was told to.
  bool end() {
    if (process_ <= 0) return false;
    int status = 0;
    ::kill(process_, SIGTERM);
    const bool waited = ::waitpid(process_, &status, 0) == process_;
    process_ = -1;
    return waited && WIFEXITED(status) && WEXITSTATUS(status) == 0;
  }

 private:
  pid_t process_;
};

/// A file that a terminal writes in place, as the suite does. A write that fails ends the process.
class OpenedFile {
 public:
  explicit OpenedFile(const std::string& path) : descriptor_(::open(path.c_str(), O_RDWR)) {
    if (descriptor_ < 0) ::_exit(2);
  }
  ~OpenedFile() { ::close(descriptor_); }
  OpenedFile(const OpenedFile&) = delete;
  OpenedFile& operator=(const OpenedFile&) = delete;

  void write(std::size_t offset, std::string_view bytes) const {
    const ssize_t done =
        ::pwrite(descriptor_, bytes.data(), bytes.size(), static_cast<off_t>(offset));
    if (done != static_cast<ssize_t>(bytes.size())) ::_exit(3);
  }
  void resize(std::size_t size) const {
    if (::ftruncate(descriptor_, static_cast<off_t>(size)) != 0) ::_exit(4);
  }

 private:
  int descriptor_;
};

/// All entries of an index, read from its leaves without the engine.
std::vector<sample::IndexEntry> entriesOf(std::string_view image) {
  const auto number = [&](std::size_t at, std::size_t width) {
    std::size_t value = 0;
    for (std::size_t i = 0; i < width; ++i)
      value = value << 8 | static_cast<unsigned char>(image[at + i]);
    return value;
  };
  const std::size_t length = number(0, 2);
  std::size_t node = number(8, 2) * kBlock;
  while (number(node + 2, 2) == 0)
    node = number(node + length, 4) * kBlock;  // the first entry's pointer
  std::vector<sample::IndexEntry> entries;
  for (;;) {
    for (std::size_t i = 0; i < number(node, 2); ++i) {
      const std::size_t at = node + 4 + i * length;
      const auto record = static_cast<std::int32_t>(number(at + length - 4, 4));
      if (record > 0) entries.push_back({std::string(image.substr(at, length - 4)), record});
    }
    const std::size_t next = number(node + 2, 2);
    if (next == 65535) return entries;
    node = next * kBlock;
  }
}

/// A store on disk with other terminals at work.
class WritersTest : public testing::Test {
 protected:
  WritersTest() { writeSampleStore(store_, {}); }

  std::string path(std::size_t file) const { return store_ + "/" + sound_[file].path; }

  /// Overwrites records with records of the same file, byte by byte torn, and puts them back.
  void rewriteRecords(std::uint64_t seed) {
    Random random(seed, "records");
    while (goesOn()) {
      const PlacedFile& place = random.pick(placed_);
      if (place.type != 'L' || place.lastRecord < 1) continue;
      const std::string& content = sound_[place.data].content;
      const auto length = static_cast<std::size_t>(place.recordLength);
      const auto offsetOf = [&](std::int32_t record) {
        return static_cast<std::size_t>(place.startBlock) * kBlock +
               static_cast<std::size_t>(record) * length;
      };
      const std::size_t to = offsetOf(random.between(1, place.lastRecord));
      const std::size_t from = offsetOf(random.between(0, place.lastRecord));
      if (std::max(to, from) + length > content.size()) continue;
      const OpenedFile file(path(place.data));
      const std::size_t torn = random.below(length);
      file.write(to, std::string_view(content).substr(from, torn));
      file.write(to + torn, std::string_view(content).substr(from + torn, length - torn));
      file.write(to, std::string_view(content).substr(to, length));
    }
  }

  /// Rebuilds indexes block by block in another shape, as many splits at once would, and back.
  void splitNodes(std::uint64_t seed) {
    Random random(seed, "nodes");
    while (goesOn()) {
      const PlacedFile& place = random.pick(placed_);
      if (place.type != 'I') continue;
      const std::size_t begin = static_cast<std::size_t>(place.startBlock) * kBlock;
      const std::size_t size = (static_cast<std::size_t>(place.lastRecord) + 1) * kBlock;
      const std::string sound = sound_[place.data].content.substr(begin, size);
      if (sound.size() != size) continue;
      const auto entries = entriesOf(sound);
      const int keyLength = Unpack('C', sound, 1) - 4;
      sample::IndexImage other =
          sample::buildIndex(entries, {.keyLength = keyLength,
                                       .duplicateKeys = true,
                                       .fillPercent = random.between(60, 100),
                                       .scatter = &random});
      if (other.bytes.size() > size) continue;
      other.bytes.resize(size, '\0');
      const OpenedFile file(path(place.data));
      for (const std::string& image : {other.bytes, sound}) {
        std::vector<std::size_t> order;
        for (std::size_t at = 0; at < size; at += kBlock)
          order.push_back(at);
        random.shuffle(order);
        for (const std::size_t at : order)
          file.write(begin + at, std::string_view(image).substr(at, kBlock));
      }
    }
  }

  /// Cuts and extends data files and documents, and puts them back.
  void resizeFiles(std::uint64_t seed) {
    Random random(seed, "sizes");
    while (goesOn()) {
      const auto at = static_cast<std::size_t>(random.below(sound_.size()));
      const std::string& content = sound_[at].content;
      if (!sound_[at].path.starts_with("share/") || content.empty()) continue;
      const OpenedFile file(path(at));
      if (random.chance(30)) {
        file.resize(content.size() + random.below(4096));
        file.resize(content.size());
      } else {
        const std::size_t kept = random.below(content.size());
        file.resize(kept);
        file.write(kept, std::string_view(content).substr(kept));
      }
    }
  }

  TemporaryFolder folder_;
  const std::string store_ = folder_.file("store");
  const std::vector<SampleFile> sound_ = composeSampleStore({});
  const std::vector<PlacedFile> placed_ = placedFiles(sound_);
};

/// Loads of the long run are set by DG_WRITERS_LOADS; see scripts/damage.
int loads() {
  const char* text = std::getenv("DG_WRITERS_LOADS");
  return text == nullptr || *text == '\0' ? 24 : std::atoi(text);
}

TEST_F(WritersTest, LoadsWhileOthersWriteEndAndTheNextIsExact) {
  constexpr std::uint64_t kStepLimit = 1'000'000;
  const FullRun clean =
      runFullyOnDisk(store_, kStepLimit, RunExtent::kEverything, KeepPicture::kYes);
  ASSERT_TRUE(clean.faults.empty()) << testing::PrintToString(clean.faults);
  ASSERT_TRUE(clean.failed.empty());

  int disturbed = 0;
  {
    Terminal records([this] { rewriteRecords(1); });
    Terminal nodes([this] { splitNodes(2); });
    Terminal sizes([this] { resizeFiles(3); });
    for (int load = 0; load < loads(); ++load) {
      const RunExtent extent = load % 8 == 7 ? RunExtent::kEverything : RunExtent::kLoadAndRefresh;
      const FullRun run =
          load % 2 == 0 ? runFullyOnDisk(store_, kStepLimit, extent) : runFullyFar(store_, extent);
      EXPECT_TRUE(run.faults.empty())
          << "load " << load << ": " << testing::PrintToString(run.faults);
      if (!run.failed.empty()) ++disturbed;
    }
    EXPECT_TRUE(records.end());
    EXPECT_TRUE(nodes.end());
    EXPECT_TRUE(sizes.end());
  }
  // Where no load met a half-written file, nothing was tested.
  EXPECT_GT(disturbed, 0);

  const FullRun after =
      runFullyOnDisk(store_, kStepLimit, RunExtent::kEverything, KeepPicture::kYes);
  EXPECT_TRUE(after.faults.empty()) << testing::PrintToString(after.faults);
  EXPECT_TRUE(after.failed.empty());
  EXPECT_TRUE(after.picture == clean.picture) << "what stands there differs from a clean copy";
}

}  // namespace
}  // namespace dg::test
