#include <string>
#include <vector>

#include "tests/support/vendor_documents.h"
#include "tests/support/view_test.h"
#include "tools/sample/families/part_key.h"
#include "views/financial/purchase_order_detail.h"
#include "views/financial/returns.h"

namespace dg::test {
namespace {

using sample::partKey;

class Returns : public ViewTest {
 protected:
  Returns() { addVendor(run_.builder, 7, "ELVERTON MARINA"); }

  void add(const Document& document, std::int32_t status = 20) {
    run_.builder.index("RTTBI").add(documentKey(document.name, status), 1);
    run_.builder.addFile(document.name, document.bytes());
  }
};

TEST_F(Returns, OnlyStatusTwentyOfAnRIsPending) {
  add({.name = "R1", .total = 12'345});
  add({.name = "R2", .total = 1}, 2);
  add({.name = "R3", .total = 1}, 200);
  add({.name = "R4", .total = 1}, 21);
  add({.name = "R5", .total = 1}, 6);
  add({.name = "V6", .total = 1});
  add({.name = "R7", .vendor = 8, .date = 20326, .total = -5});
  run_.builder.index("RTTBI").add(documentKey("R8", 20), 1);
  const auto view = load<frmReturn>();
  EXPECT_EQ(view->grdReturn.rows(),
            (std::vector<Cells>{{"R1", "7", "ELVERTON MARINA", "11/24/26", "$123.45", ""},
                                {"R7", "8", "Vendor not found", "2/3/26", "-$.05", ""}}));
  EXPECT_EQ(recap(5), "$123.40");
  EXPECT_EQ(view->lblRetTotal.caption(), "$123.40");
}

TEST_F(Returns, VendorsAndDatesThatAnOrderWouldNotTakeAreShown) {
  add({.name = "R1", .vendor = 0, .date = 0, .total = 100});
  add({.name = "R2", .vendor = 65'535, .date = 139999, .total = 100});
  const auto view = load<frmReturn>();
  EXPECT_EQ(column(view->grdReturn, "Vendor #"), (Cells{"0", "65535"}));
  EXPECT_EQ(column(view->grdReturn, "Date"), (Cells{"1/1/68", "1/1/68"}));
  EXPECT_EQ(recap(5), "$2.00");
}

TEST_F(Returns, AFailureKeepsTheRowsAndMarksTheRecap) {
  add({.name = "R1", .total = 100});
  run_.builder.index("RTTBI").add(documentKey("R2", 20), 1);
  run_.builder.addFile("R2", Document{.name = "R2"}.bytes().substr(0, 228));
  const auto view = load<frmReturn>();
  EXPECT_EQ(view->grdReturn.rows().back(),
            (Cells{"R2", "7", "ELVERTON MARINA", "11/24/26", "", ""}));
  EXPECT_EQ(view->lblRetTotal.caption(), "");
  expectFailure(5,
                "*Error in frmReturn GetReturn routine error # :  81  Illegal Record Number for "
                "File: R2 and Record:  6");
}

TEST_F(Returns, TheDetailIsThatOfAReturn) {
  add({.name = "R1",
       .dropShip = 12,
       .total = 100,
       .comments = {"BROKEN"},
       .lines = {documentLine(4, partKey("K7", "9"), 2, 150)}});
  add({.name = "R2", .number = "GONE"});
  const auto view = load<frmReturn>();
  run_.onModal = [](Form& form) {
    const auto& window = dynamic_cast<frmPODetail&>(form);
    EXPECT_EQ(window.caption(), "Return Order Detail      Return # : R1");
    EXPECT_EQ(window.Frame3.caption(), "Return Comments");
    EXPECT_EQ(window.lblComments.caption(), "BROKEN\n\n\n\n");
    EXPECT_EQ(window.lblDetail[0]->caption(), "ELVERTON MARINA");
    EXPECT_EQ(window.lblDetail[4]->caption(), "12");
    EXPECT_EQ(window.grdPod.rows().front()[5], "3.00");
  };
  view->grdReturn.rowClick(0);
  EXPECT_EQ(run_.shown, Cells{"modal frmPODetail"});
  view->grdReturn.rowClick(1);
  EXPECT_EQ(run_.shown.size(), 1U) << "no file of that name, no window";
  EXPECT_TRUE(run_.messages.empty());
}

TEST_F(Returns, AnErrorInTheDetailGoesToTheUser) {
  run_.builder.index("PARTI").add(partKey("K7", "BAD"), 500);
  add({.name = "R1", .lines = {documentLine(4, partKey("K7", "BAD"), 1, 1)}});
  const auto view = load<frmReturn>();
  view->grdReturn.rowClick(0);
  ASSERT_EQ(run_.messages.size(), 1U);
  EXPECT_EQ(run_.messages[0].text,
            "Run-time error '81':\n\nIllegal Record Number for File: PARTL and Record:  500");
  EXPECT_TRUE(run_.shown.empty());
}

TEST_F(Returns, ADateHeadMeetsCellsThatAreNoNumbers) {
  add({.name = "R1", .vendor = 30, .date = 10226, .total = 50'000});
  const auto single = load<frmReturn>();
  single->grdReturn.headClick(3);
  EXPECT_TRUE(run_.messages.empty()) << "one row is compared with nothing";
}

TEST_F(Returns, HeadsSortByCaptionAndTheDateFails) {
  addVendor(run_.builder, 30, "ALPHA");
  add({.name = "R1", .vendor = 30, .date = 10226, .total = 50'000});
  add({.name = "R2", .vendor = 7, .date = 123125, .total = 90'000});
  const auto view = load<frmReturn>();
  expectHeadSorts(view->grdReturn, 0, "Return Number", true);
  expectHeadSorts(view->grdReturn, 1, "Vendor #");
  expectHeadSorts(view->grdReturn, 2, "Vendor Name", true);
  expectHeadSorts(view->grdReturn, 4, "Total");
  const std::vector<Grid::Row> before = view->grdReturn.rows();
  ASSERT_TRUE(run_.messages.empty());
  run_.pointers.clear();
  view->grdReturn.headClick(3);
  ASSERT_EQ(run_.messages.size(), 1U);
  EXPECT_EQ(run_.messages[0].text, "Run-time error '13':\n\nType mismatch");
  EXPECT_EQ(view->grdReturn.rows(), before);
  EXPECT_TRUE(view->grdReturn.Redraw());
  EXPECT_EQ(run_.pointers, (std::vector<int>{kHourglass, kDefaultPointer}));
}

}  // namespace
}  // namespace dg::test
