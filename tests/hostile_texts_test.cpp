#include <algorithm>
#include <cstdint>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/dgtool_run.h"
#include "tools/sample/random.h"
#include "tools/sample/sample_store.h"
#include "views/view_catalogue.h"

namespace dg::test {
namespace {

/// Places of `text` that hold a control character other than the line ends allowed.
std::size_t controlsIn(std::string_view text, std::string_view lineEnds) {
  std::size_t count = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    const bool plain = byte < 0x20 && lineEnds.find(text[i]) == std::string_view::npos;
    const bool late = byte == 0xC2 && i + 1 < text.size() &&
                      static_cast<unsigned char>(text[i + 1]) < 0xA0;  // U+0080 to U+009F
    if (plain || byte == 0x7F || late) ++count;
  }
  return count;
}

/// A store in whose data files printable bytes gave way to control characters and bytes that are no
/// code page's, in records, directories, links, documents and texts alike; keys and counts are
/// below or above those bytes and stay.
std::vector<SampleFile> poisonedStore(std::uint64_t seed, int percent) {
  std::vector<SampleFile> files = composeSampleStore({});
  sample::Random random(seed, "poison");
  constexpr std::string_view kPoison = "\x1B\x07\x08\x7F\x90\x9B\x9D\x81\x85\r\n\t\x01\xFF";
  for (SampleFile& file : files) {
    if (file.path.ends_with(".ini")) continue;
    for (char& byte : file.content)
      if (byte >= ' ' && byte <= '~' && random.chance(percent)) byte = random.pick(kPoison);
  }
  return files;
}

class HostileTextsTest : public testing::TestWithParam<int> {
 protected:
  void SetUp() override {
    tool_.views = viewCatalogue();
    tool_.store.openStore(poisonedStore(static_cast<std::uint64_t>(GetParam()), GetParam()));
    tool_.useOpenStore();
  }
  DgtoolRun tool_;
};

TEST_P(HostileTextsTest, NoControlCharacterReachesTerminalLogOrSheet) {
  tool_.run({"report", "--details"});
  EXPECT_GT(tool_.out.size(), 1000U);
  EXPECT_EQ(controlsIn(tool_.out, "\n"), 0U);
  EXPECT_EQ(controlsIn(tool_.err, "\n"), 0U);
  EXPECT_EQ(controlsIn(tool_.store.log(), "\r\n"), 0U);

  for (const char* grid : {"grdPO", "grdUnits", "grdInvest", "grdTickets", "grdShop"}) {
    tool_.run({"report", "--csv", grid});
    EXPECT_EQ(controlsIn(tool_.out, "\r\n"), 0U) << grid;
    EXPECT_EQ(std::ranges::count(tool_.out, '\r'), std::ranges::count(tool_.out, '\n')) << grid;
  }
  tool_.run({"inspect", "files"});
  EXPECT_EQ(controlsIn(tool_.out + tool_.err, "\n"), 0U);
  for (const char* index : {"PARTI", "PUTBI", "UNITI"}) {
    tool_.run({"inspect", "keys", index});
    EXPECT_EQ(controlsIn(tool_.out + tool_.err, "\n"), 0U) << index;
  }
  for (const char* file : {"CUSTL", "INVOL", "UNITL", "VNDRL"}) {
    tool_.run({"inspect", "record", file, "2"});
    EXPECT_EQ(controlsIn(tool_.out + tool_.err, "\n"), 0U) << file;
  }
  for (const char* as : {"clsUnits", "clsInvoiceHistory", "clsShop"}) {
    tool_.run({"inspect", "record", as == std::string_view("clsUnits") ? "UNITL" : "INVOL", "3",
               "--as", as});
    EXPECT_EQ(controlsIn(tool_.out + tool_.err, "\n"), 0U) << as;
  }
}

TEST_P(HostileTextsTest, JsonIsValidForAnyBytes) {
  tool_.run({"report", "--json", "--details"});
  const auto report = tool_.json();
  EXPECT_EQ(report["recap"].size(), 22U);
  EXPECT_EQ(controlsIn(tool_.out, "\n"), 0U);
  for (const std::vector<std::string>& arguments :
       {std::vector<std::string>{"inspect", "files", "--json"},
        {"inspect", "keys", "PARTI", "--json"},
        {"inspect", "record", "INVOL", "3", "--as", "clsInvoiceHistory", "--json"}}) {
    tool_.run(arguments);
    EXPECT_TRUE(tool_.out.empty() || tool_.json().is_object());
  }
}

INSTANTIATE_TEST_SUITE_P(Percent, HostileTextsTest, testing::Values(1, 10, 60));

}  // namespace
}  // namespace dg::test
