#include <string>
#include <utility>
#include <vector>

#include "tests/support/vendor_documents.h"
#include "tests/support/view_test.h"
#include "tools/sample/families/part_key.h"
#include "views/financial/purchase_order_detail.h"
#include "views/financial/purchase_orders.h"

namespace dg::test {
namespace {

using sample::partKey;

class PurchaseOrders : public ViewTest {
 protected:
  PurchaseOrders() { addVendor(run_.builder, 7, "ELVERTON MARINA"); }

  void addEntry(const std::string& name, std::int32_t status) {
    run_.builder.index("PUTBI").add(documentKey(name, status), 1);
  }
  void add(const Document& document, std::int32_t status = 20) {
    addEntry(document.name, status);
    run_.builder.addFile(document.name, document.bytes());
  }
  void addPart(const std::string& key, const std::string& description, std::int32_t cost) {
    const std::int32_t record = run_.builder.records("PARTL").add(
        RecordWriter(256).integer(61, 'D', cost).packed(179, 14, description).bytes());
    run_.builder.index("PARTI").add(key, record);
  }
  /// What a click on a row shows, while the window stands.
  struct Detail {
    int shown = 0;
    std::string caption;
    Cells labels;
    std::string comments;
    std::vector<Cells> lines;
    bool dropShipVisible = false;
  };
  static Detail look(Form& form) {
    const auto& window = dynamic_cast<frmPODetail&>(form);
    Detail detail;
    detail.shown = 1;
    detail.caption = window.caption();
    for (const Label* label : window.lblDetail)
      detail.labels.push_back(label->caption());
    detail.comments = window.lblComments.caption();
    detail.lines = window.grdPod.rows();
    detail.dropShipVisible = window.Label1[4]->visible() && window.lblDetail[4]->visible();
    return detail;
  }
  Detail click(Grid& grid, int row) {
    Detail detail;
    run_.onModal = [&detail](Form& form) { detail = look(form); };
    grid.rowClick(row);
    run_.onModal = {};
    return detail;
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
  const auto view = load<frmPo>();
  EXPECT_EQ(column(view->grdPO, "PO Number"), expected);
  EXPECT_EQ(recap(8), "$11.00");
  EXPECT_EQ(view->lblPoTotal.caption(), "$11.00");
}

TEST_F(PurchaseOrders, AnOrdersHeaderAndTotalFillItsRow) {
  add({.name = "V2", .number = "PO 77", .date = 10599, .total = 123'456'789});
  add({.name = "V3", .vendor = 999, .date = 123126, .total = -50});
  const auto view = load<frmPo>();
  EXPECT_EQ(
      view->grdPO.rows(),
      (std::vector<Cells>{{"PO 77", "7", "ELVERTON MARINA", "1/5/99", "$1,234,567.89", "11328"},
                          {"V3", "999", "Vendor not found", "12/31/26", "-$.50", "21550"}}));
  EXPECT_EQ(recap(8), "$1,234,567.39");
}

TEST_F(PurchaseOrders, AnEntryWithoutItsFileAddsNothing) {
  addEntry("V00001", 20);
  add({.name = "V00002", .total = 100});
  const auto view = load<frmPo>();
  EXPECT_EQ(column(view->grdPO, "PO Number"), Cells{"V00002"});
  EXPECT_TRUE(run_.logged.empty());
}

TEST_F(PurchaseOrders, ASignedPointerEndsTheListUnlessItIsTheFirst) {
  for (const char* name : {"V1", "V2", "V3", "V4"}) {
    run_.builder.addFile(name, Document{.name = name, .total = 100}.bytes());
    const bool isSigned = name[1] == '1' || name[1] == '3';
    run_.builder.index("PUTBI").add(documentKey(name, 20), isSigned ? -7 : 7);
  }
  const auto view = load<frmPo>();
  EXPECT_EQ(column(view->grdPO, "PO Number"), (Cells{"V1", "V2"}));
  EXPECT_EQ(recap(8), "$2.00");
  EXPECT_TRUE(run_.logged.empty());
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
  const auto view = load<frmPo>();
  const Detail detail = click(view->grdPO, 0);
  EXPECT_EQ(detail.caption, "Purchase Order Detail      PO # : V00001");
  EXPECT_EQ(detail.labels, (Cells{"ELVERTON MARINA", "11/24/26", "$50.00", "5", "4711"}));
  EXPECT_TRUE(detail.dropShipVisible);
  EXPECT_EQ(detail.comments, "RUSH ORDER\n\nSHIP 1/2, REST LATER.\n\n");
  // The line code shows as the number that its two packed bytes make.
  const std::string k7 = std::to_string(24 * 1600 + 11 * 40);
  const std::string zz = std::to_string(39 * 1600 + 39 * 40);
  EXPECT_EQ(detail.lines,
            (std::vector<Cells>{{k7, "1234ABC", "OIL FILTER", "3", "10.05", "30.15"},
                                {k7, "1234ABC", "OIL FILTER", "-2", "2.50", "-5.00"},
                                {k7, "9", "GASKET", "5", ".00", ".00"},
                                {zz, "9", "Part Not Found", "2", ".00", ".00"},
                                {zz, "9", "Part Not Found", "10", "12345.67", "123456.70"}}));
  EXPECT_FALSE(view->pb1.visible());
  EXPECT_FALSE(view->lblLoading.visible());
}

TEST_F(PurchaseOrders, ADocumentOfSixRecordsHasNoLines) {
  add({.total = 100});
  const auto view = load<frmPo>();
  bool barWasUp = false;
  run_.onModal = [&](Form& form) {
    barWasUp = view->pb1.visible() && view->lblLoading.visible();
    EXPECT_EQ(look(form).labels, (Cells{"ELVERTON MARINA", "11/24/26", "$1.00", "0", ""}));
    EXPECT_FALSE(look(form).dropShipVisible);
    EXPECT_EQ(view->pb1.value(), 0);
  };
  view->grdPO.rowClick(0);
  EXPECT_EQ(run_.shown, Cells{"modal frmPODetail"});
  EXPECT_TRUE(barWasUp);
  EXPECT_FALSE(view->pb1.visible());
}

TEST_F(PurchaseOrders, TheDetailOpensWhatTheNumberNames) {
  add({.name = "V1", .number = "V2", .total = 100});
  add({.name = "V2", .number = "GONE", .total = 100, .comments = {"OF V2"}});
  const auto view = load<frmPo>();
  EXPECT_EQ(click(view->grdPO, 0).comments, "OF V2\n\n\n\n");
  EXPECT_EQ(click(view->grdPO, 1).shown, 0) << "no file of that name, no window";
  EXPECT_TRUE(view->pb1.visible()) << "the bar stays up";
  EXPECT_TRUE(view->lblLoading.visible());
  EXPECT_TRUE(run_.messages.empty());
}

TEST_F(PurchaseOrders, AFailureInALineLeavesTheRestOfTheDetail) {
  const std::string bad = partKey("K7", "BAD");
  const std::string good = partKey("K7", "GOOD");
  run_.builder.index("PARTI").add(bad, 500);
  addPart(good, "GASKET", 300);
  add({.total = 100, .lines = {documentLine(4, bad, 1, 700), documentLine(4, good, 2, 0)}});
  const auto view = load<frmPo>();
  const Detail detail = click(view->grdPO, 0);
  ASSERT_EQ(detail.lines.size(), 2U);
  EXPECT_EQ(detail.lines[0][4], "7.00");
  EXPECT_EQ(detail.lines[1][2], "GASKET");
  EXPECT_EQ(detail.lines[1][5], "6.00");
  EXPECT_EQ(detail.labels[3], "2");
  EXPECT_TRUE(run_.messages.empty());
}

TEST_F(PurchaseOrders, VendorTotalsAddUpInOrderOfNumber) {
  addVendor(run_.builder, 999, "LAST");
  addVendor(run_.builder, 1, "FIRST");
  add({.name = "V1", .vendor = 999, .total = 10'000'000});
  add({.name = "V2", .vendor = 1, .total = 250});
  add({.name = "V3", .vendor = 999, .total = -50});
  add({.name = "V4", .vendor = 8, .total = 300});
  add({.name = "V5", .vendor = 7, .total = 900});
  add({.name = "V6", .vendor = 7, .total = -900});
  add({.name = "V7", .vendor = 9, .total = 5'000}, 99);
  const auto view = load<frmPo>();
  std::vector<Cells> rows;
  std::string grand;
  run_.onModal = [&](Form& form) {
    const auto& totals = dynamic_cast<frmVtotal&>(form);
    rows = totals.grdVtot.rows();
    grand = totals.Label1.caption();
  };
  view->cmdVtot.click();
  EXPECT_EQ(rows, (std::vector<Cells>{{"1", "FIRST", "2.50"},
                                      {"8", "Vendor not found", "3.00"},
                                      {"999", "LAST", "99999.50"}}));
  EXPECT_EQ(grand, "$100,005.00");
}

TEST_F(PurchaseOrders, TheDateSortsByItsDayNumber) {
  addVendor(run_.builder, 30, "ZEBRA");
  addVendor(run_.builder, 100, "ALPHA");
  add({.name = "V1", .vendor = 30, .date = 10226, .total = 50'000});
  add({.name = "V2", .vendor = 100, .date = 123125, .total = 700'000});
  add({.name = "V3", .vendor = 7, .date = 110126, .total = 9'900});
  const auto view = load<frmPo>();
  expectHeadSorts(view->grdPO, 0, "PO Number", true);
  expectHeadSorts(view->grdPO, 1, "Vendor #");
  expectHeadSorts(view->grdPO, 2, "Vendor Name", true);
  expectHeadSorts(view->grdPO, 3, "ndate");
  EXPECT_EQ(column(view->grdPO, "Date"), (Cells{"12/31/25", "1/2/26", "11/1/26"}));
  expectHeadSorts(view->grdPO, 4, "Total");
  expectHeadDoesNothing(view->grdPO, 5);
}

/// A store whose only orders are the documents given, loaded.
struct OrdersRun {
  explicit OrdersRun(const std::vector<std::pair<std::string, std::string>>& documents) {
    for (const auto& [name, content] : documents) {
      run.builder.index("PUTBI").add(documentKey(name, 20), 1);
      run.builder.addFile(name, content);
    }
    run.openEngine();
    view.Form_Load();
  }
  /// Expects the load to have ended in an error.
  void expectFailure(const std::string& error) {
    EXPECT_EQ(recap.lblRecap(8).caption(), "Data Error !");
    EXPECT_EQ(recap.lblRecap(8).foreColor(), kRed);
    EXPECT_EQ(view.lblPoTotal.caption(), "");
    EXPECT_EQ(run.logged, Cells{"*Error in frmPO GetPO routine error # :  " + error});
  }

  ProgramRun run;
  frmRecap recap;
  frmPo view;
};

TEST(DamagedOrders, AVendorOutsideTheTableEndsTheLoad) {
  for (const std::int32_t vendor : {0, 1000}) {
    OrdersRun orders({{"V1", Document{.total = 100}.bytes()},
                      {"V2", Document{.name = "V2", .vendor = vendor, .total = 200}.bytes()},
                      {"V3", Document{.total = 400}.bytes()}});
    EXPECT_EQ(orders.view.grdPO.Rows(), 2);
    EXPECT_EQ(
        orders.view.grdPO.rows().back(),
        (Cells{"V2", std::to_string(vendor), "Vendor not found", "11/24/26", "$2.00", "21513"}));
    orders.expectFailure("9  Subscript out of range");
  }
}

TEST(DamagedOrders, DigitsThatAreNoDateEndTheLoad) {
  for (const std::int32_t date : {0, 130126, 22926}) {
    OrdersRun orders({{"V1", Document{.name = "V1", .date = date}.bytes()}});
    EXPECT_EQ(orders.view.grdPO.rows(),
              (std::vector<Cells>{{"V1", "7", "Vendor not found", "1/1/68", "", ""}}));
    orders.expectFailure("13  Type mismatch");
  }
}

TEST(DamagedOrders, ADocumentThatEndsBeforeItsTotalEndsTheLoad) {
  struct Case {
    std::size_t length;
    int rows;
    std::string record;
  };
  // Without a whole header there is no row; with one the row stands until the total is missed.
  for (const Case& damage :
       {Case{0, 0, "1"}, {37, 0, "1"}, {75, 0, "1"}, {76, 1, "6"}, {265, 1, "6"}}) {
    SCOPED_TRACE(damage.length);
    OrdersRun orders({{"V1", Document{}.bytes().substr(0, damage.length)}});
    EXPECT_EQ(orders.view.grdPO.Rows(), damage.rows);
    orders.expectFailure("81  Illegal Record Number for File: V1 and Record:  " + damage.record);
  }
}

}  // namespace
}  // namespace dg::test
