#include <climits>
#include <gtest/gtest.h>
#include <memory>
#include <optional>

#include "platform/file.h"
#include "tests/support/error_number.h"
#include "tests/support/memory_file_system.h"
#include "tests/support/network_folder.h"
#include "tests/support/scopes.h"
#include "tests/support/temporary_folder.h"

namespace dg {
namespace {

using namespace std::string_literals;

constexpr char kFile[] = "\\\\srv\\VLMRLNK\\lnk\\FILE0";

/// Both file systems keep one contract; the parameter is whether the files are the system's.
class Files : public ::testing::TestWithParam<bool> {
 protected:
  Files() {
    std::unique_ptr<MemoryFileSystem> memory;
    if (GetParam()) {
      folder_.write("srv/VLMRLNK/lnk/FILE0", kContent);
      if (test::NetworkFolder::isPossible()) network_.emplace(folder_.path());
    } else {
      memory = std::make_unique<MemoryFileSystem>();
      memory->add(kFile, kContent);
    }
    files_ = std::make_unique<FileSystemScope>(std::move(memory));
  }

  void SetUp() override {
    if (GetParam() && !network_) GTEST_SKIP() << "no folder can stand for the network";
  }

  const std::string kContent = "0123456789";
  EnvironmentScope environment_;
  TemporaryFolder folder_;
  std::optional<test::NetworkFolder> network_;
  std::unique_ptr<FileSystemScope> files_;
};

INSTANTIATE_TEST_SUITE_P(Both, Files, ::testing::Bool(),
                         [](const auto& system) { return system.param ? "System" : "Memory"; });

TEST_P(Files, ReadsWhatIsThere) {
  const auto file = fileSystem().open(kFile, FileAccess::kRead);
  EXPECT_EQ(file->size(), 10);
  char buffer[16] = {};
  EXPECT_EQ(file->read(4, buffer, 3), 3u);
  EXPECT_EQ(std::string(buffer, 3), "456");
  EXPECT_EQ(file->read(8, buffer, sizeof buffer), 2u);
  EXPECT_EQ(std::string(buffer, 2), "89");
  EXPECT_EQ(file->read(10, buffer, 1), 0u);
  EXPECT_EQ(file->read(INT64_MAX / 2, buffer, 1), 0u);
  EXPECT_EQ(errorNumber([&] { file->read(-1, buffer, 1); }), 63);
}

TEST_P(Files, SeesWhatOthersWriteMeanwhile) {
  const auto reader = fileSystem().open(kFile, FileAccess::kRead);
  const auto writer = fileSystem().open(kFile, FileAccess::kReadWrite);
  writer->write(8, "abcd");
  writer->write(14, "z");
  char buffer[16] = {};
  EXPECT_EQ(reader->size(), 15);
  EXPECT_EQ(reader->read(6, buffer, sizeof buffer), 9u);
  EXPECT_EQ(std::string(buffer, 9), "67abcd\0\0z"s);
  EXPECT_EQ(errorNumber([&] { writer->write(-1, "x"); }), 63);
  EXPECT_EQ(errorNumber([&] { reader->write(0, "x"); }), 70) << "opened for reading only";
}

TEST_P(Files, TellsFilesFromDirectories) {
  FileSystem& files = fileSystem();
  EXPECT_TRUE(files.fileExists("\\\\SRV\\vlmrlnk\\lnk\\file0"));
  EXPECT_TRUE(files.fileExists("\\\\srv\\VLMRLNK\\\\lnk\\FILE0")) << "no store directory";
  EXPECT_FALSE(files.fileExists("\\\\srv\\VLMRLNK\\lnk"));
  EXPECT_TRUE(files.directoryExists("\\\\srv\\VLMRLNK\\"));
  EXPECT_TRUE(files.directoryExists("\\\\srv\\vlmrlnk\\LNK"));
  EXPECT_FALSE(files.directoryExists("\\\\srv\\VLMR"));
  EXPECT_FALSE(files.directoryExists(kFile));
  const auto open = [&](const char* path) {
    return errorNumber([&] { files.open(path, FileAccess::kReadWrite); });
  };
  EXPECT_EQ(open("\\\\srv\\VLMRLNK\\lnk\\FILE1"), 53);
  EXPECT_EQ(open("\\\\srv\\VLMRLNK\\none\\FILE0"), 76);
  EXPECT_EQ(open("\\\\srv\\VLMRLNK\\lnk"), 75);
}

TEST_P(Files, ANumberedReadBeyondTheEndGivesNuls) {
  const std::int32_t number = FreeFile();
  openNumbered(number, kFile, FileAccess::kReadWrite);
  EXPECT_EQ(fileLength(number), 10);
  EXPECT_EQ(readNumbered(number, 7, 6), "789\0\0\0"s);
  EXPECT_EQ(readNumbered(number, INT32_MAX, 3), "\0\0\0"s);
  EXPECT_EQ(readNumbered(number, 3, 0), "");
  std::string buffer = "......";
  readNumbered(number, 8, buffer.data(), 4);
  EXPECT_EQ(buffer, "89\0\0.."s);
  EXPECT_EQ(errorNumber([&] { readNumbered(number, -1, 2); }), 63);
  EXPECT_EQ(errorNumber([&] { writeNumbered(number, -512, "x"); }), 63);
  writeNumbered(number, 1, "AB");
  EXPECT_EQ(readNumbered(number, 0, 4), "0AB3");
  closeNumbered(number);
}

TEST_P(Files, NumbersAreGivenOutAndTakenBack) {
  const std::int32_t first = FreeFile();
  EXPECT_EQ(FreeFile(), first) << "a number is in use from its opening on";
  openNumbered(first, kFile, FileAccess::kRead);
  const std::int32_t second = FreeFile();
  EXPECT_EQ(second, first + 1);
  openNumbered(second, kFile, FileAccess::kRead);
  EXPECT_EQ(errorNumber([&] { openNumbered(second, kFile, FileAccess::kRead); }), 55);
  closeNumbered(first);
  closeNumbered(first);
  EXPECT_EQ(FreeFile(), first);
  EXPECT_EQ(readNumbered(second, 0, 1), "0");
  closeNumbered(second);

  EXPECT_EQ(errorNumber([&] { readNumbered(second, 0, 1); }), 52);
  EXPECT_EQ(errorNumber([&] { readNumbered(second, -1, 1); }), 52);
  EXPECT_EQ(errorNumber([&] { writeNumbered(second, 0, ""); }), 52);
  EXPECT_EQ(errorNumber([&] { fileLength(second); }), 52);
  EXPECT_EQ(errorNumber([] { openNumbered(0, kFile, FileAccess::kRead); }), 52);
  EXPECT_EQ(errorNumber([] { openNumbered(512, kFile, FileAccess::kRead); }), 52);
  EXPECT_EQ(errorNumber([] { openNumbered(FreeFile(), "\\\\srv\\VLMRLNK\\x", FileAccess::kRead); }),
            53);
  EXPECT_EQ(FreeFile(), first) << "a failed opening uses no number up";
}

TEST(NumberedFiles, EndAfter511) {
  auto memory = std::make_unique<MemoryFileSystem>();
  memory->add(kFile, "");
  const FileSystemScope scope(std::move(memory));
  for (std::int32_t number = 1; number <= 511; ++number) {
    ASSERT_EQ(FreeFile(), number);
    openNumbered(number, kFile, FileAccess::kRead);
  }
  EXPECT_EQ(errorNumber([] { FreeFile(); }), 67);
  for (std::int32_t number = 1; number <= 511; ++number)
    closeNumbered(number);
  EXPECT_EQ(FreeFile(), 1);
}

TEST(MemoryFiles, AShareThatGrantsReadingOnlyRefusesWriters) {
  MemoryFileSystem memory;
  memory.add(kFile, "x");
  memory.setReadOnly(true);
  EXPECT_EQ(errorNumber([&] { memory.open(kFile, FileAccess::kReadWrite); }), 75);
  EXPECT_EQ(memory.open(kFile, FileAccess::kRead)->size(), 1);
}

TEST(MemoryFiles, ADamagedOffsetDoesNotFillTheMemory) {
  MemoryFileSystem memory;
  memory.add(kFile, "");
  const auto file = memory.open(kFile, FileAccess::kReadWrite);
  EXPECT_EQ(errorNumber([&] { file->write(INT64_MAX, "x"); }), 61);
  EXPECT_EQ(file->size(), 0);
}

}  // namespace
}  // namespace dg
