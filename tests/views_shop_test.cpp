#include <string>
#include <string_view>
#include <vector>

#include "engine/state.h"
#include "records/open/shop_jobs.h"
#include "shell/main_window.h"
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

class ShopTest : public ViewTest {
 protected:
  /// Adds a job's record without entering it in the table.
  std::int32_t addRecord(const RecordWriter& header, const PageFields& fields = {}) {
    return run.builder.records("INVOL").add(pageRecord(fields, header.bytes()));
  }
  /// Adds a job in its own slot.
  void addJob(int job, const RecordWriter& header, const PageFields& fields = {}) {
    run.builder.controlFile().setJob(job, addRecord(header, fields));
  }
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
