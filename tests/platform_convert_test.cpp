#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <string>

#include "platform/values/convert.h"
#include "platform/values/run_time_error.h"
#include "platform/values/variant.h"
#include "tests/support/error_number.h"

namespace dg {
namespace {

TEST(Convert, TextsWithANumericForm) {
  const std::pair<const char*, double> cases[] = {{"12", 12},
                                                  {" -12.5 ", -12.5},
                                                  {"+3", 3},
                                                  {".5", .5},
                                                  {"5.", 5},
                                                  {"$1,234.50", 1234.5},
                                                  {"($1,234.50)", -1234.5},
                                                  {"-$262.36", -262.36},
                                                  {"$-5", -5},
                                                  {"$ 5", 5},
                                                  {"- 5", -5},
                                                  {"5-", -5},
                                                  {"25.3%", .253},
                                                  {"-02.88%", -.0288},
                                                  {"(5%)", -.05},
                                                  {".0%", 0},
                                                  {"1E3", 1000},
                                                  {"1.5e-2", .015},
                                                  {"1d2", 100},
                                                  {"$.00", 0},
                                                  {"0007", 7},
                                                  {"1e-400", 0},
                                                  {"-0", 0},
                                                  {"0E999999999999", 0}};
  for (const auto& [text, value] : cases) {
    ASSERT_TRUE(IsNumeric(text)) << text;
    EXPECT_EQ(CDbl(text), value) << text;
  }
}

TEST(Convert, TextsWithout) {
  for (const char* text :
       {"",    " ",   "-",   "$",       ".",     "%",    "()",    "(5",  "5)", "(-5)", "-(5)",
        "--5", "-5-", "$$5", "5%%",     "1.2.3", ",5",   "1.5,0", "1 2", "5x", "x5",   "1E",
        "1E+", "E5",  "//",  "1/05/99", "Yes",   "0x10", "NaN",   "inf", "5$"}) {
    EXPECT_FALSE(IsNumeric(text)) << text;
    EXPECT_EQ(errorNumber([text] { CDbl(text); }), kTypeMismatch) << text;
    EXPECT_EQ(errorNumber([text] { CLng(text); }), kTypeMismatch) << text;
  }
  EXPECT_FALSE(IsNumeric(std::string("5\0", 2)));
}

TEST(Convert, BeyondTheRangeIsAnOverflow) {
  for (const char* text : {"1E400", "-1E99999999999999999999", "1E309"}) {
    EXPECT_FALSE(IsNumeric(text)) << text;
    EXPECT_EQ(errorNumber([text] { CDbl(text); }), kOverflow) << text;
  }
  EXPECT_EQ(errorNumber([] { CDbl(std::string(400, '9')); }), kOverflow);
  EXPECT_EQ(CDbl("." + std::string(400, '0') + "1"), 0);
  EXPECT_EQ(errorNumber([] { CLng("2147483648"); }), kOverflow);
  EXPECT_EQ(errorNumber([] { CLng(2147483647.5); }), kOverflow);
  EXPECT_EQ(errorNumber([] { CLng(-2147483648.51); }), kOverflow);
  for (const double bad : {HUGE_VAL, -HUGE_VAL, std::nan("")}) {
    EXPECT_EQ(errorNumber([bad] { CLng(bad); }), kOverflow);
  }
}

TEST(Convert, WholeNumbersTakeHalvesToTheEvenNeighbour) {
  EXPECT_EQ(CLng("0.5"), 0);
  EXPECT_EQ(CLng("$1,234.50"), 1234);
  EXPECT_EQ(CLng("($1,235.50)"), -1236);
  EXPECT_EQ(CLng("25.3%"), 0);
  EXPECT_EQ(CLng("-200.7%"), -2);
  EXPECT_EQ(CLng("150%"), 2);
  EXPECT_EQ(CLng(2.5), 2);
  EXPECT_EQ(CLng(3.5), 4);
  EXPECT_EQ(CLng(-2.5), -2);
  EXPECT_EQ(CLng(-2.51), -3);
  EXPECT_EQ(CLng(-2147483648.5), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(CLng(2147483647.49), std::numeric_limits<std::int32_t>::max());
}

TEST(Convert, LeadingNumberOfAText) {
  EXPECT_EQ(Val("12 abc"), 12);
  EXPECT_EQ(Val(" 1 615 198th Street"), 1615198);
  EXPECT_EQ(Val("-.5x"), -.5);
  EXPECT_EQ(Val("1,234"), 1);
  EXPECT_EQ(Val("$5"), 0);
  EXPECT_EQ(Val(""), 0);
  EXPECT_EQ(Val("-"), 0);
  EXPECT_EQ(Val("1E2"), 100);
  EXPECT_EQ(Val("1E"), 1);
  EXPECT_EQ(Val("-1E999"), std::numeric_limits<double>::lowest());
}

TEST(Convert, PlainTexts) {
  EXPECT_EQ(Str(5), " 5");
  EXPECT_EQ(Str(0), " 0");
  EXPECT_EQ(Str(-5), "-5");
  EXPECT_EQ(numberText(0), "0");
  EXPECT_EQ(numberText(-0.0), "0");
  EXPECT_EQ(numberText(.5), "0.5");
  EXPECT_EQ(numberText(-12.50), "-12.5");
  EXPECT_EQ(numberText(.1 + .2), "0.3");
  EXPECT_EQ(numberText(1.0 / 3), "0.333333333333333");
  EXPECT_EQ(numberText(100000000000000), "100000000000000");
  EXPECT_EQ(numberText(.00001), "0.00001");
  EXPECT_EQ(numberText(1e15), "1E+15");
  EXPECT_EQ(numberText(-1.5e-20), "-1.5E-20");
  EXPECT_EQ(numberText(1e300), "1E+300");
  EXPECT_EQ(numberText(std::nan("")), "NaN");
  EXPECT_EQ(numberText(-HUGE_VAL), "-Infinity");
}

TEST(Variant, PlainTextOfEveryKind) {
  EXPECT_EQ(toText({}), "");
  EXPECT_EQ(toText(std::int32_t{-7}), "-7");
  EXPECT_EQ(toText(1234.50), "1234.5");
  EXPECT_EQ(toText(Currency::fromScaled(-5, 100)), "-0.05");
  EXPECT_EQ(toText(*Date::fromCalendar(1999, 1, 5)), "1/5/99");
  EXPECT_EQ(toText(std::string(" A ")), " A ");
}

}  // namespace
}  // namespace dg
