#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <sys/inotify.h>
#include <unistd.h>
#include <vector>

#include "tests/support/full_run.h"
#include "tests/support/vendor_documents.h"
#include "tools/sample/sample_store.h"

namespace dg::test {
namespace {

namespace fs = std::filesystem;

constexpr std::uint64_t kStepLimit = 500'000;

/// Notices every file of a folder that is opened or read.
class Watch {
 public:
  explicit Watch(const fs::path& folder) : descriptor_(::inotify_init1(IN_NONBLOCK)) {
    add(folder);
    for (const auto& entry : fs::recursive_directory_iterator(folder))
      if (entry.is_directory()) add(entry.path());
    sawAny();  // the look around itself opened folders
  }
  ~Watch() { ::close(descriptor_); }
  Watch(const Watch&) = delete;
  Watch& operator=(const Watch&) = delete;

  /// Whether anything was opened since the last call.
  bool sawAny() {
    alignas(inotify_event) char events[4096];
    bool any = false;
    while (::read(descriptor_, events, sizeof events) > 0)
      any = true;
    return any;
  }

 private:
  void add(const fs::path& folder) {
    EXPECT_GE(::inotify_add_watch(descriptor_, folder.c_str(), IN_OPEN | IN_ACCESS), 0);
  }
  int descriptor_;
};

/// A store on disk, and beside its share a folder with the same files for hostile names to find.
class HostileNamesTest : public testing::Test {
 public:
  ~HostileNamesTest() override { fs::current_path(former_); }

 protected:
  HostileNamesTest() {
    writeSampleStore(store_, {});
    fs::create_directories(folder_.path() / "out");
    fs::copy(linkShare(), folder_.path() / "out", fs::copy_options::recursive);
    folder_.write("out/T", folder_.read("store/share/SRV1/VLMRLNK/LNK001/V00001"));
    fs::current_path(folder_.path());
  }

  fs::path linkShare() const { return fs::path(store_) / "share" / "SRV1" / "VLMRLNK"; }

  std::string read(const fs::path& file) const {
    return folder_.read(file.lexically_relative(folder_.path()).string());
  }
  void write(const fs::path& file, const std::string& content) const {
    folder_.write(file.lexically_relative(folder_.path()).string(), content);
  }

  /// Runs everything and expects that nothing outside the share was opened.
  FullRun expectNothingOutside(const std::string& what) {
    Watch watch(folder_.path() / "out");
    EXPECT_FALSE(folder_.read("out/LNK001/CUSTLK").empty());
    EXPECT_TRUE(watch.sawAny()) << "the watch is blind";
    FullRun run = runFullyOnDisk(store_, kStepLimit);
    EXPECT_TRUE(run.faults.empty()) << what << ": " << testing::PrintToString(run.faults);
    EXPECT_FALSE(watch.sawAny()) << what << " was opened";
    return run;
  }

  TemporaryFolder folder_;
  const std::string store_ = folder_.file("store");
  const fs::path former_ = fs::current_path();
};

TEST_F(HostileNamesTest, ResolutionNamesStayOnTheShare) {
  const std::string absolute = (folder_.path() / "out").string();
  const std::string sound = read(linkShare() / "LINKSFILE");
  const std::string hostile[] = {
      "..:..:..:..:out:LNK001",
      "LNK001:..:..:..:..:..:out:LNK001",
      "LNK001:../../../../../out/LNK001",
      "." + absolute + "/LNK001",
      absolute + "/LNK001",
      ":" + absolute + ":LNK001",
      "..\\..\\..\\..\\out\\LNK001",
      "C:out:LNK001",
      std::string("LNK001\0:..:out:LNK001", 21),
      ". .:out:LNK001",
      "NUL:LNK001",
      "",
  };
  for (const std::string& folder : hostile) {
    std::string links = sound;
    for (std::size_t at = 0; at + 160 <= links.size(); at += 160) {
      const std::string former = links.substr(at + 81, 79);
      std::string resolution = folder + former.substr(6);  // behind "LNK001"
      resolution.resize(79, '\0');
      links.replace(at + 81, 79, resolution);
    }
    write(linkShare() / "LINKSFILE", links);
    const FullRun run = expectNothingOutside("resolution " + folder);
    EXPECT_FALSE(run.failed.empty()) << folder;
  }
}

TEST_F(HostileNamesTest, DocumentNamesStayInTheStore) {
  const std::string names[] = {
      "out\\T",   ".\\out\\T",  "..\\out\\T", "../out/T", "out/T",
      "C:out\\T", "\\\\out\\T", "NUL",        "\\out\\T", std::string("T\0.\\..", 6),
      "..",       "LNK001\\.."};
  sample::StoreBuilder builder{SampleOptions{}};
  std::vector<std::string> keys;
  for (const std::string& name : names) {
    keys.push_back(documentKey(name, 60));
    keys.push_back(documentKey("V" + name, 20));
  }
  std::ranges::sort(keys);
  for (const std::string& key : keys)
    builder.index("PUTBI").add(key, 1);
  // A document in place whose header names others for the click on its row.
  for (const char* number : {"out\\T", "..\\out\\T", "out/T"}) {
    const std::string name = "W000" + std::to_string(builder.index("RTTBI").count());
    builder.addFile(name, Document{.name = name, .number = number}.bytes());
    builder.index("RTTBI").add(documentKey("R" + name, 20), 1);
    builder.addFile("R" + name, Document{.name = "R" + name, .number = number}.bytes());
  }
  for (const SampleFile& file : builder.finish())
    if (file.path.starts_with("share/")) write(fs::path(store_) / file.path, file.content);
  expectNothingOutside("a document's name");
}

}  // namespace
}  // namespace dg::test
