#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <string>

#include "platform/values/format.h"
#include "platform/values/run_time_error.h"

namespace dg {
namespace {

struct Case {
  double value;
  const char* mask;
  const char* text;
};

void expectAll(std::initializer_list<Case> cases) {
  for (const Case& c : cases)
    EXPECT_EQ(Format(c.value, c.mask), c.text) << c.value << ' ' << c.mask;
}

TEST(Format, MoneyMasks) {
  expectAll({{0, "$#,###,###.00", "$.00"},
             {.5, "$#,###,###.00", "$.50"},
             {-262.36, "$###,###.00", "-$262.36"},
             {-.74, "$#,###,###.00", "-$.74"},
             {999.995, "$#,###,###.00", "$1,000.00"},
             {1234567.891, "$#,###,###.00", "$1,234,567.89"},
             {13540684.5, "$#,###,###.00", "$13,540,684.50"},
             {0, "$##,###,##0.00", "$0.00"},
             {1000, "#,###,###.00", "1,000.00"},
             {-19444.69, "###,###,###.00", "-19,444.69"},
             {18278.98, "#####.00", "18278.98"},
             {61446.96, "$#####.00", "$61446.96"},
             {1234567, "#####.00", "1234567.00"}});
}

TEST(Format, RatesMultiplyByHundredWithoutBinaryNoise) {
  expectAll({{.253, "00.00%", "25.30%"},
             {-.0288, "00.00%", "-02.88%"},
             {-.5906, "00.00%", "-59.06%"},
             {0, "00.00%", "00.00%"},
             {-2.007, "##.0%", "-200.7%"},
             {0, "##.0%", ".0%"},
             {.009, "##.0%", ".9%"},
             // As doubles these products lie just below the half.
             {1.005, "0.00", "1.01"},
             {.28575, "0.00%", "28.58%"},
             {.5, "##.00", ".50"},
             {100, "##.00", "100.00"}});
}

TEST(Format, LiteralsStayBetweenTheDigitPlaces) {
  expectAll({{90126, "##/##/##", "9/01/26"},
             {123199, "##/##/##", "12/31/99"},
             {10599, "##/##/##", "1/05/99"},
             {126, "##/##/##", "/1/26"},
             {0, "##/##/##", "//"},
             {0, "00/00/00", "00/00/00"},
             {10599, "00/00/00", "01/05/99"},
             {1230199, "00/00/00", "123/01/99"},
             {5551212, "000-0000", "555-1212"},
             {12, "000-0000", "000-0012"},
             {0, "###-####", "-"},
             {1212, "###-####", "-1212"},
             {15551212, "###-####", "1555-1212"},
             {853, "###-", "853-"},
             {0, "###-", "-"},
             {7, "00", "07"},
             {123, "00", "123"}});
}

TEST(Format, DigitPlaces) {
  expectAll({{0, "######0.0", "0.0"},
             {1075.24, "###0.0", "1075.2"},
             {5, "#", "5"},
             {0, "#", ""},
             {5, "0#", "05"},
             {5, "0,000", "0,005"},
             {1.5, "0.##", "1.5"},
             {1, "0.##", "1."},
             {1.5, "0.0#0", "1.500"},
             {12.5, ".00", "12.50"},
             {-12.5, "$.0", "-$12.5"},
             {2.5, "0", "3"},
             {-2.5, "0", "-3"},
             {99.96, "##.0", "100.0"},
             {.04, "0.0", "0.0"},
             {-.04, "0.0", "0.0"},
             {-.0, "0", "0"},
             {1234.5, ",#,##0", ",1,235"},
             {7, "no.", "no7."},
             {7, "none", "none"},
             {-12.25, "", "-12.25"}});
}

TEST(Format, ExtremesNeitherCrashNorLoseDigits) {
  EXPECT_EQ(Format(std::numeric_limits<std::int32_t>::min(), "#,##0"), "-2,147,483,648");
  EXPECT_EQ(
      Format(Currency::fromTenThousandths(std::numeric_limits<std::int64_t>::min()), "$#,##0.0000"),
      "-$922,337,203,685,477.5808");
  EXPECT_EQ(Format(1e300, "0.00").size(), 304U);
  EXPECT_EQ(Format(5e-324, "0.00"), "0.00");
  const std::string manyPlaces(100000, '0');
  EXPECT_EQ(Format(1.0, manyPlaces + '.' + manyPlaces).size(), 200001U);
  EXPECT_EQ(Format(0.0, std::string(1000, '%')), std::string(1000, '%'));
  EXPECT_EQ(Format(1.0, '#' + std::string(100, '%')).size(), 301U);
  for (const double bad : {std::nan(""), HUGE_VAL, -HUGE_VAL}) {
    EXPECT_THROW(Format(bad, "0.00"), RunTimeError);
    EXPECT_THROW(formatCurrencyStyle(bad), RunTimeError);
  }
}

/// "$#,###,###.00" by whole-number arithmetic alone.
std::string moneyText(std::int64_t tenThousandths) {
  const bool negative = tenThousandths < 0;
  const std::uint64_t magnitude = negative ? 0U - static_cast<std::uint64_t>(tenThousandths)
                                           : static_cast<std::uint64_t>(tenThousandths);
  std::uint64_t cents = magnitude / 100 + (magnitude % 100 >= 50 ? 1 : 0);
  std::string text;
  for (int i = 0; i < 2; ++i, cents /= 10)
    text.insert(0, 1, static_cast<char>('0' + cents % 10));
  text.insert(0, ".");
  for (int place = 0; cents > 0; ++place, cents /= 10) {
    if (place > 0 && place % 3 == 0) text.insert(0, ",");
    text.insert(0, 1, static_cast<char>('0' + cents % 10));
  }
  const bool zero = text == ".00";
  return (negative && !zero ? "-$" : "$") + text;
}

TEST(Format, CurrencyIsExactForAnyMagnitude) {
  std::mt19937_64 random(20061105);
  for (int i = 0; i < 20000; ++i) {
    // A random number of bits spreads the values over all magnitudes.
    const std::int64_t value = static_cast<std::int64_t>(random()) >> (random() % 63);
    ASSERT_EQ(Format(Currency::fromTenThousandths(value), "$#,###,###.00"), moneyText(value))
        << value;
  }
  for (std::int64_t value = -20100; value <= 20100; ++value) {
    ASSERT_EQ(Format(Currency::fromTenThousandths(value), "$#,###,###.00"), moneyText(value))
        << value;
    // A double that is a ten-thousandth must show the same text as the currency.
    ASSERT_EQ(Format(static_cast<double>(value) / 10000, "$#,###,###.00"), moneyText(value));
  }
}

TEST(Format, GridCurrencyStyle) {
  EXPECT_EQ(formatCurrencyStyle(1234.5), "$1,234.50");
  EXPECT_EQ(formatCurrencyStyle(-1234.5), "($1,234.50)");
  EXPECT_EQ(formatCurrencyStyle(Currency()), "$0.00");
  EXPECT_EQ(formatCurrencyStyle(Currency::fromTenThousandths(-36300)), "($3.63)");
  EXPECT_EQ(formatCurrencyStyle(Currency::fromTenThousandths(-49)), "$0.00");
}

}  // namespace
}  // namespace dg
