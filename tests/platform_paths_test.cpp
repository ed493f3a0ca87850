#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <optional>
#include <sstream>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/environment.h"
#include "platform/file.h"
#include "platform/host_look_up.h"
#include "platform/posix/mounts.h"
#include "platform/system_environment.h"
#include "tests/support/error_number.h"
#include "tests/support/scopes.h"
#include "tests/support/temporary_folder.h"

namespace dg {
namespace {

using namespace std::string_literals;

class SharePaths : public ::testing::Test {
 protected:
  SharePaths() { environment().shareRoot = folder_.file("root"); }

  /// The file's content through the program's own path; "!" and the error's number when it fails.
  static std::string contentOf(const std::string& path) {
    std::string content;
    const int number = errorNumber([&] {
      const auto file = fileSystem().open(path, FileAccess::kRead);
      content.resize(static_cast<std::size_t>(file->size()));
      content.resize(file->read(0, content.data(), content.size()));
    });
    return number == 0 ? content : "!" + std::to_string(number);
  }

  EnvironmentScope environment_;
  TemporaryFolder folder_;
};

TEST_F(SharePaths, NamesAreTriedAsWrittenThenWithoutRegardToCase) {
  folder_.write("root/srv/VLMRLNK/lnk001/FILE0", "control");
  folder_.write("root/srv/VLMRLNK/both/parts", "lower");
  folder_.write("root/srv/VLMRLNK/both/PARTS", "upper");
  folder_.write("root/srv/VLMRLNK/both/Caf\xC3\xA9", "accent");

  EXPECT_EQ(contentOf("\\\\srv\\VLMRLNK\\lnk001\\FILE0"), "control");
  EXPECT_EQ(contentOf("\\\\SRV\\vlmrlnk\\LNK001\\file0"), "control");
  EXPECT_EQ(contentOf("\\\\srv\\VLMRLNK\\\\lnk001\\\\FILE0"), "control");
  EXPECT_EQ(contentOf("\\\\srv\\VLMRLNK\\both\\parts"), "lower");
  EXPECT_EQ(contentOf("\\\\srv\\VLMRLNK\\both\\PARTS"), "upper");
  EXPECT_EQ(contentOf("\\\\srv\\VLMRLNK\\both\\Parts"), "upper") << "the first in byte order";
  EXPECT_EQ(contentOf("\\\\srv\\VLMRLNK\\both\\CAF\xE9"), "accent") << "a code page's byte";
  EXPECT_EQ(nativePath("\\\\srv\\vlmrlnk\\nowhere\\FILE0"),
            folder_.file("root/srv/VLMRLNK/nowhere/FILE0"));
  EXPECT_EQ(contentOf("\\\\srv\\VLMRLNK\\lnk001\\FILE1"), "!53");
  EXPECT_EQ(contentOf("\\\\srv\\VLMRLNK\\lnk002\\FILE0"), "!76");
  EXPECT_EQ(contentOf("\\\\srv\\VLMRLNK\\lnk001\\FILE0\\x"), "!76");
  EXPECT_EQ(contentOf("\\\\srv\\VLMRLNK\\" + std::string(300, 'x')), "!76");
}

TEST_F(SharePaths, TheRootOfAShareIsReachableWhenItsFolderExists) {
  folder_.write("root/srv/VLMRLNK/ttymap", "");
  EXPECT_TRUE(shareIsReachable("\\\\srv\\VLMRLNK\\"));
  EXPECT_TRUE(shareIsReachable("\\\\SRV\\vlmrlnk\\"));
  EXPECT_FALSE(shareIsReachable("\\\\srv\\CATCON\\"));
  EXPECT_FALSE(shareIsReachable("\\\\srv\\VLMRLNK\\ttymap"));
  EXPECT_FALSE(shareIsReachable("\\\\\\VLMRLNK\\")) << "no server was configured";
  environment().shareRoot.clear();
  EXPECT_FALSE(shareIsReachable("\\\\srv\\VLMRLNK\\"));
  EXPECT_EQ(nativePath("\\\\srv\\VLMRLNK\\ttymap"), std::nullopt);
}

TEST_F(SharePaths, RefusesWhatNoShareCanHold) {
  folder_.write("root/secret", "outside");
  folder_.write("root/srv/VLMRLNK/lnk/FILE0", "inside");
  const std::string share = "\\\\srv\\VLMRLNK\\";
  const std::string refused[] = {
      "",
      "\\\\",
      "\\\\srv",
      "\\\\srv\\",
      "\\\\\\srv\\VLMRLNK\\FILE0",
      "\\\\srv\\\\VLMRLNK\\FILE0",
      "\\\\..\\VLMRLNK\\FILE0",
      "\\\\srv\\..\\secret",
      "\\\\.\\PhysicalDrive0",
      "\\\\?\\C:\\secret",
      share + "..\\..\\secret",
      share + "lnk\\..\\lnk\\FILE0",
      share + ".\\lnk\\FILE0",
      share + ".. \\secret",
      share + "...\\secret",
      share + " \\secret",
      share + "../../secret",
      share + "lnk/FILE0",
      share + "C:\\secret",
      share + "C:",
      share + "lnk\\FILE0::$DATA",
      share + "lnk\\FILE0\0.txt"s,
      share + "lnk\\FILE0\n",
      share + "lnk\\FILE?",
      share + "lnk\\F*",
      share + "CON",
      share + "nul.txt",
      share + "lnk\\Aux ",
      share + "lnk\\COM1",
      share + "lnk\\lpt9.dat\\FILE0",
      share + "lnk\\com\xB2",
  };
  for (const std::string& path : refused) {
    EXPECT_EQ(nativePath(path), std::nullopt) << path;
    EXPECT_FALSE(fileSystem().fileExists(path)) << path;
    EXPECT_FALSE(fileSystem().directoryExists(path)) << path;
    EXPECT_EQ(contentOf(path), "!76") << path;
  }
  const std::string harmless[] = {"lnk\\DARR.TRVN", "lnk\\..x", "lnk\\CONTROL", "lnk\\COM10",
                                  "lnk\\COM",       "lnk\\a b", "lnk\\NULL",    "LPT.1"};
  for (const std::string& name : harmless) {
    EXPECT_NE(nativePath(share + name), std::nullopt) << name;
  }
}

TEST_F(SharePaths, RefusesALinkThatLeadsOutOfTheShare) {
  namespace fs = std::filesystem;
  folder_.write("outside/secret", "secret");
  folder_.write("mount/FILE0", "mounted");
  folder_.write("root/srv/VLMRLNK/lnk/FILE0", "inside");
  folder_.write("root/srv2/VLMRLNK2/FILE0", "beside");
  folder_.write("rootless/secret", "secret");
  const fs::path share = folder_.file("root/srv/VLMRLNK");
  fs::create_symlink(folder_.file("outside/secret"), share / "file");
  fs::create_directory_symlink(folder_.file("outside"), share / "folder");
  fs::create_directory_symlink("../../../rootless", share / "near");
  fs::create_symlink("lnk/FILE0", share / "within");
  fs::create_symlink("loop", share / "loop");
  fs::create_directory_symlink(folder_.file("mount"), folder_.file("root/srv/CATCON"));

  for (const std::string name : {"file", "folder\\secret", "near\\secret", "FOLDER\\SECRET"}) {
    EXPECT_EQ(contentOf("\\\\srv\\VLMRLNK\\" + name), "!70") << name;
    EXPECT_FALSE(fileSystem().fileExists("\\\\srv\\VLMRLNK\\" + name)) << name;
  }
  EXPECT_FALSE(fileSystem().directoryExists("\\\\srv\\VLMRLNK\\folder"));
  EXPECT_EQ(contentOf("\\\\srv\\VLMRLNK\\loop"), "!76");
  EXPECT_EQ(contentOf("\\\\srv\\VLMRLNK\\within"), "inside");
  // The user's own arrangement of shares may lead anywhere.
  EXPECT_EQ(contentOf("\\\\srv\\CATCON\\FILE0"), "mounted");
}

TEST_F(SharePaths, WhatIsNoFileIsNotOpened) {
  folder_.write("root/srv/VLMRLNK/lnk/FILE0", "");
  ASSERT_EQ(::mkfifo(folder_.file("root/srv/VLMRLNK/pipe").c_str(), 0600), 0);
  for (const std::string name : {"lnk", "pipe"}) {
    const std::string path = "\\\\srv\\VLMRLNK\\" + name;
    EXPECT_EQ(contentOf(path), "!75") << name;
    EXPECT_EQ(errorNumber([&] { fileSystem().open(path, FileAccess::kReadWrite); }), 75) << name;
    EXPECT_FALSE(fileSystem().fileExists(path)) << name;
  }
}

TEST_F(SharePaths, ABackslashSeparatesInALocalPath) {
  folder_.write("temp/sub/dgoperation.log", "log");
  EXPECT_EQ(contentOf(folder_.file("temp/sub") + "\\dgoperation.log"), "log");
  EXPECT_EQ(contentOf(folder_.file("temp") + "\\sub\\dgoperation.log"), "log");
  EXPECT_EQ(nativePath("\\dgoperation.log"), "/dgoperation.log");
  EXPECT_EQ(contentOf(folder_.file("temp") + "\\SUB\\dgoperation.log"), "!76");
  EXPECT_EQ(nativePath("/tmp\\a\0b"s), std::nullopt);
}

/// Sets an environment variable, or removes it, until the end of a test.
class Variable {
 public:
  Variable(const char* name, const char* value) : name_(name) {
    if (const char* former = std::getenv(name)) former_ = former;
    value ? ::setenv(name, value, 1) : ::unsetenv(name);
  }
  ~Variable() { former_ ? ::setenv(name_, former_->c_str(), 1) : ::unsetenv(name_); }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;

