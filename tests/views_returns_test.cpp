#include <string>
#include <vector>

#include "tests/support/vendor_documents.h"
#include "tests/support/view_run.h"
#include "tools/sample/families/part_key.h"
#include "views/financial/returns.h"

namespace dg::test {
namespace {

using sample::partKey;

class Returns : public ViewTest {
 protected:
  Returns() { addVendor(run.builder, 7, "ELVERTON MARINA"); }

  void add(const Document& document, std::int32_t status = 20) {
    run.builder.index("RTTBI").add(documentKey(document.name, status), 1);
    run.builder.addFile(document.name, document.bytes());
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
  run.builder.index("RTTBI").add(documentKey("R8", 20), 1);
  auto& view = run.load<frmReturn>();
  EXPECT_EQ(view.grdReturn.rows(),
            (std::vector<Cells>{{"R1", "7", "ELVERTON MARINA", "11/24/26", "$123.45", ""},
                                {"R7", "8", "Vendor not found", "2/3/26", "-$.05", ""}}));
  EXPECT_EQ(run.recap(5), "$123.40");
  EXPECT_EQ(view.lblRetTotal.caption(), "$123.40");
}

TEST_F(Returns, VendorsAndDatesThatAnOrderWouldNotTakeAreShown) {
  add({.name = "R1", .vendor = 0, .date = 0, .total = 100});
  add({.name = "R2", .vendor = 65'535, .date = 139999, .total = 100});
  auto& view = run.load<frmReturn>();
  EXPECT_EQ(column(view.grdReturn, "Vendor #"), (Cells{"0", "65535"}));
  EXPECT_EQ(column(view.grdReturn, "Date"), (Cells{"1/1/68", "1/1/68"}));
  EXPECT_EQ(run.recap(5), "$2.00");
}

TEST_F(Returns, AFailureKeepsTheRowsAndMarksTheRecap) {
  add({.name = "R1", .total = 100});
  run.builder.index("RTTBI").add(documentKey("R2", 20), 1);
  run.builder.addFile("R2", Document{.name = "R2"}.bytes().substr(0, 228));
  auto& view = run.load<frmReturn>();
  EXPECT_EQ(view.grdReturn.rows().back(),
            (Cells{"R2", "7", "ELVERTON MARINA", "11/24/26", "", ""}));
  EXPECT_EQ(view.lblRetTotal.caption(), "");
  run.expectFailure(
      5,
      "*Error in frmReturn GetReturn routine error # :  81  Illegal Record Number for "
      "File: R2 and Record:  6");
}

TEST_F(Returns, AnErrorInTheDetailGoesToTheUser) {
  run.builder.index("PARTI").add(partKey("K7", "BAD"), 500);
  add({.name = "R1", .lines = {documentLine(4, partKey("K7", "BAD"), 1, 1)}});
  auto& view = run.load<frmReturn>();
  view.grdReturn.rowClick(0);
  ASSERT_EQ(run.messages.size(), 1U);
  EXPECT_EQ(run.messages[0].text,
            "Run-time error '81':\n\nIllegal Record Number for File: PARTL and Record:  500");
  EXPECT_TRUE(run.shown.empty());
}

}  // namespace
}  // namespace dg::test
