#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "export/number_look.h"
#include "export/sheet_name.h"
#include "shell/recap_sheet.h"
#include "tests/support/dgtool_run.h"
#include "tests/support/zip_reader.h"

namespace dg {
namespace {

TEST(DgtoolXlsxTest, SheetNamesAreLegalAndUnlikeEachOther) {
  std::vector<std::string> taken;
  EXPECT_EQ(sheetName("Sales / Cash [all]", taken), "Sales - Cash -all-");
  EXPECT_EQ(sheetName("SALES / cash [all]", taken), "SALES - cash -all- (2)");
  EXPECT_EQ(sheetName("'quoted'", taken), "quoted");
  EXPECT_EQ(sheetName("", taken), " Sheet");
  EXPECT_EQ(sheetName("History", taken), "History Sheet");
  const std::string longName(40, 'x');
  EXPECT_EQ(sheetName(longName, taken), std::string(31, 'x'));
  EXPECT_EQ(sheetName(longName, taken), std::string(27, 'x') + " (2)");
}

TEST(DgtoolXlsxTest, NumberFormatsImitateWhatIsShown) {
  const struct {
    std::vector<std::string> cells;
    const char* format;
  } kCases[] = {
      {{"12", "7"}, "0"},
      {{"46.91", ".5", "100.00"}, "0.00"},
      {{"13,445.18", "-1.00"}, "#,##0.00"},
      {{"$1,234.50", "($3.00)"}, "$#,##0.00_);($#,##0.00)"},
      {{"$.00", "-$3.00"}, "$#,##0.00;-$#,##0.00"},
      {{"-61.2%", "5.8%"}, "0.0%"},
      {{}, "0"},
  };
  for (const auto& each : kCases) {
    NumberLook look;
    for (const std::string& cell : each.cells)
      look.add(cell);
    EXPECT_EQ(look.format(), each.format);
  }
  EXPECT_EQ(shownNumber("($1,234.50)"), -1234.5);
  EXPECT_EQ(shownNumber("0"), 0);
  EXPECT_EQ(shownNumber("007"), std::nullopt) << "an identifier keeps its zeros";
  EXPECT_EQ(shownNumber(""), std::nullopt);
}

constexpr ColumnSpec kColumns[] = {
    {.name = "Name"},
    {.name = "ndate", .hidden = true},
    {.name = "Amount", .kind = ColumnKind::kMoney, .mask = kCurrencyStyle, .group = "Totals"},
    {.name = "Rate", .kind = ColumnKind::kPercent},
    {.name = "Date", .kind = ColumnKind::kDate},
};

TEST(DgtoolXlsxTest, AWorkbookHasASheetForEachGridWithRealNumbers) {
  DgtoolRun tool;
  tool.addView("frmPo", [](TestView& view) {
    for (const char* heading : {"Orders", "Orders"}) {
      Grid& grid = view.put<Grid>("grdPO", kColumns, heading);
      grid.AddNew();
      grid.set("Name", std::string("=1+1 \x1B\xE4<&>"));
      grid.set("ndate", std::string("secret"));
      grid.set("Amount", Currency::fromDouble(-1234.5));
      grid.set("Rate", std::string("-02.88%"));
      grid.set("Date", std::string("11/24/26"));
    }
    view.onLoad = [&view] {
      writeRecap(Figure::kPurchaseOrders, "$7.25");
      view.markIncomplete();
    };
  });
  const std::string file = tool.store.folder.file("book.xlsx");
  tool.store.folder.write("book.xlsx", "the former one");
  ASSERT_EQ(tool.run({"report", "--xlsx", file}), 1) << "the view is not whole: " << tool.err;
  EXPECT_EQ(tool.out, "");

  const std::string book = tool.store.folder.read("book.xlsx");
  const std::string sheets = zipMember(book, "xl/workbook.xml");
  EXPECT_NE(sheets.find(R"(sheet name="System Recap")"), std::string::npos) << sheets;
  EXPECT_NE(sheets.find(R"(sheet name="Orders")"), std::string::npos);
  EXPECT_NE(sheets.find("name=\"Orders (2)\""), std::string::npos);

  const std::string recap = zipMember(book, "xl/worksheets/sheet1.xml");
  EXPECT_NE(recap.find("<v>7.25</v>"), std::string::npos) << recap;

  const std::string sheet = zipMember(book, "xl/worksheets/sheet2.xml");
  EXPECT_NE(sheet.find(R"(<pane ySplit="4" topLeftCell="A5")"), std::string::npos) << sheet;
  EXPECT_NE(sheet.find("<v>-1234.5</v>"), std::string::npos) << sheet;
  EXPECT_NE(sheet.find("<v>-0.0288</v>"), std::string::npos) << sheet;
  EXPECT_NE(sheet.find("<v>46350</v>"), std::string::npos) << sheet;
  EXPECT_NE(sheet.find(R"(<mergeCell ref="B3:D3"/>)"), std::string::npos) << sheet;
  EXPECT_EQ(sheet.find("<f>"), std::string::npos) << "a text is no formula";

  const std::string texts = zipMember(book, "xl/sharedStrings.xml");
  EXPECT_NE(texts.find("=1+1  \xC3\xA4&lt;&amp;&gt;"), std::string::npos) << texts;
  EXPECT_EQ(texts.find("secret"), std::string::npos);
  EXPECT_NE(texts.find("Could not be read completely: see the log."), std::string::npos);
  for (const auto& entry : std::filesystem::directory_iterator(tool.store.folder.path()))
    EXPECT_EQ(entry.path().string().find(".part"), std::string::npos);
}

TEST(DgtoolXlsxTest, AWorkbookThatCannotBeWrittenLeavesTheFormerOne) {
  DgtoolRun tool;
  std::filesystem::create_directory(tool.store.folder.file("book.xlsx"));
  EXPECT_EQ(tool.run({"report", "--xlsx", tool.store.folder.file("book.xlsx")}), 2);
  EXPECT_NE(tool.err.find("it is a folder"), std::string::npos) << tool.err;
}

}  // namespace
}  // namespace dg
