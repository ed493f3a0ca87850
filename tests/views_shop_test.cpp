#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

#include "engine/state.h"
#include "records/open/shop_jobs.h"
#include "shell/main_window.h"
#include "shell/sort_grid.h"
#include "shell/splash.h"
#include "tests/support/paged_records.h"
#include "tests/support/people.h"
#include "tests/support/view_run.h"
#include "views/operational/shop.h"
#include "views/operational/shop_job_window.h"

namespace dg::test {
namespace {

constexpr int kBlock = 512;
constexpr int kStatusNames = 450;
constexpr int kCallResults = 446;
constexpr int kOptions = 401;

/// A job's header: its number, status and sub-total in hundredths.
RecordWriter jobHeader(int job, std::string_view status, int subTotal = 0) {
  RecordWriter record(kPageLength);
  record.integer(1, 'J', 80).raw(99, 1, status).integer(101, 'C', job).integer(125, 'L', subTotal);
  return record;
}

class ShopTest : public testing::Test {
 protected:
  /// Adds a job's record without entering it in the table.
  std::int32_t addRecord(const RecordWriter& header, const PageFields& fields = {}) {
    return run.builder.records("INVOL").add(pageRecord(fields, header.bytes()));
  }
  /// Adds a job in its own slot.
  void addJob(int job, const RecordWriter& header, const PageFields& fields = {}) {
    run.builder.controlFile().setJob(job, addRecord(header, fields));
  }

