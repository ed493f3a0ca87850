#include <gtest/gtest.h>
#include <random>

#include "engine/codec.h"
#include "engine/state.h"
#include "tests/support/bytes.h"
#include "tests/support/error_number.h"
#include "tests/support/raised.h"

namespace dg::test {
namespace {

Date day(int year, int month, int dayOfMonth) {
  return Date::fromCalendar(year, month, dayOfMonth).value();
}

/// Every test begins and ends with the table of an engine's creation.
class EngineCodec : public testing::Test {
 protected:
  void SetUp() override { MaskTable = kDefaultMaskTable; }
  void TearDown() override { MaskTable = kDefaultMaskTable; }
};

TEST_F(EngineCodec, UnpacksEveryOpcodeAtTheEdgesOfItsRange) {
  struct Case {
    std::string field;
    std::int32_t value;
    char opcode;
  };
  const Case cases[] = {
      {bytes({0x01, 0x02}), 258, 'C'},
      {bytes({0xFF, 0xFE}), -2, 'J'},
      {bytes({0xFF, 0xFE}), 65534, 'C'},
      {bytes({0x80, 0, 0}), -8388608, 'K'},
      {bytes({0xFF}), 255, 'B'},
      {bytes({0xFF}), -1, 'I'},
      {bytes({0x80}), -128, 'I'},
      {bytes({0x7F, 0xFF}), 32767, 'J'},
      {bytes({0xFF, 0xFF, 0xFF}), 16777215, 'D'},
      {bytes({0xFF, 0xFF, 0xFF}), -1, 'K'},
      {bytes({0x7F, 0xFF, 0xFF}), 8388607, 'K'},
      {bytes({0xFF, 0xFF, 0xFF, 0xFF}), -1, 'L'},
      {bytes({0x80, 0, 0, 0}), INT32_MIN, 'L'},
      {bytes({0x7F, 0xFF, 0xFF, 0xFF}), INT32_MAX, 'L'},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(1, c.opcode) + " " + std::to_string(c.value));
    const std::string record = "xx" + c.field + "y";
    EXPECT_EQ(Unpack(c.opcode, record, 3), c.value);
    std::string packed = "xx" + std::string(c.field.size(), '?') + "y";
    Pack(c.opcode, packed, c.value, 3);
    EXPECT_EQ(packed, record);
  }
}

TEST_F(EngineCodec, PackDropsHighBytesAndOverwritesNothingElse) {
  std::string record = "abcd";
  Pack('B', record, 300, 2);
  EXPECT_EQ(record, bytes({'a', 44, 'c', 'd'}));
  Pack('C', record, 65536, 2);
  EXPECT_EQ(record, bytes({'a', 0, 0, 'd'}));
  Pack('B', record, -1, 4);
  EXPECT_EQ(record, bytes({'a', 0, 0, 0xFF}));
}

TEST_F(EngineCodec, UpperCasesTheCallersOpcodeAndNoOtherText) {
  std::string opcode = "b";
  EXPECT_EQ(Unpack(opcode, "\x05", 1), 5);
  EXPECT_EQ(opcode, "B");
  std::string record = "..";
  opcode = "j";
  Pack(opcode, record, -2, 1);
  EXPECT_EQ(opcode, "J");
  EXPECT_EQ(record, bytes({0xFF, 0xFE}));
  EXPECT_EQ(Unpack('c', record, 1), 65534);
}

TEST_F(EngineCodec, RefusesUnknownOpcodes) {
  std::string record = "....";
  std::string opcode = "q";
  EXPECT_EQ(raised([&] { Unpack(opcode, record, 1); }),
            (Raised{100, "UnPack", "Unknown OpCode = \"Q\""}));
  opcode = "cc";
  EXPECT_EQ(raised([&] { Pack(opcode, record, 1, 1); }),
            (Raised{100, "Pack", "Unknown OpCode = \"CC\""}));
  opcode = "";
  EXPECT_EQ(raised([&] { Unpack(opcode, record, 1); }),
            (Raised{100, "UnPack", "Unknown OpCode = \"\""}));
  EXPECT_EQ(raised([&] { Unpack('r', record, 1); }),
            (Raised{100, "UnPack", "Unknown OpCode = \"R\""}));
  EXPECT_EQ(raised([&] { Pack(' ', record, 1, 1); }),
            (Raised{100, "Pack", "Unknown OpCode = \" \""}));
}

TEST_F(EngineCodec, RefusesFieldsOutsideTheData) {
  std::string record = "abc";
  EXPECT_EQ(Unpack('C', record, 2), 'b' * 256 + 'c');
  EXPECT_EQ(raised([&] { Unpack('c', record, 3); }),
            (Raised{31, "UnPack", "Invalid Subscript.  UnPack(\"C\", Data$, 3)   Len(Data$) = 3"}));
  EXPECT_EQ(raised([&] { Pack('L', record, 0, 12); }),
            (Raised{31, "Pack", "Invalid Subscript.  Pack \"L\", Data$, 12   Len(Data$) = 3"}));
  EXPECT_EQ(record, "abc");
  EXPECT_EQ(errorNumber([&] { Unpack('L', record, INT32_MAX); }), 31);
  EXPECT_EQ(errorNumber([&] { Unpack('B', "", 1); }), 31);
  for (const std::int32_t position : {0, -1, INT32_MIN}) {
    EXPECT_EQ(errorNumber([&] { Unpack('C', record, position); }), kInvalidProcedureCall);
    EXPECT_EQ(errorNumber([&] { Pack('C', record, 1, position); }), kInvalidProcedureCall);
    EXPECT_EQ(UnPackDate("C", record, position), kEmptyDate);
  }
}

TEST_F(EngineCodec, ReadsDates) {
  const Date lastOf1999 = day(1999, 12, 31);
  EXPECT_EQ(UnPackDate("C", bytes({0x2D, 0xA8}), 1), lastOf1999);
  EXPECT_EQ(UnPackDate("J", bytes({0x2D, 0xA8}), 1), lastOf1999);
  EXPECT_EQ(UnPackDate("D", bytes({0x01, 0xE1, 0x3F}), 1), lastOf1999);
  EXPECT_EQ(UnPackDate("K", bytes({0x01, 0xE1, 0x3F}), 1), lastOf1999);
  EXPECT_EQ(UnPackDate("R", bytes({0x0F, 0x1F, 0xFF}), 1), lastOf1999);
  // Unsigned in both cases: day 65535.
  EXPECT_EQ(UnPackDate("J", bytes({0xFF, 0xFF}), 1), kDayZero.plusDays(65535));
}

TEST_F(EngineCodec, ReadsTwoDigitYearsAroundThePivot) {
  const auto digits = [](std::int32_t value) {
    std::string field(3, '\0');
    Pack('D', field, value, 1);
    return field;
  };
  EXPECT_EQ(UnPackDate("D", digits(10129), 1), day(2029, 1, 1));
  EXPECT_EQ(UnPackDate("D", digits(10130), 1), day(1930, 1, 1));
  EXPECT_EQ(UnPackDate("R", digits(229), 1), day(2000, 2, 29));
  EXPECT_EQ(UnPackDate("D", digits(22900), 1), day(2000, 2, 29));
  for (const std::int32_t noDate : {0, 1599, 130199, 22901, 1010199, 16777215}) {
    EXPECT_EQ(UnPackDate("D", digits(noDate), 1), kEmptyDate) << noDate;
  }
  EXPECT_EQ(UnPackDate("R", digits(1001231), 1), kEmptyDate);
}

TEST_F(EngineCodec, NeverRaisesWhileReadingDates) {
  EXPECT_EQ(UnPackDate("C", bytes({0, 0}), 1), kEmptyDate);
  EXPECT_EQ(UnPackDate("C", bytes({0, 1}), 1), kEmptyDate);
  EXPECT_EQ(UnPackDate("c", bytes({0x2D, 0xA8}), 1), kEmptyDate);
  EXPECT_EQ(UnPackDate("B", bytes({0x2D, 0xA8}), 1), kEmptyDate);
  EXPECT_EQ(UnPackDate("", bytes({0x2D, 0xA8}), 1), kEmptyDate);
  EXPECT_EQ(UnPackDate("CC", bytes({0x2D, 0xA8}), 1), kEmptyDate);
  EXPECT_EQ(UnPackDate("C", bytes({0x2D}), 1), kEmptyDate);
  EXPECT_EQ(UnPackDate("R", "", 5), kEmptyDate);
}

TEST_F(EngineCodec, WritesDates) {
  const auto packed = [](const char* opcode, Date value, std::size_t width) {
    std::string field(width, '?');
    PackDate(opcode, field, 1, value);
    return field;
  };
  EXPECT_EQ(packed("C", kEmptyDate, 2), bytes({0, 0}));
  EXPECT_EQ(packed("J", day(1968, 1, 2), 2), bytes({0, 2}));
  EXPECT_EQ(packed("C", day(1999, 12, 31), 2), bytes({0x2D, 0xA8}));
  EXPECT_EQ(packed("R", day(1999, 12, 31), 3), bytes({0x0F, 0x1F, 0xFF}));
  EXPECT_EQ(packed("R", day(2004, 3, 9), 3), bytes({0, 0x9D, 0x75}));  // 40309 without a zero
  EXPECT_EQ(packed("D", day(1999, 12, 31), 3), bytes({0x01, 0xE1, 0x3F}));
  // The digits of 1/5/99, which do not read back.
  const std::string short99 = packed("K", day(1999, 1, 5), 3);
  EXPECT_EQ(Unpack('D', short99, 1), 1599);
  EXPECT_EQ(UnPackDate("K", short99, 1), kEmptyDate);
  EXPECT_EQ(packed("c", day(1999, 1, 5), 2), "??");
  EXPECT_EQ(packed("X", day(1999, 1, 5), 2), "??");
  EXPECT_EQ(raised([&] { packed("R", kEmptyDate, 2); }),
            (Raised{31, "Pack", "Invalid Subscript.  Pack \"D\", Data$, 1   Len(Data$) = 2"}));
}

TEST_F(EngineCodec, PackedTextFollowsTheTable) {
  EXPECT_EQ(packText("ABC"), bytes({0x59, 0xE8}));
  EXPECT_EQ(packText("AB"), bytes({0x59, 0xD8}));
  EXPECT_EQ(unpackText(bytes({0x59, 0xE8})), "ABC");
  EXPECT_EQ(unpackText(bytes({0, 0})), "   ");
  EXPECT_EQ(packText(""), "");
  EXPECT_EQ(unpackText(""), "");
  EXPECT_EQ(unpackText(packText(kDefaultMaskTable)), std::string(kDefaultMaskTable) + "  ");
  // 63999 is the highest value of three codes; above it the first code falls beyond the table.
  EXPECT_EQ(unpackText(bytes({0xF9, 0xFF})), "ZZZ");
  EXPECT_EQ(unpackText(bytes({0xFA, 0x00})), "  ");
  EXPECT_EQ(unpackText(bytes({0xFF, 0xFF})).size(), 2U);
  EXPECT_EQ(packText("a-B"), packText("  B"));
}

TEST_F(EngineCodec, TheTextOperationsFillTheCallersText) {
  std::string packed = bytes({0x59, 0xE8, 0x59});
  EXPECT_EQ(Ucm(packed).size(), 6U);
  EXPECT_EQ(packed, bytes({0x59, 0xE8, 0x59, 0}));
  std::string text = "ABCD";
  EXPECT_EQ(Crm(text), packText("ABCD  "));
  EXPECT_EQ(text, "ABCD  ");
}

TEST_F(EngineCodec, TheHeadOfTheTableChanges) {
  Variant a1 = std::int32_t{0};
  Variant a2 = std::string(" ,-.");
  Variant unused;
  Stma(std::int32_t{10}, a1, a2, unused, unused, unused);
  EXPECT_EQ(packText("  -"), bytes({0, 2}));
  EXPECT_EQ(packText("  /"), bytes({0, 0}));
  EXPECT_EQ(unpackText(bytes({0, 2})), "  -");
  EXPECT_EQ(MaskTable.substr(4), kDefaultMaskTable.substr(4));

  for (const char* head : {" ,/", " ,/.0", ""}) {
    a2 = std::string(head);
    Stma(std::int32_t{10}, a1, a2, unused, unused, unused);
    EXPECT_EQ(MaskTable.substr(0, 4), " ,-.") << head;
  }
  a1 = std::int32_t{1};
  a2 = std::string(" ,/.");
  Stma(std::int32_t{10}, a1, a2, unused, unused, unused);
  EXPECT_EQ(MaskTable.substr(0, 4), " ,-.");

  // A character that the head doubles is met there first, as a search from the left meets it.
  setMaskHead(" A-.");
  EXPECT_EQ(packText("  A"), bytes({0, 1}));
}

TEST_F(EngineCodec, DayNumbersBothWays) {
  const auto fromNumber = [](std::int32_t number) {
    Variant a1 = number;
    Variant month;
    Variant dayOfMonth;
    Variant year;
    Variant date;
    Stma(std::int32_t{11}, a1, month, dayOfMonth, year, date);
    EXPECT_EQ(std::get<std::int32_t>(month), std::get<Date>(date).month());
    EXPECT_EQ(std::get<std::int32_t>(dayOfMonth), std::get<Date>(date).day());
    EXPECT_EQ(std::get<std::int32_t>(year), std::get<Date>(date).year() % 100);
    return std::get<Date>(date);
  };
  EXPECT_EQ(fromNumber(0), kEmptyDate);
  EXPECT_EQ(fromNumber(1), kEmptyDate);
  EXPECT_EQ(fromNumber(11688), day(1999, 12, 31));
  EXPECT_EQ(fromNumber(-1), day(1967, 12, 30));
  EXPECT_EQ(errorNumber([&] { fromNumber(INT32_MAX); }), kOverflow);
  EXPECT_EQ(errorNumber([&] { fromNumber(3000000); }), kOverflow);

  const auto toNumber = [](Variant month, Variant dayOfMonth, Variant year) {
    Variant number;
    Variant unused;
    Stma(std::int32_t{12}, number, month, dayOfMonth, year, unused);
    return std::get<std::int32_t>(number);
  };
  EXPECT_EQ(toNumber(1, 1, 68), 0);
  EXPECT_EQ(toNumber(1, 2, 68), 2);
  EXPECT_EQ(toNumber(12, 31, 99), 11688);
  EXPECT_EQ(toNumber(std::string("12"), 31.0, 99), 11688);
  EXPECT_EQ(errorNumber([&] { toNumber(13, 45, 99); }), kTypeMismatch);

  Variant untouched = std::string("x");
  Stma(std::int32_t{13}, untouched, untouched, untouched, untouched, untouched);
  EXPECT_EQ(untouched, Variant(std::string("x")));
}

TEST_F(EngineCodec, TextThatTheTableHoldsSurvivesEveryLength) {
  std::mt19937 random(7);
  for (std::size_t length = 0; length <= 64; ++length) {
    std::string text;
    for (std::size_t i = 0; i < length; ++i)
      text.push_back(kDefaultMaskTable[random() % kDefaultMaskTable.size()]);
    const std::string read = unpackText(packText(text));
    ASSERT_EQ(read.size(), (length + 2) / 3 * 3);
    EXPECT_EQ(read.substr(0, length), text);
    EXPECT_EQ(read.find_first_not_of(' ', length), std::string::npos);
  }
}

}  // namespace
}  // namespace dg::test
