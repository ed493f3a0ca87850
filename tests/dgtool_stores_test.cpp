#include <algorithm>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "shell/store_recap.h"
#include "tests/support/dgtool_run.h"
#include "tests/support/temporary_folder.h"
#include "views/view_catalogue.h"

namespace dg {
namespace {

using testing::HasSubstr;
using testing::Not;

/// The link table gets an entry of one more directory.
void addLink(std::vector<SampleFile>& files, const std::string& directory) {
  constexpr std::size_t kEntry = 160;
  constexpr std::size_t kHalf = 80;
  std::string& table = files.front().content;
  table.resize((table.size() + kEntry - 1) / kEntry * kEntry, '\0');
  const std::size_t start = table.size();
  table.append("\1:").append(directory).append(":LINEL");
  table.resize(start + kHalf, '\0');
  table.append("\1LNK001:PARTLK");
  table.resize(start + kEntry, '\0');
}

/// A server with two good stores, one without a control file, one whose folder is not there, and
/// names that lead elsewhere or would break a page, a line or a header.
class DgtoolStoresTest : public testing::Test {
 protected:
  DgtoolStoresTest() {
    tool_.views = viewCatalogue();
    std::vector<SampleFile> files = composeSampleStore({.stores = 2});
    for (const std::string& name : kBad)
      addLink(files, name);
    files.push_back({"share/SRV1/VLMRLNK/LNK004/PARTLK", "no store"});
    files.push_back({"share/SRV1/VLMRLNK/LNK001/SUB/FILE0", std::string(2048, 'X')});
    tool_.store.openStore(std::move(files));
    tool_.useOpenStore();
  }
  static std::string amount(const nlohmann::json& figures, int index) {
    return figures[static_cast<std::size_t>(index)]["amount"];
  }
  static double number(const nlohmann::json& figures, Figure figure) {
    return std::stod(amount(figures, static_cast<int>(figure)));
  }