  ViewRun run;
};

TEST_F(ShopTest, JobsStandInTheOrderOfTheTable) {
  for (const int job : {1000, 10'086, 999, 128, 5, 1127})
    addJob(job, jobHeader(job, "O", 150));
  for (const int freed : {6, 1001})
    run.builder.controlFile().setJob(freed, freed == 6 ? -5 : 0);
  // Blocks beside the table's two ranges are no part of it.
  for (const int block : {449, 459, 500, 572}) {
    run.builder.controlFile().setBlock(block, RecordWriter(kBlock).integer(1, 'L', 1).bytes());
  }
  const frmShop& view = run.load<frmShop>();
  EXPECT_THAT(column(view.grdShop, "Job #"),
              ElementsAre("5", "128", "999", "1000", "1127", "10086"));
  EXPECT_EQ(run.recap(3), "$9.00");
  EXPECT_EQ(view.grdShop.Bookmark(), 0);
  EXPECT_EQ(splash().lblProgress.caption(), "Loading Open Shop Jobs...");
  EXPECT_THAT(run.logged, IsEmpty());
}

TEST_F(ShopTest, ARowShowsTheJob) {
  addCustomer(run.builder, 777'001, "NORTH-EAST FARMS");
  RecordWriter header = jobHeader(12, "C", 1'234'567);
  header.integer(3, 'L', 777'001)
      .packed(27, 10, "BRAND/X")
      .integer(75, 'L', 60'001)
      .date(93, 'J', *Date::fromCalendar(2026, 11, 3))
      .date(95, 'J', *Date::fromCalendar(2026, 10, 30))
      .integer(113, 'B', 255)
      .raw(119, 1, "Y");
  addJob(12, header, {.request = 4});
  RecordWriter bare = jobHeader(13, "O", -550);
  bare.date(93, 'J', *Date::fromCalendar(2026, 11, 3)).integer(3, 'L', 1).raw(119, 1, "y");
  addJob(13, bare);

  const frmShop& view = run.load<frmShop>();
  // The list reads a name with a slash where its own record has a dash.
  EXPECT_THAT(view.grdShop.rows(),
              ElementsAre(ElementsAre("12", "Complete", "60001", "5", "777001", "NORTH/EAST FARMS",
                                      "255", "10/30/26", "11/3/26", "$12,345.67", "Y", "BRAND/X",
                                      "21488", "21492"),
                          // Not completed, whatever its record says, and of no known customer.
                          ElementsAre("13", "Open", "0", "", "1", "", "0", "1/1/68", "", "-$5.50",
                                      "", "", "0", "0")));
  EXPECT_EQ(run.recap(3), "$12,340.17");
}

TEST_F(ShopTest, TheStatusByteIsShownInWords) {
  RecordWriter names(kBlock);
  for (int status = 1; status <= 5; ++status)
    names.raw(432 + (status - 1) * 15, 15,
              status == 3 ? "" : "NAME OF STATE " + std::to_string(status));
  run.builder.controlFile().setBlock(kStatusNames, names.bytes());
  int job = 0;
  for (const char* status : {"1", "2", "3", "5", "0", "6", "O", "o", "S", "C", " ", ""}) {
    ++job;
    RecordWriter header = jobHeader(job, status);
    if (*status == '\0') header.integer(99, 'B', 0);
    addJob(job, header);
  }
  const frmShop& view = run.load<frmShop>();
  EXPECT_THAT(column(view.grdShop, "Status"),
              ElementsAre("Open-NAME OF STATE 1", "Open-NAME OF STATE 2", "Open-",
                          "Open-NAME OF STATE 5", "No status", "No status", "Open", "No status",
                          "Scratch", "Complete", "No status", "No status"));
}

TEST_F(ShopTest, BilledJobsArePassedOver) {
  addJob(1, jobHeader(1, "B", 100'000));
  addJob(2, jobHeader(2, "S", 25));
  addJob(3, jobHeader(3, "B", 100'000));
  const frmShop& view = run.load<frmShop>();
  EXPECT_THAT(column(view.grdShop, "Job #"), ElementsAre("2"));
  EXPECT_EQ(run.recap(3), "$.25");
}

TEST_F(ShopTest, AFailureKeepsTheRowsSoFar) {
  addJob(1, jobHeader(1, "O", 100));
  run.builder.controlFile().setJob(2, 4711);
  addJob(3, jobHeader(3, "O", 100));
  const frmShop& view = run.load<frmShop>();
  EXPECT_THAT(column(view.grdShop, "Job #"), ElementsAre("1"));
  EXPECT_EQ(run.recap(3), "! Data Error !");
  EXPECT_THAT(run.logged,
              ElementsAre("*Error in frmShop GetShopData routine error # :  81  Illegal Record "
                          "Number for File: INVOL and Record:  4711"));
  EXPECT_THAT(run.messages, IsEmpty());
}

TEST_F(ShopTest, AMissingControlFileIsAFailure) {
  run.missing = {"FILE0"};
  run.load<frmShop>();
  EXPECT_EQ(run.recap(3), "! Data Error !");
  ASSERT_FALSE(run.logged.empty());
  EXPECT_TRUE(run.logged.back().starts_with("*Error in frmShop GetShopData routine error # :  "));
}

TEST_F(ShopTest, DecidesWhetherWarrantiesGoBySegments) {
  for (const bool segments : {true, false}) {
    ViewRun other;
    RecordWriter options(kBlock, 'N');
    options.raw(317, 1, segments ? "Y" : "N").raw(320, 1, segments ? "N" : "Y");
    other.builder.controlFile().setBlock(kOptions, options.bytes());
    WarrantySegments = !segments;
    other.load<frmShop>();
    EXPECT_EQ(WarrantySegments, segments);
  }
  WarrantySegments = false;
}

TEST_F(ShopTest, HeadsSortByTheColumnToTheirLeftFromRequestOn) {
  const struct {
    int job, account, counterman;
    const char* status;
    int request;
    const char* brand;
    int subTotal;
    const char* warranty;
  } jobs[] = {{1, 300, 9, "S", 1, "C", 300, "Y"},
              {2, 20, 10, "C", 3, "B", 200, ""},
              {3, 100, 8, "O", 2, "A", 1'000, "Y"}};
  for (const auto& job : jobs) {
    RecordWriter header = jobHeader(job.job, job.status, job.subTotal);
    header.integer(3, 'L', job.account)
        .packed(27, 10, job.brand)
        .integer(75, 'L', 50 - job.job)
        .integer(113, 'B', job.counterman)
        .date(95, 'J', Date(46'300 + job.counterman))
        .raw(119, 1, job.warranty);
    addJob(job.job, header, {.request = job.request});
    addCustomer(run.builder, job.account, job.brand);
  }
  frmShop& view = run.load<frmShop>();
  const auto sorted = [&view](int head) { return sortedBy(view.grdShop, head, "Job #"); };
  EXPECT_THAT(sorted(1), ElementsAre("2", "3", "1")) << "Complete, Open, Scratch";
  EXPECT_THAT(sorted(2), ElementsAre("3", "2", "1")) << "Shop Ref #";
  EXPECT_THAT(sorted(3), ElementsAre("2", "3", "1")) << "Request sorts by Cust #";
  EXPECT_THAT(sorted(4), ElementsAre("3", "2", "1")) << "Cust # sorts by Name";
  EXPECT_THAT(sorted(5), ElementsAre("3", "1", "2")) << "Name sorts by CM, as numbers";
  EXPECT_THAT(sorted(0), ElementsAre("1", "2", "3"));
  EXPECT_THAT(sorted(6), ElementsAre("3", "1", "2")) << "CM sorts by the day in";
  EXPECT_THAT(sorted(8), ElementsAre("2", "1", "3")) << "Date Comp sorts by Sub-Total";
  EXPECT_THAT(sorted(9), ElementsAre("2", "1", "3")) << "Sub-Total sorts by Warranty";
  EXPECT_THAT(sorted(10), ElementsAre("3", "2", "1")) << "Warranty sorts by Brand";
  EXPECT_THAT(sorted(11), ElementsAre("3", "2", "1")) << "Brand has no sort";
  EXPECT_EQ(gSortDirection, 0) << "and yet turns the direction";
  EXPECT_THAT(run.messages, IsEmpty());
}

TEST_F(ShopTest, TheDetailShowsCustomerEquipmentAndPeople) {
  RecordWriter customer = customerRecord(501, "SMITH-JONES ADA");
  customer.packed(26, 20, "1 MILL RD", " ,-.")
      .packed(46, 20, "SUITE 3", " ,-.")
      .packed(66, 20, "DUNMERE OH 43210", " ,-.")
      .integer(86, 'C', 614)
      .integer(88, 'L', 5'550'123)
      .integer(201, 'L', 5'550'199)
      .integer(285, 'C', 740)
      .packed(205, 12, "ADA")
      .packed(217, 12, "OFFICE")
      .integer(287, 'C', 1'000)
      .integer(289, 'L', 10'000'000);
  addCustomer(run.builder, 501, customer);
  addCounterman(run.builder, 7, "QUILLER BRAM");
  RecordWriter header = jobHeader(1000, "O");
  header.integer(3, 'L', 501)
      .integer(14, 'D', 123'456)
      .packed(27, 10, "BRAND")
      .packed(37, 14, "ROTARY MOWER")
      .packed(51, 12, "SN 1")
      .packed(63, 12, "SN 2")
      .integer(79, 'B', 7)
      .integer(113, 'B', 8)
      .integer(117, 'C', 65'535)
      .raw(119, 1, "Y");
  addJob(1000, header);

  const ShownWindow window = run.click(run.load<frmShop>().grdShop);
  EXPECT_EQ(window.name, "frmShopDetail");
  EXPECT_EQ(window.caption, "Shop Job Detail ...   Shop Job : 1000     Job Status : Open");
  const auto label = [&window](const std::string& name) { return window.labels.at(name); };
  EXPECT_EQ(label("lblCDisp(0)"), "501");
  EXPECT_EQ(label("lblCDisp(1)"), "SMITH-JONES ADA");
  EXPECT_EQ(label("lblCDisp(2)"), "1 MILL RD");
  EXPECT_EQ(label("lblCDisp(3)"), "SUITE 3");
  EXPECT_EQ(label("lblCDisp(4)"), "614-555-0123");
  EXPECT_EQ(label("lblCDisp(5)"), "740-555-0199");
  EXPECT_EQ(label("lblCDisp(6)"), "--") << "neither can be a number";
  EXPECT_EQ(label("lblCDisp(7)"), "ADA");
  EXPECT_EQ(label("lblCDisp(8)"), "OFFICE");
  EXPECT_EQ(label("lblMan(0)"), "7 - QUILLER BRAM");
  EXPECT_EQ(label("lblMan(1)"), "") << "nobody has number 8";
  EXPECT_EQ(label("lblEquip(0)"), "BRAND");
  EXPECT_EQ(label("lblEquip(1)"), "ROTARY MOWER");
  EXPECT_EQ(label("lblEquip(2)"), "SN 1");
  EXPECT_EQ(label("lblEquip(3)"), "SN 2");
  EXPECT_EQ(label("lblEquip(4)"), "12345.6");
  EXPECT_EQ(label("lblWarr(0)"), "Yes");
  EXPECT_EQ(label("lblWarr(1)"), "65535");
  EXPECT_FALSE(window.visible.at("lblRequest"));
  EXPECT_FALSE(window.visible.at("cmbRequest"));
  EXPECT_FALSE(window.visible.at("Frame5"));
  EXPECT_THAT(run.logged, IsEmpty());
}

TEST_F(ShopTest, AnUnknownCustomerLeavesAnEmptyOne) {
  RecordWriter header = jobHeader(9, "C");
  header.integer(3, 'L', 501).integer(117, 'C', 12).raw(119, 1, "N");
  addJob(9, header);
  addCustomer(run.builder, 502, "SOMEBODY ELSE");
  const ShownWindow window = run.click(run.load<frmShop>().grdShop);
  EXPECT_EQ(window.caption, "Shop Job Detail ...   Shop Job : 9     Job Status : Completed");
  EXPECT_EQ(window.labels.at("lblCDisp(0)"), "0");
  EXPECT_EQ(window.labels.at("lblCDisp(1)"), "");
  EXPECT_EQ(window.labels.at("lblWarr(0)"), "No");
  EXPECT_EQ(window.labels.at("lblWarr(1)"), "");
}

TEST_F(ShopTest, CallsThatWereNotMadeAreBlank) {
  RecordWriter results(kBlock);
  results.raw(1, 12, "No answer").raw(13, 12, "Left messageX").raw(25, 12, "Will call");
  run.builder.controlFile().setBlock(kCallResults, results.bytes());
  RecordWriter header = jobHeader(9, "O");
  header.integer(21, 'C', 0)
      .integer(23, 'C', 40'699)
      .date(25, 'J', *Date::fromCalendar(2026, 11, 2))
      .integer(120, 'B', 2)
      .integer(121, 'B', 0)
      .integer(122, 'B', 255);
  addJob(9, header);
  const ShownWindow window = run.click(run.load<frmShop>().grdShop);
  Cells calls;
  for (int i = 0; i < 6; ++i)
    calls.push_back(window.labels.at(elementName("lblCallDate", i)));
  EXPECT_THAT(calls, ElementsAre("", "", "11/2/26", "Left message", "", ""));
  EXPECT_THAT(run.messages, IsEmpty());
}

TEST_F(ShopTest, OnlyACompleteJobShowsItsTotals) {
  const Cells lines = {pricedLine("AB", "1", 20, 12'345), pricedLine("500", "", 15, 6'000),
                       pricedLine("502", "", 10, 700), pricedLine("550", "", 10, -80)};
  addJob(1, jobHeader(1, "C"), {.lines = lines});
  addJob(2, jobHeader(2, "O"), {.lines = lines});
  frmShop& view = run.load<frmShop>();
  const ShownWindow complete = run.click(view.grdShop, 0);
  EXPECT_TRUE(complete.visible.at("Frame5"));
  Cells totals;
  for (int i = 0; i < 5; ++i)
    totals.push_back(complete.labels.at(elementName("lblRecap", i)));
  EXPECT_THAT(totals, ElementsAre("246.90", "60.00", "0.00", "-0.80", "7.00"));
  const ShownWindow open2 = run.click(view.grdShop, 1);
  EXPECT_FALSE(open2.visible.at("Frame5"));
  EXPECT_EQ(open2.labels.at("lblRecap(0)"), "");
}

TEST_F(ShopTest, LinesStandWithTheirRequests) {
  addJob(
      1, jobHeader(1, "O"),
      {.lines = {remarkLine("CUSTOMER WAITING"),
                 pricedLine("AB", "12345", 35, 10'050, 5, "BELT", "3"), remarkLine("AND MORE")}});
  const ShownWindow window = run.click(run.load<frmShop>().grdShop);
  EXPECT_THAT(
      window.grids.at("grdShopDetail"),
      ElementsAre(ElementsAre("1", "REM", "CUSTOMER WAITING", "", "", ".00", ".00", ""),
                  ElementsAre("1", "AB", "12-345             3", "BELT", "3", "100.50", ".05", ""),
                  ElementsAre("1", "REM", "AND MORE", "BELT", "3", "100.50", ".05", "")));
  EXPECT_THAT(window.combos.at("cmbRequest"),
              ElementsAre("All Requests", "  1 - CUSTOMER WAITING"));
}

class RequestTest : public ShopTest {
 protected:
  /// A job whose requests are those of its pages, page 1 first.
  void addPages(const std::vector<int>& requests) {
    const int last = static_cast<int>(requests.size());
    for (int page = 1; page <= last; ++page) {
      const int request = requests[static_cast<std::size_t>(page) - 1];
      const std::string text = "P" + std::to_string(page);
      const PageFields fields = {.page = page,
                                 .link = page - 1,
                                 .request = request,
                                 .lines = {pricedLine("AB", text, 10, 1)}};
      if (page < last) {
        addRecord(RecordWriter(kPageLength), fields);
      } else {
        addJob(1, jobHeader(1, "O"), fields);
      }
    }
  }
  /// The parts listed after the user picks an entry of the list, for each of `picks`.
  std::vector<Cells> pick(const std::vector<std::size_t>& picks) {
    std::vector<Cells> lists;
    run.onModal = [&](Form& form) {
      auto& detail = dynamic_cast<frmShopDetail&>(form);
      for (const std::size_t index : picks) {
        detail.cmbRequest.select(index);
        lists.push_back(column(detail.grdShopDetail, "Part #"));
        EXPECT_EQ(detail.grdShopDetail.Bookmark(), lists.back().empty() ? -1 : 0);
      }
    };
    run.click(run.load<frmShop>().grdShop);
    return lists;
  }
};

TEST_F(RequestTest, TheListHasAnEntryForEachChangeOfRequest) {
  addPages({0, 0, 1, 0, 4});
  const std::vector<Cells> lists = pick({1, 2, 3, 4, 0});
  EXPECT_TRUE(run.windows.front().visible.at("cmbRequest"));
  EXPECT_TRUE(run.windows.front().visible.at("lblRequest"));
  EXPECT_THAT(run.windows.front().combos.at("cmbRequest"),
              ElementsAre("All Requests", "  1 - P1", "  2 - P3", "  1 - P4", "  5 - P5"));
  EXPECT_THAT(lists, ElementsAre(ElementsAre("P1", "P2", "P4"), ElementsAre("P3"),
                                 ElementsAre("P1", "P2", "P4"), ElementsAre("P5"),
                                 ElementsAre("P1", "P2", "P3", "P4", "P5")));
}

TEST_F(RequestTest, ASecondRequestIsEnoughForTheList) {
  addPages({0, 1});
  EXPECT_THAT(pick({2}), ElementsAre(ElementsAre("P2")));
  EXPECT_TRUE(run.windows.front().visible.at("cmbRequest"));
  EXPECT_TRUE(run.windows.front().visible.at("lblRequest"));
}

TEST_F(RequestTest, OnlyTheFirstDigitOfARequestIsRead) {
  addPages({0, 1, 9, 24, 89});
  const std::vector<Cells> lists = pick({3, 4, 5});
  EXPECT_THAT(
      run.windows.front().combos.at("cmbRequest"),
      ElementsAre("All Requests", "  1 - P1", "  2 - P2", "  10 - P3", "  25 - P4", "  90 - P5"));
  EXPECT_THAT(lists, ElementsAre(ElementsAre("P1"), ElementsAre("P2"), IsEmpty()))
      << "10 is read as 1, 25 as 2, 90 as 9";
}

TEST_F(ShopTest, TheDetailIsFoundThroughTheJobsOwnSlot) {
  // Job 1000 has slot 104 of block 501, and job 1127 has slot 103 of block 502.
  const std::int32_t other =
      addRecord(jobHeader(4242, "O"), {.lines = {pricedLine("AB", "OTHER", 10, 1)}});
  const auto slot = [&](int block, int index) {
    run.builder.controlFile().setBlock(
        block, RecordWriter(kBlock).integer(1 + 4 * index, 'L', other).bytes());
  };
  slot(501, 104);
  slot(502, 103);
  run.builder.controlFile().setJob(3, addRecord(jobHeader(1000, "O")));
  frmShop& view = run.load<frmShop>();
  EXPECT_THAT(column(view.grdShop, "Job #"), ElementsAre("1000", "4242", "4242"));
  EXPECT_EQ(run.click(view.grdShop, 0).grids.at("grdShopDetail").at(0).at(2), "OTHER")
      << "the row's own record stands in another job's slot";
  EXPECT_EQ(GetJob(1000), other);
  EXPECT_EQ(GetJob(1126), 0);
  EXPECT_EQ(GetJob(1127), other);
  EXPECT_EQ(GetJob(3), 2);
}

TEST_F(ShopTest, AJobThatIsNotInItsSlotOpensNoWindow) {
  run.builder.controlFile().setJob(3, addRecord(jobHeader(77, "O")));
  frmShop& view = run.load<frmShop>();
  view.grdShop.rowClick(0);
  EXPECT_THAT(run.windows, IsEmpty());
  ASSERT_THAT(run.messages, SizeIs(1));
  EXPECT_THAT(run.messages[0].text, testing::StartsWith("Run-time error '81':"));
  EXPECT_THAT(run.messages[0].text,
              testing::EndsWith("Illegal Record Number for File: INVOL and Record:  0"));
}

TEST_F(ShopTest, ABrokenChainStillOpensTheWindow) {
  addJob(1, jobHeader(1, "O"), {.page = 3, .link = 2, .lines = {pricedLine("AB", "THIRD", 10, 1)}});
  addRecord(RecordWriter(kPageLength), {.page = 1, .lines = {pricedLine("AB", "FIRST", 10, 1)}});
  const ShownWindow window = run.click(run.load<frmShop>().grdShop);
  EXPECT_THAT(window.grids.at("grdShopDetail"), SizeIs(1));
  EXPECT_THAT(run.logged, SizeIs(1));
  EXPECT_THAT(run.messages, IsEmpty());
}

}  // namespace
}  // namespace dg::test
