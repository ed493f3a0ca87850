#include <csignal>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include "platform/environment.h"
#include "platform/text_file.h"
#include "tests/support/asked_file_system.h"
#include "tests/support/error_number.h"
#include "tests/support/memory_file_system.h"
#include "tests/support/scopes.h"
#include "tests/support/temporary_folder.h"

namespace dg {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

constexpr char kPath[] = "\\\\srv\\VLMRLNK\\ttymap";

std::vector<std::string> linesOf(const std::string& content) {
  auto memory = std::make_unique<MemoryFileSystem>();
  memory->add(kPath, content);
  const FileSystemScope scope(std::move(memory));
  TextReader reader(kPath);
  std::vector<std::string> lines;
  while (!reader.AtEndOfStream())
    lines.push_back(reader.ReadLine());
  EXPECT_EQ(errorNumber([&] { reader.ReadLine(); }), 62);
  return lines;
}

TEST(TextReader, SplitsAtEveryKindOfLineEnd) {
  using Lines = std::vector<std::string>;
  EXPECT_EQ(linesOf(""), Lines{});
  EXPECT_EQ(linesOf("\n"), Lines{""});
  EXPECT_EQ(linesOf("one"), Lines{"one"});
  EXPECT_EQ(linesOf("one\r\ntwo\nthree\rfour"), (Lines{"one", "two", "three", "four"}));
  EXPECT_EQ(linesOf("\r\n\r\n\n\r"), (Lines{"", "", "", ""}));
  EXPECT_EQ(linesOf("a\0b\x1a\xff\n"s), Lines{"a\0b\x1a\xff"s});
}

TEST(TextReader, RaisesWhenTheFileCannotBeReadWhole) {
  auto memory = std::make_unique<MemoryFileSystem>();
  memory->add(kPath, "PC7 12\n");
  const FileSystemScope scope(test::failingAfter(0, false, std::move(memory)));
  EXPECT_EQ(errorNumber([] { TextReader reader(kPath); }), 57);
  EXPECT_EQ(errorNumber([] { TextReader reader("\\\\srv\\VLMRLNK\\none"); }), 53);
}

TEST(ReadWholeFile, GivesEveryByteOfALongFile) {
  const TemporaryFolder folder;
  std::string content;
  for (int i = 0; i < 300000; ++i)
    content.push_back(static_cast<char>(i * 7 % 251));
  folder.write("long", content);
  EXPECT_EQ(readWholeFile(folder.path().string() + "\\long"), content);
}

TEST(ReadWholeFile, ALengthThatNoTextCanHoldRaises) {
  const TemporaryFolder folder;
  fs::resize_file(folder.write("sparse", ""), std::uintmax_t{1} << 40);
  EXPECT_EQ(errorNumber([&] { readWholeFile(folder.path().string() + "\\sparse"); }), 7);
}

TEST(AppendText, FailsWhereThereIsNoPlaceForTheFile) {
  const EnvironmentScope environmentScope;
  const TemporaryFolder folder;
  folder.write("file", "kept");
  folder.write("root/srv/VLMRLNK/lnk/FILE0", "kept");
  environment().shareRoot = folder.file("root");
  ASSERT_EQ(::mkfifo(folder.file("pipe").c_str(), 0600), 0);
  const auto append = [&](const std::string& path) {
    return errorNumber([&] { appendText(path, "x"); });
  };
  EXPECT_EQ(append(folder.path().string() + "\\missing\\dgoperation.log"), 76);
  EXPECT_EQ(append(folder.file("file") + "\\dgoperation.log"), 76);
  EXPECT_EQ(append(folder.path().string()), 75);
  EXPECT_EQ(append(folder.file("pipe")), 75);
  EXPECT_EQ(append(folder.path().string() + "\\nul\0"s), 76);
  fs::create_symlink("root/srv/VLMRLNK/lnk/FILE0", folder.file("link"));
  EXPECT_EQ(append(folder.file("link")), 75) << "a link might lead anywhere";
  fs::create_directory_symlink("root/srv/VLMRLNK/lnk", folder.file("folder"));
  EXPECT_EQ(append(folder.file("folder/dgoperation.log")), 70) << "the share by another way";
  EXPECT_EQ(append("\\\\srv\\VLMRLNK\\lnk\\FILE0"), 70);
  EXPECT_EQ(append("\\\\srv\\VLMRLNK\\new"), 70);
  EXPECT_EQ(folder.read("root/srv/VLMRLNK/lnk/FILE0"), "kept");
  EXPECT_FALSE(fs::exists(folder.file("root/srv/VLMRLNK/new")));
}

TEST(ReplaceFile, PutsTheNewContentInPlaceAndLeavesNothingElse) {
  const TemporaryFolder folder;
  replaceFile(folder.file("new"), "first");
  EXPECT_EQ(folder.read("new"), "first");
  replaceFile(folder.file("new"), "2");
  EXPECT_EQ(folder.read("new"), "2");
  EXPECT_EQ(folder.names(), std::vector<std::string>{"new"});
}

TEST(ReplaceFile, KeepsModesAndLinks) {
  const TemporaryFolder folder;
  const auto modeOf = [&](const char* name) {
    return fs::status(folder.file(name)).permissions() & fs::perms::all;
  };
  replaceFile(folder.file("private"), "x", NewFileMode::kPrivate);
  EXPECT_EQ(modeOf("private"), fs::perms::owner_read | fs::perms::owner_write);
  fs::permissions(folder.file("private"), fs::perms(0640));
  replaceFile(folder.file("private"), "y", NewFileMode::kPrivate);
  EXPECT_EQ(modeOf("private"), fs::perms(0640));

  fs::create_symlink("private", folder.file("link"));
  fs::create_symlink("not there yet", folder.file("early"));
  replaceFile(folder.file("link"), "z");
  replaceFile(folder.file("early"), "there now");
  EXPECT_TRUE(fs::is_symlink(folder.file("link")));
  EXPECT_EQ(folder.read("private"), "z");
  EXPECT_TRUE(fs::is_symlink(folder.file("early")));
  EXPECT_EQ(folder.read("not there yet"), "there now");
}

TEST(ReplaceFile, SeizesNoTemporaryFileOfAnotherRun) {
  const TemporaryFolder folder;
  const std::string stale = "target." + std::to_string(::getpid()) + "-0.tmp";
  folder.write(stale, "another's");
  replaceFile(folder.file("target"), "new");
  EXPECT_EQ(folder.read("target"), "new");
  EXPECT_EQ(folder.read(stale), "another's");
}

/// Lets writes beyond a file size fail, as a full disk does, also for the superuser.
class FullDisk {
 public:
  explicit FullDisk(rlim_t bytes) : formerSignal_(std::signal(SIGXFSZ, SIG_IGN)) {
    ::getrlimit(RLIMIT_FSIZE, &former_);
    const rlimit limit = {bytes, former_.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FullDisk() {
    ::setrlimit(RLIMIT_FSIZE, &former_);
    std::signal(SIGXFSZ, formerSignal_);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  rlimit former_ = {};
  void (*formerSignal_)(int);
};

TEST(ReplaceFile, AFailureLeavesTheOldContentAndNoTrace) {
  const TemporaryFolder folder;
  folder.write("target", "old");
  folder.write("folder/inner", "kept");
  int number = 0;
  {
    const FullDisk full(100);
    number = errorNumber([&] { replaceFile(folder.file("target"), std::string(500, 'x')); });
  }
  EXPECT_EQ(number, 61);
  EXPECT_EQ(folder.read("target"), "old");
  const auto replace = [&](const std::string& name) {
    return errorNumber([&] { replaceFile(folder.file(name), "new"); });
  };
  EXPECT_EQ(replace("folder"), 75);
  ASSERT_EQ(::mkfifo(folder.file("pipe").c_str(), 0600), 0);
  EXPECT_EQ(replace("pipe"), 75);
  fs::remove(folder.file("pipe"));
  const EnvironmentScope environmentScope;
  environment().shareRoot = folder.file("folder");
  EXPECT_EQ(replace("folder/inner"), 70) << "nothing is written on the share";
  EXPECT_EQ(replace("missing/target"), 76);
  EXPECT_EQ(replace("target/below"), 76);
  EXPECT_EQ(folder.names(), (std::vector<std::string>{"folder", "target"}));
  EXPECT_EQ(folder.names("folder"), std::vector<std::string>{"inner"});
}

}  // namespace
}  // namespace dg