  const std::vector<std::string> kBad{"LNK003",     "LNK004",      "..", "..\\VLMRLNK\\LNK001",
                                      "CON",        "LNK001\\SUB", ".",  "<b>\"'&\xE9",
                                      "A\r\nBcc: x"};
  DgtoolRun tool_;
  TemporaryFolder folder_;
};

TEST_F(DgtoolStoresTest, EachDirectoryOfTheLinkTableIsToldAndNoneIsFollowedElsewhere) {
  EXPECT_EQ(tool_.run({"stores", "--json"}), 0) << tool_.err;
  const auto stores = tool_.json()["stores"];
  ASSERT_EQ(stores.size(), 2 + kBad.size());
  for (std::size_t i = 0; i < stores.size(); ++i) {
    EXPECT_EQ(stores[i]["readable"], i < 2) << stores[i];
    EXPECT_EQ(stores[i].contains("error"), i >= 2);
  }
  EXPECT_EQ(stores[1]["directory"], "LNK002");
  EXPECT_NE(stores[0]["name"], stores[1]["name"]);
  EXPECT_EQ(tool_.run({"stores"}), 0);
  EXPECT_EQ(std::ranges::count(tool_.out, '\n'), static_cast<std::ptrdiff_t>(stores.size()));
  EXPECT_THAT(tool_.out, Not(HasSubstr("\r")));
}

TEST_F(DgtoolStoresTest, StoresStandSideBySideAsEachStandsAlone) {
  EXPECT_EQ(tool_.run({"recap", "--stores", "LNK001,lnk002,LNK004,lnk001", "--json"}), 1);
  const auto group = tool_.json();
  const auto& stores = group["stores"];
  ASSERT_EQ(stores.size(), 3U) << "a store named twice counts once";
  EXPECT_THAT(stores[2]["error"], HasSubstr("control file"));
  EXPECT_TRUE(stores[2]["recap"].empty());
  for (const Figure figure : {Figure::kReceivables, Figure::kUnits, Figure::kYearCost}) {
    const auto& total = group["total"][static_cast<std::size_t>(figure)];
    EXPECT_EQ(total["stores"], 2);
    EXPECT_NEAR(number(group["total"], figure),
                number(stores[0]["recap"], figure) + number(stores[1]["recap"], figure), 0.001);
  }
  const double sales = number(group["total"], Figure::kYearSales);
  EXPECT_NEAR(number(group["total"], Figure::kYearRate),
              (sales - number(group["total"], Figure::kYearCost)) / sales, 0.00006);

  EXPECT_EQ(tool_.run({"report", "--directory", "LNK002", "--json"}), 0) << tool_.err;
  const auto alone = tool_.json()["recap"];
  for (std::size_t i = 0; i < alone.size(); ++i)
    EXPECT_EQ(stores[1]["recap"][i]["caption"], alone[i]["caption"]) << i;
}

TEST_F(DgtoolStoresTest, AFailingStoreIsAColumnInEveryFormat) {
  EXPECT_EQ(tool_.run({"recap", "--stores", "LNK001,..", "--csv"}), 1);
  EXPECT_THAT(tool_.out, testing::StartsWith("Figure,LNK001,..,Total,Stores\r\nStore,"));
  EXPECT_THAT(tool_.out, HasSubstr(",not read: is no name of a directory,,\r\n"));
  EXPECT_EQ(tool_.run({"recap", "--stores", "LNK001,.."}), 1);
  EXPECT_THAT(tool_.out, HasSubstr("1 of 2"));
  EXPECT_THAT(tool_.out, HasSubstr(".. could not be read: is no name of a directory"));
  const std::string file = folder_.file("stores.xlsx");
  EXPECT_EQ(tool_.run({"recap", "--stores", "LNK001,..", "--xlsx", file}), 1);
  EXPECT_EQ(folder_.read("stores.xlsx").substr(0, 2), "PK");
  EXPECT_EQ(tool_.run({"recap"}), 0) << "the catalog's store alone";
  EXPECT_EQ(tool_.run({"recap", "--stores", " , "}), 2);
}

TEST_F(DgtoolStoresTest, TheGroupsPageHasASectionAStoreAndTellsWhatFailed) {
  EXPECT_EQ(tool_.run({"brief", "--stores", "all", "--html", "-"}), 1);
  EXPECT_THAT(tool_.out, HasSubstr("The totals cover 2 of 11 stores."));
  EXPECT_THAT(tool_.out, HasSubstr("&lt;b&gt;&quot;&#39;&amp;\xC3\xA9"));
  EXPECT_THAT(tool_.out, Not(HasSubstr("<b>")));
  EXPECT_EQ(std::ranges::count(tool_.out, '\r'), 0);
  EXPECT_LT(tool_.out.size(), 500'000U);

  EXPECT_EQ(tool_.run({"brief", "--stores", "LNK001,A\r\nBcc: x", "--eml", "-", "--xlsx"}), 1);
  EXPECT_THAT(tool_.out, Not(HasSubstr("\nBcc")));
  EXPECT_THAT(tool_.out, HasSubstr("multipart/mixed"));
}

TEST_F(DgtoolStoresTest, AReportThatCannotBeWrittenLeavesWhatWasThere) {
  folder_.write("old/keep", "x");
  const std::string folder = folder_.file("old");
  EXPECT_EQ(tool_.run({"brief", "--html", folder}), 2);
  EXPECT_THAT(tool_.err, HasSubstr("it is a folder or a device"));
  EXPECT_EQ(tool_.run({"brief", "--html", folder_.file("none/page.html")}), 2);
  EXPECT_EQ(tool_.run({"brief", "--directory", "LNK004", "--html", folder_.file("page.html")}), 2);
  EXPECT_FALSE(std::filesystem::exists(folder_.file("page.html"))) << "no store, no page";
  EXPECT_EQ(tool_.run({"brief"}), 2);
  EXPECT_EQ(tool_.run({"brief", "--eml", "-", "--from", "a@b\nBcc: c@d"}), 2);
  EXPECT_EQ(tool_.run({"brief", "--eml", "-", "--to", "nobody"}), 2);
}

TEST(StoreRecapTest, TotalsCoverWhatCanBeAdded) {
  const auto place = [](Figure figure) { return static_cast<std::size_t>(figure); };
  std::vector<StoreRecap> stores(4);
  for (StoreRecap& store : stores) {
    store.figures[place(Figure::kUnits)].amount = Currency(100);
    store.figures[place(Figure::kMonthSales)].amount = Currency(200);
    store.figures[place(Figure::kMonthCost)].amount = Currency(50);
    store.figures[place(Figure::kMonthRate)].amount = Currency(7);
  }
  stores[0].figures[place(Figure::kMonthSales)].amount = Currency(800);
  stores[0].figures[place(Figure::kUnits)].amount =
      Currency::fromTenThousandths(std::numeric_limits<std::int64_t>::max());
  stores[1].figures[place(Figure::kMonthCost)].incomplete = true;
  stores[3].error = "gone";
  const GroupRecap group = groupRecap(stores);
  EXPECT_EQ(group[place(Figure::kMonthSales)].amount, Currency(1200));
  EXPECT_EQ(group[place(Figure::kMonthSales)].stores, 3);
  EXPECT_EQ(group[place(Figure::kMonthCost)].stores, 2);
  EXPECT_EQ(group[place(Figure::kMonthRate)].amount, Currency::fromDouble(0.9))
      << "900 of the 1000 that have a cost";
  EXPECT_EQ(group[place(Figure::kMonthRate)].stores, 2);
  EXPECT_FALSE(group[place(Figure::kUnits)].amount) << "beyond all bounds";
  EXPECT_FALSE(group[place(Figure::kYearRate)].amount);
  EXPECT_EQ(readableStores(stores), 3);
}

}  // namespace
}  // namespace dg
