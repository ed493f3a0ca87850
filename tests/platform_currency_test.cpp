#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <random>

#include "platform/values/convert.h"
#include "platform/values/currency.h"
#include "platform/values/run_time_error.h"
#include "tests/support/error_number.h"

namespace dg {
namespace {

using Limits32 = std::numeric_limits<std::int32_t>;
using Limits64 = std::numeric_limits<std::int64_t>;

constexpr Currency raw(std::int64_t value) {
  return Currency::fromTenThousandths(value);
}

TEST(Currency, SumsAreExactAndStayInRange) {
  Currency sum;
  for (int i = 0; i < 100000; ++i)
    sum += raw(1000);  // .1 a hundred thousand times
  EXPECT_EQ(sum, Currency(10000));
  EXPECT_EQ(Currency(1) - raw(1), raw(9999));
  EXPECT_LT(raw(-1), Currency());
  EXPECT_EQ(raw(-5).abs(), raw(5));
  EXPECT_EQ(-raw(5), raw(-5));
  EXPECT_EQ(errorNumber([] { raw(Limits64::max()) + raw(1); }), kOverflow);
  EXPECT_EQ(errorNumber([] { raw(Limits64::min()) - raw(1); }), kOverflow);
  EXPECT_EQ(errorNumber([] { raw(Limits64::min()).abs(); }), kOverflow);
  EXPECT_EQ(errorNumber([] { -raw(Limits64::min()); }), kOverflow);
}

TEST(Currency, ScaledIntegersComeBack) {
  for (const std::int32_t scale : {1, 10, 100}) {
    for (const std::int32_t stored : {0, 1, -1, 12345, -98765, Limits32::max(), Limits32::min()}) {
      EXPECT_EQ(Currency::fromScaled(stored, scale).toScaled(scale), stored);
    }
  }
  EXPECT_EQ(Currency::fromScaled(-123, 100), raw(-12300));
  EXPECT_EQ(raw(12350).toScaled(100), 124);  // 123.5 goes to the even neighbour
  EXPECT_EQ(raw(12250).toScaled(100), 122);
  EXPECT_EQ(raw(-12250).toScaled(100), -122);
  EXPECT_EQ(errorNumber([] { Currency(Limits32::max()).toScaled(10); }), kOverflow);
}

TEST(Currency, HalvesGoToTheEvenNeighbour) {
  EXPECT_EQ(raw(5000).toLong(), 0);
  EXPECT_EQ(raw(15000).toLong(), 2);
  EXPECT_EQ(raw(25000).toLong(), 2);
  EXPECT_EQ(raw(25001).toLong(), 3);
  EXPECT_EQ(raw(-25000).toLong(), -2);
  EXPECT_EQ(raw(-35000).toLong(), -4);
  EXPECT_EQ(raw(21474836474999).toLong(), Limits32::max());
  EXPECT_EQ(errorNumber([] { raw(21474836475000).toLong(); }), kOverflow);
  EXPECT_EQ(raw(-21474836485000).toLong(), Limits32::min());
  EXPECT_EQ(errorNumber([] { raw(-21474836485001).toLong(); }), kOverflow);

  EXPECT_EQ(Currency::fromDouble(.03125), raw(312));  // both are halves in binary too
  EXPECT_EQ(Currency::fromDouble(.09375), raw(938));
  EXPECT_EQ(Currency::fromDouble(-.03125), raw(-312));
  EXPECT_EQ(Currency::fromDouble(.1 + .2), raw(3000));
}

TEST(Currency, DoublesOutsideTheRangeOverflow) {
  for (const double value : {1e15, -1e15, 1e300, HUGE_VAL, -HUGE_VAL, std::nan("")}) {
    EXPECT_EQ(errorNumber([value] { Currency::fromDouble(value); }), kOverflow);
  }
  EXPECT_EQ(Currency::fromDouble(-922337203685477.5808), raw(Limits64::min()));
}

TEST(Currency, ReturnsFromItsTextAndFromADouble) {
  std::mt19937_64 random(19671231);
  for (int i = 0; i < 20000; ++i) {
    // Up to 49 bits fit into a double's 15 digits.
    const Currency value = raw(static_cast<std::int64_t>(random()) >> (15 + random() % 48));
    ASSERT_EQ(Currency::fromDouble(CDbl(value.text())), value) << value.text();
    ASSERT_EQ(Currency::fromDouble(value.toDouble()), value) << value.text();
  }
}

TEST(Currency, PlainText) {
  EXPECT_EQ(Currency().text(), "0");
  EXPECT_EQ(raw(125000).text(), "12.5");
  EXPECT_EQ(raw(-500).text(), "-0.05");
  EXPECT_EQ(raw(1).text(), "0.0001");
  EXPECT_EQ(Currency(1000).text(), "1000");
  EXPECT_EQ(raw(Limits64::max()).text(), "922337203685477.5807");
  EXPECT_EQ(raw(Limits64::min()).text(), "-922337203685477.5808");
}

}  // namespace
}  // namespace dg