 private:
  const char* name_;
  std::optional<std::string> former_;
};

TEST(Mounts, AShareIsElsewhereWhenTheDeepestMountAboveItIs) {
  const auto isElsewhere = [](const std::string& real) {
    std::istringstream mounts(
        "22 1 8:1 / / rw,relatime shared:1 - ext4 /dev/sda1 rw\n"
        "23 22 0:40 / /mnt rw - tmpfs none rw\n"
        "24 23 0:41 / /mnt/the\\040store rw shared:2 master:3 - cifs //srv/vlmrlnk rw\n"
        "25 24 8:2 / /mnt/the\\040store/local rw - xfs /dev/sdb rw\n"
        "26 22 0:42 / /home/o/net rw - fuse.sshfs o@srv:/ rw\n"
        "27 22 0:43 / /over rw - nfs4 srv:/x rw\n"
        "28 22 8:3 / /over rw - ext4 /dev/sdc rw\n"
        "broken line\n");
    return isMountedFromElsewhere(mounts, real);
  };
  for (const char* there : {"/mnt/the store", "/mnt/the store/SRV1", "/home/o/net/a/b"})
    EXPECT_TRUE(isElsewhere(there)) << there;
  for (const char* here : {"/", "/mnt", "/mnt/the storeroom", "/mnt/the store/local/x", "/over/x"})
    EXPECT_FALSE(isElsewhere(here)) << here;
}

TEST(EnvironmentFromSystem, TheTemporaryFolderIsNeverEmpty) {
  const Variable tmpdir("TMPDIR", "/var/tmp");
  {
    const Variable temp("TEMP", "/srv/temp");
    EXPECT_EQ(environmentFromSystem().temp, "/srv/temp");
  }
  const Variable temp("TEMP", nullptr);
  EXPECT_EQ(environmentFromSystem().temp, "/var/tmp");
  const Variable none("TMPDIR", "");
  EXPECT_EQ(environmentFromSystem().temp, "/tmp");
}

TEST(EnvironmentFromSystem, VariablesComeBeforeTheSystemsAnswers) {
  const Variable home("HOME", "/home/owner");
  const Variable root("DG_SHARE_ROOT", "/mnt/shares");
  {
    const Variable name("COMPUTERNAME", "PC7");
    const Variable config("XDG_CONFIG_HOME", "/home/owner/settings");
    EXPECT_EQ(environmentFromSystem().computerName, "PC7");
    EXPECT_EQ(environmentFromSystem().settingsFile, "/home/owner/settings/DealerGauge.ini");
    EXPECT_EQ(environmentFromSystem().desktopFile, "/home/owner/settings/DealerGauge/desktop.ini");
  }
  const Variable name("COMPUTERNAME", nullptr);
  const Variable config("XDG_CONFIG_HOME", "settings");
  char host[256] = {};
  ASSERT_EQ(::gethostname(host, sizeof host - 1), 0);
  EXPECT_EQ(environmentFromSystem().computerName, host);
  EXPECT_EQ(environmentFromSystem().settingsFile, "/home/owner/.config/DealerGauge.ini")
      << "a relative folder counts as none";
  EXPECT_EQ(environmentFromSystem().shareRoot, "/mnt/shares");
}

TEST(ResolveHost, ReadsTheNetworkBytesAsALittleEndianInteger) {
  EXPECT_EQ(resolveHost("10.0.0.1"), 0x0100000a);
  EXPECT_EQ(resolveHost("0.0.0.0"), 0);
  EXPECT_EQ(resolveHost("192.168.1.200"), static_cast<std::int32_t>(0xc801a8c0));
  EXPECT_EQ(resolveHost("127.1"), 0x0100007f);
  EXPECT_EQ(lookUpHost("127.0.0.1"), 0x0100007f) << "no resolver is asked for a dotted text";
}

TEST(ResolveHost, LooksANameUpOnceWhateverTheAnswer) {
  static std::atomic<int> asked = 0;
  asked = 0;
  const HostLookUp former = setHostLookUp([](const std::string& name) {
    ++asked;
    return name == "front-desk" ? 0x0100007f : -1;
  });
  beginToResolve("front-desk");
  for (int engine = 0; engine < 2; ++engine) {
    EXPECT_EQ(resolveHost("front-desk"), 0x0100007f);
    EXPECT_EQ(resolveHost("no such host"), -1);
  }
  EXPECT_EQ(asked, 2);
  setHostLookUp(former);
}

TEST(ResolveHost, GivesMinusOneForWhatHasNoAddress) {
  EXPECT_EQ(resolveHost("255.255.255.255"), -1);
  EXPECT_EQ(resolveHost(""), -1);
  EXPECT_EQ(resolveHost("local\0host"s), -1);
  EXPECT_EQ(resolveHost(std::string(5000, 'x')), -1);
  EXPECT_EQ(resolveHost("no such host"), -1);
}

}  // namespace
}  // namespace dg
