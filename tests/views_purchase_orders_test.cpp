#include <string>
#include <utility>
#include <vector>

#include "tests/support/vendor_documents.h"
#include "tests/support/view_run.h"
#include "tools/sample/families/part_key.h"
#include "views/financial/purchase_orders.h"

namespace dg::test {
namespace {

using sample::partKey;

class PurchaseOrders : public ViewTest {
 protected:
  PurchaseOrders() { addVendor(run.builder, 7, "ELVERTON MARINA"); }

  void addEntry(const std::string& name, std::int32_t status) {
    run.builder.index("PUTBI").add(documentKey(name, status), 1);
  }
  void add(const Document& document, std::int32_t status = 20) {
    addEntry(document.name, status);
    run.builder.addFile(document.name, document.bytes());
  }
  void addPart(const std::string& key, const std::string& description, std::int32_t cost) {
    const std::int32_t record = run.builder.records("PARTL").add(
        RecordWriter(256).integer(61, 'D', cost).packed(179, 14, description).bytes());
    run.builder.index("PARTI").add(key, record);
  }
  static Cells details(const ShownWindow& window) {
    Cells labels;
    for (int i = 0; i < 5; ++i)
      labels.push_back(window.labels.at(elementName("lblDetail", i)));
    return labels;
  }
};

TEST_F(PurchaseOrders, TheStatusCountsByItsFirstDigit) {
  std::size_t place = 0;
  Cells expected;
  const auto addWith = [&](char letter, std::int32_t status, bool open) {
    const std::string name = std::string(1, letter) + std::to_string(1000 + ++place);
    add({.name = name, .total = 100}, status);
    if (open) expected.push_back(name);
  };
  for (const std::int32_t status : {2, 20, 25, 29, 200, 255, 6, 60, 69})
    addWith('V', status, true);
  for (const std::int32_t status : {0, 1, 3, 12, 16, 26 + 100, 30, 59, 70, 99, 100, 199})
    addWith('V', status, false);
  for (const std::int32_t status : {6, 62})
    addWith('X', status, true);
  for (const std::int32_t status : {2, 20, 200})
    addWith('X', status, false);
  auto& view = run.load<frmPo>();
  EXPECT_EQ(column(view.grdPO, "PO Number"), expected);
  EXPECT_EQ(run.recap(8), "$11.00");
  EXPECT_EQ(view.lblPoTotal.caption(), "$11.00");
}

TEST_F(PurchaseOrders, AnOrdersHeaderAndTotalFillItsRow) {
  add({.name = "V2", .number = "PO 77", .date = 10599, .total = 123'456'789});
  add({.name = "V3", .vendor = 999, .date = 123126, .total = -50});
  auto& view = run.load<frmPo>();
  EXPECT_EQ(
      view.grdPO.rows(),
      (std::vector<Cells>{{"PO 77", "7", "ELVERTON MARINA", "1/5/99", "$1,234,567.89", "11328"},
                          {"V3", "999", "Vendor not found", "12/31/26", "-$.50", "21550"}}));
  EXPECT_EQ(run.recap(8), "$1,234,567.39");
}

TEST_F(PurchaseOrders, AnEntryWithoutItsFileAddsNothing) {
  addEntry("V00001", 20);
  add({.name = "V00002", .total = 100});
  auto& view = run.load<frmPo>();
  EXPECT_EQ(column(view.grdPO, "PO Number"), Cells{"V00002"});
  EXPECT_TRUE(run.logged.empty());
}

TEST_F(PurchaseOrders, ASignedPointerEndsTheListUnlessItIsTheFirst) {
  for (const char* name : {"V1", "V2", "V3", "V4"}) {
    run.builder.addFile(name, Document{.name = name, .total = 100}.bytes());
    const bool isSigned = name[1] == '1' || name[1] == '3';
    run.builder.index("PUTBI").add(documentKey(name, 20), isSigned ? -7 : 7);
  }
  auto& view = run.load<frmPo>();
  EXPECT_EQ(column(view.grdPO, "PO Number"), (Cells{"V1", "V2"}));
  EXPECT_EQ(run.recap(8), "$2.00");
  EXPECT_TRUE(run.logged.empty());
}

TEST_F(PurchaseOrders, TheDetailShowsTheLinesOfKindFour) {
  const std::string filter = partKey("K7", "1234ABC");
  const std::string gasket = partKey("K7", "9");
  const std::string gone = partKey("ZZ", "9");
  addPart(filter, "OIL FILTER", 250);
  addPart(gasket, "GASKET", 0);
  add({.dropShip = 4711,
       .total = 5'000,
       .comments = {"RUSH ORDER", "", "SHIP 1/2, REST LATER."},
       .lines = {documentLine(4, filter, 3, 1'005), documentLine(3, filter, 9, 100),
                 documentLine(4, filter, -2, 0), documentLine(4, gasket, 5, 0),
                 documentLine(4, gone, 2, 0), documentLine(4, gone, 10, 1'234'567),
                 documentLine(0, gone, 1, 1)}});
  auto& view = run.load<frmPo>();
  const ShownWindow detail = run.click(view.grdPO);
  EXPECT_EQ(detail.caption, "Purchase Order Detail      PO # : V00001");
  EXPECT_EQ(details(detail), (Cells{"ELVERTON MARINA", "11/24/26", "$50.00", "5", "4711"}));
  EXPECT_TRUE(detail.visible.at("Label1(4)") && detail.visible.at("lblDetail(4)"));
  EXPECT_EQ(detail.labels.at("lblComments"), "RUSH ORDER\n\nSHIP 1/2, REST LATER.\n\n");
  // The line code shows as the number that its two packed bytes make.
  const std::string k7 = std::to_string(24 * 1600 + 11 * 40);
  const std::string zz = std::to_string(39 * 1600 + 39 * 40);
  EXPECT_EQ(detail.grids.at("grdPod"),
            (std::vector<Cells>{{k7, "1234ABC", "OIL FILTER", "3", "10.05", "30.15"},
                                {k7, "1234ABC", "OIL FILTER", "-2", "2.50", "-5.00"},
                                {k7, "9", "GASKET", "5", ".00", ".00"},
                                {zz, "9", "Part Not Found", "2", ".00", ".00"},
                                {zz, "9", "Part Not Found", "10", "12345.67", "123456.70"}}));
  EXPECT_FALSE(view.pb1.visible());
  EXPECT_FALSE(view.lblLoading.visible());
}

TEST_F(PurchaseOrders, ADocumentOfSixRecordsHasNoLines) {
  add({.total = 100});
  auto& view = run.load<frmPo>();
  bool barWasUp = false;
  run.onModal = [&](Form&) {
    barWasUp = view.pb1.visible() && view.lblLoading.visible();
    EXPECT_EQ(view.pb1.value(), 0);
  };
  const ShownWindow detail = run.click(view.grdPO);
  EXPECT_EQ(details(detail), (Cells{"ELVERTON MARINA", "11/24/26", "$1.00", "0", ""}));
  EXPECT_FALSE(detail.visible.at("Label1(4)") || detail.visible.at("lblDetail(4)"));
  EXPECT_TRUE(barWasUp);
  EXPECT_FALSE(view.pb1.visible());
}

TEST_F(PurchaseOrders, TheDetailOpensWhatTheNumberNames) {
  add({.name = "V1", .number = "V2", .total = 100});
  add({.name = "V2", .number = "GONE", .total = 100, .comments = {"OF V2"}});
  auto& view = run.load<frmPo>();
  EXPECT_EQ(run.click(view.grdPO).labels.at("lblComments"), "OF V2\n\n\n\n");
  view.grdPO.rowClick(1);
  EXPECT_THAT(run.windows, SizeIs(1)) << "no file of that name, no window";
  EXPECT_TRUE(view.pb1.visible()) << "the bar stays up";
  EXPECT_TRUE(view.lblLoading.visible());
  EXPECT_TRUE(run.messages.empty());
}

TEST_F(PurchaseOrders, AFailureInALineLeavesTheRestOfTheDetail) {
  const std::string bad = partKey("K7", "BAD");
  const std::string good = partKey("K7", "GOOD");
  run.builder.index("PARTI").add(bad, 500);
  addPart(good, "GASKET", 300);
  add({.total = 100, .lines = {documentLine(4, bad, 1, 700), documentLine(4, good, 2, 0)}});
  auto& view = run.load<frmPo>();
  const ShownWindow detail = run.click(view.grdPO);
  const Rows& lines = detail.grids.at("grdPod");
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0][4], "7.00");
  EXPECT_EQ(lines[1][2], "GASKET");
  EXPECT_EQ(lines[1][5], "6.00");
  EXPECT_EQ(details(detail)[3], "2");
  EXPECT_TRUE(run.messages.empty());
}

TEST_F(PurchaseOrders, VendorTotalsAddUpInOrderOfNumber) {
  addVendor(run.builder, 999, "LAST");
  addVendor(run.builder, 1, "FIRST");
  add({.name = "V1", .vendor = 999, .total = 10'000'000});
  add({.name = "V2", .vendor = 1, .total = 250});
  add({.name = "V3", .vendor = 999, .total = -50});
  add({.name = "V4", .vendor = 8, .total = 300});
  add({.name = "V5", .vendor = 7, .total = 900});
  add({.name = "V6", .vendor = 7, .total = -900});
  add({.name = "V7", .vendor = 9, .total = 5'000}, 99);
  auto& view = run.load<frmPo>();
  view.cmdVtot.click();
  ASSERT_THAT(run.windows, SizeIs(1));
  const ShownWindow& totals = run.windows[0];
  EXPECT_EQ(totals.grids.at("grdVtot"), (std::vector<Cells>{{"1", "FIRST", "2.50"},
                                                            {"8", "Vendor not found", "3.00"},
                                                            {"999", "LAST", "99999.50"}}));
  EXPECT_EQ(totals.labels.at("Label1"), "$100,005.00");
}

TEST(DamagedOrders, EndTheLoadWhereTheyCannotBeRead) {
  const std::string whole = Document{}.bytes();
  const struct {
    std::string document;
    Rows rows;
    std::string error;
  } cases[] = {
      {Document{.vendor = 0, .total = 200}.bytes(),
       {{"V00001", "0", "Vendor not found", "11/24/26", "$2.00", "21513"}},
       "9  Subscript out of range"},
      {Document{.vendor = 1000, .total = 200}.bytes(),
       {{"V00001", "1000", "Vendor not found", "11/24/26", "$2.00", "21513"}},
       "9  Subscript out of range"},
      // Digits that are no date.
      {Document{.date = 0}.bytes(),
       {{"V00001", "7", "Vendor not found", "1/1/68", "", ""}},
       "13  Type mismatch"},
      {Document{.date = 130126}.bytes(),
       {{"V00001", "7", "Vendor not found", "1/1/68", "", ""}},
       "13  Type mismatch"},
      // Without a whole header there is no row; with one it stands until the total is missed.
      {"", {}, "81  Illegal Record Number for File: V00001 and Record:  1"},
      {whole.substr(0, 75), {}, "81  Illegal Record Number for File: V00001 and Record:  1"},
      {whole.substr(0, 76),
       {{"V00001", "7", "Vendor not found", "11/24/26", "", "21513"}},
       "81  Illegal Record Number for File: V00001 and Record:  6"},
      {whole.substr(0, 265),
       {{"V00001", "7", "Vendor not found", "11/24/26", "", "21513"}},
       "81  Illegal Record Number for File: V00001 and Record:  6"},
  };
  for (const auto& damaged : cases) {
    ViewRun run;
    run.builder.index("PUTBI").add(documentKey("V00001", 20), 1);
    run.builder.index("PUTBI").add(documentKey("V2", 20), 1);
    run.builder.addFile("V00001", damaged.document);
    run.builder.addFile("V2", whole);
    const auto& view = run.load<frmPo>();
    EXPECT_EQ(view.grdPO.rows(), damaged.rows);
    EXPECT_EQ(view.lblPoTotal.caption(), "");
    run.expectFailure(8, "*Error in frmPO GetPO routine error # :  " + damaged.error);
  }
}

}  // namespace
}  // namespace dg::test
