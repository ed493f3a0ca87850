#include <gtest/gtest.h>

#include "engine/state.h"
#include "engine/text_utilities.h"
#include "platform/clock.h"
#include "tests/support/engine_store.h"
#include "tests/support/error_number.h"

namespace dg {
namespace {

using namespace std::string_literals;
using Parts = std::vector<std::string>;

TEST(EngineUtilities, TrunStripsTheEndOnly) {
  EXPECT_EQ(Trun("AB\0 \r"s, true), "AB");
  EXPECT_EQ(Trun("AB\0 \r"s, false), "AB\0 \r"s);
  EXPECT_EQ(Trun("AB\t\n "s, true), "AB");
  EXPECT_EQ(Trun(" A\0B  "s, true), " A\0B"s);
  EXPECT_EQ(Trun(" AB  "s, false), " AB");
  EXPECT_EQ(Trun("     ", true), "");
  EXPECT_EQ(Trun("     ", false), "");
  EXPECT_EQ(Trun("", true), "");
}

TEST(EngineUtilities, SplitDropsEmptyParts) {
  EXPECT_EQ(Split("a,,b,", ","), (Parts{"a", "b"}));
  EXPECT_EQ(Split("", ","), Parts{});
  EXPECT_EQ(Split(",,", ","), Parts{});
  EXPECT_EQ(Split("Nov  5 14", " "), (Parts{"Nov", "5", "14"}));
  EXPECT_EQ(Split("a--b-c", "--"), (Parts{"a", "b-c"}));
  EXPECT_EQ(Split("one", ","), Parts{"one"});
}

TEST(EngineUtilities, ALimitTakesThePartThatStillHoldsDelimiters) {
  EXPECT_EQ(Split("a b c", " ", 2), Parts{"a"});
  EXPECT_EQ(Split("a b c", " ", 3), (Parts{"a", "b", "c"}));
  EXPECT_EQ(Split("a b", " ", 9), (Parts{"a", "b"}));
  EXPECT_EQ(Split("a b", " ", 1), Parts{});
  EXPECT_EQ(Split("ab", " ", 1), Parts{"ab"});
  EXPECT_EQ(Split("a b", " ", 0), Parts{});
  EXPECT_EQ(errorNumber([] { Split("a b", " ", -2); }), kInvalidProcedureCall);
}

TEST(EngineUtilities, ACaseInsensitiveSplitFiltersExactly) {
  EXPECT_EQ(Split("1x2X3", "X", -1, Compare::kText), (Parts{"1", "2", "3"}));
  EXPECT_EQ(Split("1x2X3", "X", -1, Compare::kBinary), (Parts{"1x2", "3"}));
  // The remainder holds the delimiter only in the other case.
  EXPECT_EQ(Split("1X2x3", "X", 2, Compare::kText), (Parts{"1", "2x3"}));
}

TEST(EngineUtilities, FindsStateAndZip) {
  const auto block = [](const std::string& line3, const std::string& line4) {
    std::string lines = "ACME SALES"s;
    lines.resize(60, ' ');
    lines += line3;
    lines.resize(90, ' ');
    lines += line4;
    lines.resize(120, ' ');
    return lines;
  };
  const auto state = [](std::string address) { return AddressState(address); };
  const auto zip = [](std::string address) { return AddressZip(address); };

  EXPECT_EQ(state(block("", "DENVER, CO 80202-1234")), "CO");
  EXPECT_EQ(zip(block("", "DENVER, CO 80202-1234")), "80202-1234");
  EXPECT_EQ(state(block("SPRINGFIELD  IL  62701", "")), "IL");
  EXPECT_EQ(zip(block("SPRINGFIELD  IL  62701", "")), "62701");
  EXPECT_EQ(zip(block("", "MIAMI FL 331011234")), "331011234");
  EXPECT_EQ(zip(block("", "MIAMI FL 3310X")), "");
  EXPECT_EQ(zip(block("", "12345 80202_1234")), "12345");
  // A single letter and two letters inside a code pass the loose test.
  EXPECT_EQ(state(block("", "APT A")), "A");
  EXPECT_EQ(state(block("", "NOWHERE ZZ")), "");
  // A line that begins with a full stop is a comment.
  EXPECT_EQ(zip(block("BOISE ID 83702", ".OLD 99999 TX")), "83702");
  EXPECT_EQ(state(block("BOISE ID 83702", ".OLD 99999 TX")), "ID");
}

TEST(EngineUtilities, AddressesChangeInPlaceAndMayBeShort) {
  std::string address = ".COMMENT"s;
  EXPECT_EQ(AddressState(address), "");
  EXPECT_EQ(address, std::string(8, ' '));
  address = "BOISE,ID.";
  EXPECT_EQ(AddressState(address), "ID");
  EXPECT_EQ(address, "BOISE ID ");
  address = std::string(30, 'X') + ".";
  EXPECT_EQ(AddressZip(address), "");
  EXPECT_EQ(address, std::string(30, 'X') + " ");
  address.clear();
  EXPECT_EQ(AddressZip(address), "");
}

TEST(EngineUtilities, PartNumbersGetAndLoseTheirDashes) {
  const auto dashed = [](std::string number, std::string_view mask) {
    InsertDashes(number, mask);
    return number;
  };
  EXPECT_EQ(dashed("ABCDEF", "3   "), "AB-CDEF");
  EXPECT_EQ(dashed("ABCDEF", "36"), "AB-CD-EF");
  EXPECT_EQ(dashed("ABCDEF", "1"), "-ABCDEF");
  EXPECT_EQ(dashed("ABCDEF", "JKL?"), "ABCDEF");
  EXPECT_EQ(dashed("ABCDEF", ""), "ABCDEF");
  EXPECT_EQ(dashed("AB", "9I"), "AB--");
  EXPECT_EQ(dashed("0123456789ABCDEFGH", "I"), "0123456789ABCDEFG-H");

  std::string number = "  AB-CD EF ";
  std::string mask = "old";
  EXPECT_TRUE(StripDashes(number, mask));
  EXPECT_EQ(number, "ABCDEF");
  EXPECT_EQ(mask, "36");
  number = "1-2-3-4-5";
  EXPECT_FALSE(StripDashes(number, mask));
  EXPECT_EQ(number, "12345");
  EXPECT_EQ(mask, "2468");
  number = "A,B/C.1";  // all of the alphabet but the blank
  EXPECT_TRUE(StripDashes(number, mask));
  EXPECT_EQ(number, "A,B/C.1");
  EXPECT_EQ(mask, "");
  // Places beyond the twenty-first have no name.
  number = std::string(21, 'A') + "-B";
  EXPECT_TRUE(StripDashes(number, mask));
  EXPECT_EQ(number, std::string(21, 'A') + "B");
  EXPECT_EQ(mask, "");
}

TEST(EngineUtilities, Flags) {
  EXPECT_EQ(YesFlag("Y"), 1);
  for (const char* text : {"y", "", "YY", "Y ", "N"})
    EXPECT_EQ(YesFlag(text), 0) << text;
  EXPECT_EQ(FlagYes(-1), "Y");
  EXPECT_EQ(FlagYes(1), "Y");
  EXPECT_EQ(FlagYes(0), "N");
}

TEST(EngineUtilities, TheEnginesOwn) {
  test::EngineStore store;
  const cBusinessBasic& engine = store.engine();
  EXPECT_EQ(engine.Max(-3, 2), 2);
  EXPECT_EQ(engine.Min(-3, 2), -3);
  std::int32_t position = 99;
  engine.StrPos(position, "abcabc", "ca");
  EXPECT_EQ(position, 3);
  engine.StrPos(position, "abcabc", "CA");
  EXPECT_EQ(position, 0);
  engine.StrPos(position, "", "");
  EXPECT_EQ(position, 0);
  EXPECT_EQ(engine.QuilSys(), SystemInfo);
}

TEST(EngineUtilities, TodayInSeveralForms) {
  test::EngineStore store;
  const cBusinessBasic& engine = store.engine();
  setClock(Date::parse("1/5/2004 13:30:00"));
  EXPECT_EQ(engine.Sys(1), 5);
  EXPECT_EQ(engine.Sys(2), 1);
  EXPECT_EQ(engine.Sys(3), 2004);
  EXPECT_EQ(engine.Sys(4), 12);
  EXPECT_EQ(engine.Sys(28), 10504);
  EXPECT_EQ(engine.Sys(128), 40105);
  EXPECT_EQ(engine.Sys(152), 13154);
  EXPECT_EQ(engine.Now(), Date::parse("1/5/2004 13:30:00"));
  for (const std::int32_t code : {0, 5, 27, 151, 153, 200, -1})
    EXPECT_EQ(engine.Sys(code), 0) << code;
  SystemInfo->TerminalID = "T1";
  EXPECT_EQ(errorNumber([&] { engine.Sys(4); }), kTypeMismatch);
  setClock(std::nullopt);
}

}  // namespace
}  // namespace dg
