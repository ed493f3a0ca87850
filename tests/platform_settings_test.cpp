#include <filesystem>
#include <gtest/gtest.h>
#include <unistd.h>

#include "platform/environment.h"
#include "platform/ini_file.h"
#include "platform/settings.h"
#include "tests/support/error_number.h"
#include "tests/support/memory_file_system.h"
#include "tests/support/scopes.h"
#include "tests/support/temporary_folder.h"

namespace dg {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

TEST(IniValue, FollowsTheRulesOfPrivateProfiles) {
  struct Case {
    const char* content;
    std::optional<std::string> value;  ///< of the key "Server" in the section "eZ-Lines"
  };
  const Case cases[] = {
      {"", std::nullopt},
      {"[eZ-Lines]\r\nServer=SRV\r\n", "SRV"},
      {"[eZ-Lines]\nServer=SRV", "SRV"},
      {"\xEF\xBB\xBF[eZ-Lines]\nServer=SRV", "SRV"},
      {" [ ez-lines ] \r\n\tSERVER \t=  S R V \t\r\n", "S R V"},
      {"[eZ-Lines] ; the suite's\nServer=SRV", "SRV"},
      {"[eZ-Lines]\nServer=", ""},
      {"[eZ-Lines]\nServer", std::nullopt},
      {"[eZ-Lines]\nServer=a=b", "a=b"},
      {"[eZ-Lines]\nServer=a;b", "a;b"},
      {"[eZ-Lines]\n;Server=old\n ; Server=old\nServer=new", "new"},
      {"[eZ-Lines]\nServer=\" SRV \"", " SRV "},
      {"[eZ-Lines]\nServer='SRV'", "SRV"},
      {"[eZ-Lines]\nServer=\"\"SRV\"\"", "\"SRV\""},
      {"[eZ-Lines]\nServer=\"SRV'", "\"SRV'"},
      {"[eZ-Lines]\nServer=\"", "\""},
      {"[eZ-Lines]\nServer=first\nServer=second", "first"},
      {"[Other]\nServer=other\n[eZ-Lines]\n[Third]\nServer=third", std::nullopt},
      {"[eZ-Lines]\nx=1\n[eZ-Lines]\nServer=second section", std::nullopt},
      {"Server=before any section\n[Other]\nServer=other", std::nullopt},
      {"[eZ-Lines\nServer=unclosed", std::nullopt},
      {"[eZ-Lines]\n[Other\nServer=SRV", "SRV"},
      {"[eZ-Lines]\nServers=1\n=2\nMyServer=3\n", std::nullopt},
      {"[eZ-Lines]\r\r\nServer=SRV", "SRV"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(iniValue(c.content, "eZ-Lines", "Server"), c.value) << c.content;
  }
}

TEST(WithIniValue, ChangesTheOneLineAndNoOther) {
  struct Case {
    const char* before;
    const char* after;  ///< with "Accounts" of "Asset" set to "011,022"
  };
  const Case cases[] = {
      {"", "[Asset]\nAccounts=011,022\n"},
      {"[Asset]\r\naccounts = 033 \r\n;x\r\n", "[Asset]\r\naccounts =011,022\r\n;x\r\n"},
      {"[Asset]\nAccounts=1", "[Asset]\nAccounts=011,022"},
      {"[asset]\nAccounts=1\nAccounts=2\n[Asset]\nAccounts=3\n",
       "[asset]\nAccounts=011,022\nAccounts=2\n[Asset]\nAccounts=3\n"},
      {"[Asset]\r\nx=1\r\n\r\n[Liability]\r\nAccounts=9\r\n",
       "[Asset]\r\nx=1\r\nAccounts=011,022\r\n\r\n[Liability]\r\nAccounts=9\r\n"},
      {"[Liability]\nAccounts=9", "[Liability]\nAccounts=9\n[Asset]\nAccounts=011,022\n"},
      {"Accounts=0\n[Asset]", "Accounts=0\n[Asset]\nAccounts=011,022\n"},
      {"\xEF\xBB\xBF", "\xEF\xBB\xBF[Asset]\nAccounts=011,022\n"},
      {"\xFFjunk\n\n[Asset]\n;Accounts=1\n",
       "\xFFjunk\n\n[Asset]\n;Accounts=1\nAccounts=011,022\n"},
  };
  for (const Case& c : cases) {
    const std::string after = withIniValue(c.before, "Asset", "Accounts", "011,022");
    EXPECT_EQ(after, c.after);
    EXPECT_EQ(withIniValue(after, "Asset", "Accounts", "011,022"), after);
  }
}

TEST(WithIniValue, EveryValueComesBackAsItWasSet) {
  for (const std::string value :
       {"", " ", " a ", "\"", "\"a\"", "'a'", "''", "a;b=c[d]", "\t", "\"'"}) {
    const std::string content = withIniValue("[A]\nB=1\n", "A", "B", value);
    EXPECT_EQ(iniValue(content, "A", "B"), value) << content;
  }
}

TEST(WithIniValue, RefusesWhatWouldChangeOtherLines) {
  const auto set = [](const std::string& section, const std::string& key,
                      const std::string& value) {
    return errorNumber([&] { withIniValue("", section, key, value); });
  };
  EXPECT_EQ(set("A", "B", "1\n[C]"), 5);
  EXPECT_EQ(set("A", "B", "1\r"), 5);
  EXPECT_EQ(set("A", "B", "1\0"s), 5);
  EXPECT_EQ(set("A]", "B", ""), 5);
  EXPECT_EQ(set("A\n", "B", ""), 5);
  EXPECT_EQ(set("A", "", ""), 5);
  EXPECT_EQ(set("A", "B=C", ""), 5);
  EXPECT_EQ(set("A", ";B", ""), 5);
  EXPECT_EQ(set("A", "[B", ""), 5);
}

TEST(GetPrivateProfileString, CutsAtTheBufferAndGivesNothingForWhatIsAbsent) {
  const std::string path = "/tmp\\cQTCatalog.ini";
  auto memory = std::make_unique<MemoryFileSystem>();
  memory->add(path, "[eZ-Lines]\r\nServer=" + std::string(150, 's') + "\r\nDirectory=lnk001\r\n");
  const FileSystemScope scope(std::move(memory));
  EXPECT_EQ(GetPrivateProfileString("eZ-Lines", "Server", 100, path), std::string(99, 's'));
  EXPECT_EQ(GetPrivateProfileString("EZ-LINES", "directory", 100, path), "lnk001");
  EXPECT_EQ(GetPrivateProfileString("eZ-Lines", "Directory", 7, path), "lnk001");
  EXPECT_EQ(GetPrivateProfileString("eZ-Lines", "Directory", 1, path), "");
  EXPECT_EQ(GetPrivateProfileString("eZ-Lines", "Directory", 0, path), "");
  EXPECT_EQ(GetPrivateProfileString("eZ-Lines", "TerminalID", 100, path), "");
  EXPECT_EQ(GetPrivateProfileString("Other", "Server", 100, path), "");
  EXPECT_EQ(GetPrivateProfileString("eZ-Lines", "Server", 100, "/tmp\\none.ini"), "");
}

class Settings : public ::testing::Test {
 protected:
  Settings() { environment().settingsFile = folder_.file("home/.config/DealerGauge.ini"); }

  static std::string assets() { return GetSetting("DealerGauge", "Asset", "Accounts", "default"); }
  static int save(const std::string& value) {
    return errorNumber([&] { SaveSetting("DealerGauge", "Asset", "Accounts", value); });
  }

  EnvironmentScope environment_;
  TemporaryFolder folder_;
};

TEST_F(Settings, SurviveInAFileOfTheUsersOwn) {
  EXPECT_EQ(assets(), "default");
  ASSERT_EQ(save("0112345,0267"), 0);
  SaveSetting("DealerGauge", "Liability", "Accounts", "013");
  EXPECT_EQ(assets(), "0112345,0267");
  EXPECT_EQ(GetSetting("DealerGauge", "Liability", "Accounts", ""), "013");
  ASSERT_EQ(save(""), 0);
  EXPECT_EQ(assets(), "") << "an empty list is a setting";
  EXPECT_EQ(folder_.read("home/.config/DealerGauge.ini"),
            "[Asset]\nAccounts=\n[Liability]\nAccounts=013\n");
  EXPECT_EQ(fs::status(folder_.file("home/.config/DealerGauge.ini")).permissions(),
            fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_EQ(fs::status(folder_.file("home/.config")).permissions(), fs::perms::owner_all);
  EXPECT_EQ(folder_.names("home/.config"), std::vector<std::string>{"DealerGauge.ini"});
}

TEST_F(Settings, FailWhereTheFileCannotStand) {
  folder_.write("file", "kept");
  environment().settingsFile = folder_.file("file/DealerGauge.ini");
  EXPECT_EQ(save("011"), 76);
  EXPECT_EQ(assets(), "default");
  environment().settingsFile = folder_.file("file/deeper/DealerGauge.ini");
  EXPECT_EQ(save("011"), 76);
  EXPECT_EQ(folder_.read("file"), "kept");

  fs::create_directories(folder_.file("folder"));
  environment().settingsFile = folder_.file("folder");
  EXPECT_EQ(save("011"), 75);
  EXPECT_EQ(assets(), "default");
  environment().settingsFile.clear();
  EXPECT_EQ(save("011"), 76);
  EXPECT_EQ(assets(), "default");
  EXPECT_EQ(folder_.names(), (std::vector<std::string>{"file", "folder"}));
}

}  // namespace
}  // namespace dg
