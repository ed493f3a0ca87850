#include <gtest/gtest.h>
#include <limits>
#include <optional>
#include <string>

#include "platform/clock.h"
#include "platform/values/date.h"
#include "platform/values/run_time_error.h"
#include "tests/support/error_number.h"

namespace dg {
namespace {

std::optional<Date> at(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
  const std::optional<Date> date = Date::fromCalendar(year, month, day);
  return date ? Date(date->days(), (hour * 60 + minute) * 60 + second) : date;
}

TEST(Date, ParsesWhatTheProgramMeets) {
  EXPECT_EQ(Date::parse("12/31/67"), kDayZero);
  EXPECT_EQ(Date::parse("1/1/68"), kEmptyDate);
  EXPECT_EQ(Date::parse("01/01/68"), kEmptyDate);
  EXPECT_EQ(Date::parse("9/01/26"), at(2026, 9, 1));
  EXPECT_EQ(Date::parse("1/5/1999"), at(1999, 1, 5));
  EXPECT_EQ(Date::parse("1-5-99"), at(1999, 1, 5));
  EXPECT_EQ(Date::parse(" 1 / 5 - 99 "), at(1999, 1, 5));
  EXPECT_EQ(Date::parse("11 24 2006 14:38:23"), at(2006, 11, 24, 14, 38, 23));
  EXPECT_EQ(Date::parse("Nov 5 2006 14:38:23"), at(2006, 11, 5, 14, 38, 23));
  EXPECT_EQ(Date::parse("NOVEMBER  5, 2006"), at(2006, 11, 5));
  EXPECT_EQ(Date::parse("5-nov-06"), at(2006, 11, 5));
  EXPECT_EQ(Date::parse("11/24/26 10:30:00 AM"), at(2026, 11, 24, 10, 30));
  EXPECT_EQ(Date::parse("10:30:05 pm 11/24/26"), at(2026, 11, 24, 22, 30, 5));
  EXPECT_EQ(Date::parse("2/29/2000"), at(2000, 2, 29));
  EXPECT_EQ(Date::parse("6/15/5"), at(2005, 6, 15));
  EXPECT_EQ(Date::parse("6/15/1830"), at(1830, 6, 15));
}

TEST(Date, ParsesTimes) {
  EXPECT_EQ(Date::parse("14:38"), Date(0, (14 * 60 + 38) * 60));
  EXPECT_EQ(Date::parse("12:00:00 AM"), Date(0, 0));
  EXPECT_EQ(Date::parse("12:00 PM"), Date(0, 12 * 3600));
  EXPECT_EQ(Date::parse("2pm"), Date(0, 14 * 3600));
  EXPECT_EQ(Date::parse("23:59:59"), Date(0, 86399));
  for (const char* text : {"24:00", "13:00 PM", "12:60", "12:00:60", "12", "12:", ":12", "1:2:3:4",
                           "12:00 XM", "12:00 AM PM", "123:00"}) {
    EXPECT_FALSE(Date::parse(text)) << text;
  }
}

TEST(Date, RejectsWhatIsNoDate) {
  // Of no day in the calendar, of too few, too many or too long parts, of other texts.
  for (const char* text : {"00/00/00",
                           "13/1/99",
                           "2/30/99",
                           "2/29/99",
                           "2/29/1900",
                           "1/0/99",
                           "6/15/0030",
                           "123/01/99",
                           "1/5/000",
                           "",
                           "//",
                           "1//5/99",
                           "1/5/",
                           "1/5",
                           "1599",
                           "1.5.99",
                           "1/5/99x",
                           "x1/5/99",
                           "Foo 5 2006",
                           "Nov5 2006",
                           "5 5 Nov 2006",
                           "1/5/9910:30",
                           "1/5/99 10:30 1/5/99"}) {
    EXPECT_FALSE(Date::parse(text)) << text;
  }
  EXPECT_FALSE(Date::parse(std::string("1/5/99\0", 7)));
  EXPECT_EQ(errorNumber([] { Date::fromText("//"); }), kTypeMismatch);
}

TEST(Date, EveryDayOfTheCenturyReturnsFromItsText) {
  const Date last = *at(2029, 12, 31);
  Date date = *at(1930, 1, 1);
  int year = 1930;
  int month = 1;
  int day = 1;
  for (; date <= last; date = date.plusDays(1)) {
    ASSERT_EQ(Date::parse(date.shortDateText()), date) << date.isoText();
    ASSERT_EQ(Date::fromIso(date.isoText()), date);
    // The calendar advances by one day: independent of the arithmetic under test.
    ASSERT_EQ(date.year(), year);
    ASSERT_EQ(date.month(), month);
    ASSERT_EQ(date.day(), day);
    const int february = year % 4 == 0 ? 29 : 28;  // right for all years of this span
    const int lengths[] = {31, february, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const int length = lengths[month - 1];
    if (++day > length) day = 1, ++month;
    if (month > 12) month = 1, ++year;
  }
  EXPECT_EQ(date.days() - at(1930, 1, 1)->days(), 36525);
}

TEST(Date, Texts) {
  EXPECT_EQ(at(1999, 1, 5)->shortDateText(), "1/5/99");
  EXPECT_EQ(at(2009, 11, 24)->shortDateText(), "11/24/09");
  EXPECT_EQ(at(2026, 11, 24, 10, 30)->text(), "11/24/26 10:30:00 AM");
  EXPECT_EQ(at(2026, 11, 24)->text(), "11/24/26");
  EXPECT_EQ(Date(0, 13 * 3600 + 65).text(), "1:01:05 PM");
  EXPECT_EQ(Date().text(), "12:00:00 AM");
  EXPECT_EQ(Date(1, 12 * 3600).longTimeText(), "12:00:00 PM");
  EXPECT_EQ(at(100, 1, 1)->isoText(), "0100-01-01");
}

TEST(Date, StaysWithinTheCalendar) {
  EXPECT_FALSE(at(99, 12, 31));
  EXPECT_FALSE(at(10000, 1, 1));
  EXPECT_FALSE(at(2000, 0, 1));
  EXPECT_FALSE(at(2000, 1, -1));
  EXPECT_EQ(kDayZero.plusDays(11688), at(1999, 12, 31));
  EXPECT_EQ(kEmptyDate.plusDays(-1), kDayZero);
  EXPECT_THROW(kDayZero.plusDays(std::numeric_limits<std::int32_t>::max()), RunTimeError);
  EXPECT_THROW(kDayZero.plusDays(std::numeric_limits<std::int32_t>::min()), RunTimeError);
  // A date that no calendar holds still has a text, and no undefined arithmetic.
  EXPECT_FALSE(Date(std::numeric_limits<std::int32_t>::max()).text().empty());
  EXPECT_FALSE(Date(std::numeric_limits<std::int32_t>::min()).isoText().empty());
}

TEST(Date, IsoTexts) {
  EXPECT_EQ(Date::fromIso("2026-11-24T10:30:09"), at(2026, 11, 24, 10, 30, 9));
  for (const char* text : {"", "2026-11-24T", "2026-11-24T24:00:00", "2026-02-29", "2026-1-024",
                           "2026/11/24", "+026-11-24", "2026-11-24 10:30:00"}) {
    EXPECT_FALSE(Date::fromIso(text)) << text;
  }
}

TEST(Clock, CanBeSet) {
  EXPECT_GT(now(), *at(2020, 1, 1));
  setClock(at(2026, 11, 24, 10, 30));
  EXPECT_EQ(now().text(), "11/24/26 10:30:00 AM");
  setClock(std::nullopt);
  EXPECT_NE(now(), at(2026, 11, 24, 10, 30));
}

}  // namespace
}  // namespace dg
