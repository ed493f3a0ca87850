// Product lines and parts: the classes that own their files.
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "engine/business_basic.h"
#include "engine/state.h"
#include "records/failure_log.h"
#include "records/lines.h"
#include "records/parts.h"
#include "tests/support/error_number.h"
#include "tests/support/line_records.h"
#include "tests/support/program_run.h"
#include "tests/support/raised.h"
#include "tools/sample/families/part_key.h"
#include "tools/sample/record_writer.h"

namespace dg::test {
namespace {

using sample::RecordWriter;
using Texts = std::vector<std::string>;

class StockRecords : public testing::Test {
 protected:
  void addCommodity(std::int32_t line, const std::string& code) {
    run_.builder.index("COMODI").add(RecordWriter(4).integer(1, 'C', line).raw(3, 1, code).bytes(),
                                     1);
  }
  Texts commodities(const RecordWriter& record) {
    clsLines line;
    line.Unpack(record.bytes());
    return line.Commodities;
  }

  ProgramRun run_;
};

TEST_F(StockRecords, ALinesCommoditiesBeginWithItsOwn) {
  for (const char* code : {"A", "C", "E"})
    addCommodity(5, code);
  addCommodity(6, "Z");
  run_.openEngine();
  EXPECT_EQ(commodities(lineRecord(5, "AA").raw(28, 1, "B")), (Texts{"B", "C", "E"}))
      << "those before the line's own are not met";
  EXPECT_EQ(commodities(lineRecord(5, "AA").raw(28, 1, "C")), (Texts{"C", "C", "E"}));
  EXPECT_EQ(commodities(lineRecord(6, "AA").raw(28, 1, " ")), (Texts{" ", "Z"}));
  EXPECT_EQ(commodities(lineRecord(4, "AA").raw(28, 1, "X")), Texts{"X"});
}

TEST_F(StockRecords, ACommodityIndexThatFailsIsReportedAndTheLineIsReadOn) {
  run_.missing = {"PARTLK"};
  run_.openEngine();
  Texts reports;
  setFailureLog({.failure =
                     [&](std::string_view phrase, const RunTimeError& error) {
                       reports.push_back(std::string(phrase) + std::to_string(error.number()));
                     },
                 .line = {}});
  clsLines line;
  line.Unpack(lineRecord(5, "AA").raw(28, 1, "Q").integer(75, 'L', 1'250).bytes());
  EXPECT_EQ(reports.size(), 1U);
  EXPECT_EQ(line.Commodities, Texts{"Q"});
  EXPECT_EQ(line.Cost_of_Mdse, Currency::fromScaled(1'250, 100));
}

TEST_F(StockRecords, ALineIsOfPartsUnlessItSaysUnitsOrRental) {
  run_.openEngine();
  std::string types;
  for (const char* letter : {"U", "R", "P", " ", "X", "u"}) {
    clsLines line;
    line.Unpack(lineRecord(5, "AA").raw(142, 1, letter).bytes());
    types += line.Line_Type;
  }
  EXPECT_EQ(types, "URPPPP");
}

TEST_F(StockRecords, ALineIsReadFromBothItsFiles) {
  const auto both = run_.builder.extended("LINEL", "ELINEL");
  RecordWriter record(both.recordLength());
  record.integer(1, 'J', 1).integer(3, 'C', 8).raw(124, 1, "Y");
  record.integer(219, 'L', 77).date(205, 'J', Date::fromText("3/4/26"));
  run_.builder.extended("LINEL", "ELINEL").add(lineRecord(7, "AA").bytes());
  run_.builder.extended("LINEL", "ELINEL").add(record.bytes());
  run_.openEngine();
  clsLines line;
  bool lock = false;
  line.Read(2, lock);
  EXPECT_EQ(line.Line, 8);
  EXPECT_EQ(line.ReCalculateMax, 1) << "the flag of a record class is 1, never -1";
  EXPECT_EQ(line.EOY_Freight_Cost, 77);
  EXPECT_EQ(line.Seas_Date_Last_Gen, Date::fromText("3/4/26"));
  EXPECT_EQ(line.RecordNumber, 2);
  const std::int32_t last = sharedEngine().LogicalOpen("LINEL")->LastRecord;
  EXPECT_NO_THROW(line.Read(last, lock)) << "the capacity counts, not what is in use";
  for (const std::int32_t number : {0, -1, last + 1})
    EXPECT_EQ(raised([&] { line.Read(number, lock); }), (Raised{81, "", "Illegal Record Number"}));
}

TEST_F(StockRecords, AllLinesAreThoseInUseBelowAThousand) {
  for (const std::int32_t number : {12, 1000, 999})
    addLine(run_.builder, lineRecord(number, "AA"));
  run_.builder.extended("LINEL", "ELINEL").addFreed();
  run_.builder.extended("LINEL", "ELINEL").add(lineRecord(5, "AA").integer(1, 'J', 0).bytes());
  run_.openEngine();
  clnLines lines;
  EXPECT_EQ(lines.Count(), 2);
  EXPECT_EQ(lines.Item("999")->RecordNumber, 3);
  EXPECT_EQ(lines.Item(1)->Line, 12);
  EXPECT_EQ(errorNumber([&] { lines.Item("5"); }), kInvalidProcedureCall);
  lines.Remove(1);
  EXPECT_EQ(errorNumber([&] { lines.Remove("12"); }), kInvalidProcedureCall);
  lines.Remove("999");
  EXPECT_EQ(lines.Count(), 0);
}

TEST_F(StockRecords, ADescriptionIsLookedUpInTheFloorPlanFile) {
  run_.builder.records("PARTL").add(RecordWriter(256).packed(179, 14, "OF THE PART").bytes());
  run_.builder.index("PARTI").add(sample::partKey("K7", "12AB"), 1);
  run_.builder.records("FPLNL").add(RecordWriter(256).packed(179, 14, "OF THE PLAN").bytes());
  run_.openEngine();
  EXPECT_EQ(GetPartDescription("K7", "  12AB  "), "OF THE PLAN          ");
  EXPECT_EQ(GetPartDescription("K7", "12-AB"), "Description Not Found") << "no dashes in the index";
  EXPECT_EQ(GetPartDescription("K7", "12A"), "Description Not Found") << "the next key is another";
}

}  // namespace
}  // namespace dg::test
