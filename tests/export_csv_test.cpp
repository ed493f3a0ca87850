#include <gtest/gtest.h>
#include <sstream>

#include "export/csv.h"

namespace dg {
namespace {

TEST(ExportCsvTest, CellsAreQuotedAndFormulasDisarmed) {
  const struct {
    const char* cell;
    const char* written;
  } kCases[] = {
      {"", ""},
      {"plain text", "plain text"},
      {"$1,234.50", "\"$1,234.50\""},
      {"5\" pipe", "\"5\"\" pipe\""},
      {" leading blank", "\" leading blank\""},
      {"two\r\nlines", "two  lines"},
      {"K\xFChn", "K\xC3\xBChn"},
      {"\x1B[31mred", "\" [31mred\""},
      {"a\x9D"
       "0;title",
       "a 0;title"},
      // A number keeps its sign; a text that begins like a formula is made one for good.
      {"-12.5", "-12.5"},
      {"-$5.00", "-$5.00"},
      {"-02.88%", "-02.88%"},
      {"+7", "+7"},
      {"-", "'-"},
      {"-12.5-", "'-12.5-"},
      {"=1+1", "'=1+1"},
      {"=HYPERLINK(\"x\",\"y\")", "\"'=HYPERLINK(\"\"x\"\",\"\"y\"\")\""},
      {"+cmd|' /C calc'!A0", "'+cmd|' /C calc'!A0"},
      {"@SUM(A1)", "'@SUM(A1)"},
      {"\t=1+1", "' =1+1"},
      {"\r=1", "' =1"},
      {"  =1", "'  =1"},
      {" -5", "\" -5\""},
  };
  for (const auto& each : kCases)
    EXPECT_EQ(csvCell(each.cell), each.written) << each.cell;
}

TEST(ExportCsvTest, CaptionsComeFirstAndHiddenColumnsNever) {
  constexpr ColumnSpec kColumns[] = {
      {.name = "PO Number"},
      {.name = "ndate", .kind = ColumnKind::kNumber, .hidden = true},
      {.name = "Merchandise", .caption = "Investment, \"net\"", .kind = ColumnKind::kMoney},
  };
  Grid grid("grdPO", kColumns);
  grid.AddNew();
  grid.set("PO Number", std::string("=V1"));
  grid.set("ndate", 21361);
  grid.set("Merchandise", std::string("$.00"));
  grid.AddNew();
  std::ostringstream out;
  writeCsv(out, grid);
  EXPECT_EQ(out.str(), "PO Number,\"Investment, \"\"net\"\"\"\r\n'=V1,$.00\r\n,\r\n");
}

}  // namespace
}  // namespace dg
