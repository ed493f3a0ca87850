#include "platform/values/date.h"

#include <array>
#include <cstdio>

#include "platform/values/date_parser.h"
#include "platform/values/run_time_error.h"

namespace dg {

namespace {

constexpr int kFirstYear = 100;
constexpr int kLastYear = 9999;
constexpr std::int32_t kFirstDay = -657434;  // 1 January 100
constexpr std::int32_t kLastDay = 2958465;   // 31 December 9999

constexpr bool isLeapYear(int year) {
  return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

constexpr int daysInMonth(int year, int month) {
  constexpr std::array<int, 12> kDays{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return month == 2 && isLeapYear(year) ? 29 : kDays[static_cast<std::size_t>(month - 1)];
}

struct Calendar {
  std::int64_t year;
  int month;
  int day;
};

constexpr std::int64_t kDaysInEra = 146097;  // 400 years, after which the calendar repeats
constexpr std::int64_t kZeroDay = 693899;    // days from 1 March 0 to 30 December 1899

// Years are counted from 1 March here, so that the leap day is a year's last day and the months'
// lengths follow one formula.
constexpr std::int64_t dayNumber(int year, int month, int day) {
  const std::int64_t marchYear = month > 2 ? year : year - 1;
  const std::int64_t era = (marchYear >= 0 ? marchYear : marchYear - 399) / 400;
  const std::int64_t yearOfEra = marchYear - era * 400;
  const std::int64_t dayOfYear = (153 * (month > 2 ? month - 3 : month + 9) + 2) / 5 + day - 1;
  const std::int64_t dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
  return era * kDaysInEra + dayOfEra - kZeroDay;
}

constexpr Calendar calendarOf(std::int64_t days) {
  const std::int64_t shifted = days + kZeroDay;
  const std::int64_t era = (shifted >= 0 ? shifted : shifted - (kDaysInEra - 1)) / kDaysInEra;
  const std::int64_t dayOfEra = shifted - era * kDaysInEra;
  const std::int64_t yearOfEra =
      (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / (kDaysInEra - 1)) / 365;
  const std::int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
  const std::int64_t marchMonth = (5 * dayOfYear + 2) / 153;
  const int day = static_cast<int>(dayOfYear - (153 * marchMonth + 2) / 5 + 1);
  const int month = static_cast<int>(marchMonth < 10 ? marchMonth + 3 : marchMonth - 9);
  return {yearOfEra + era * 400 + (month <= 2 ? 1 : 0), month, day};
}

static_assert(dayNumber(1899, 12, 30) == 0);
static_assert(dayNumber(1967, 12, 31) == kDayZero.days());
static_assert(dayNumber(1968, 1, 1) == kEmptyDate.days());
static_assert(dayNumber(kFirstYear, 1, 1) == kFirstDay);
static_assert(dayNumber(kLastYear, 12, 31) == kLastDay);

template <typename... Numbers>
std::string print(const char* pattern, Numbers... numbers) {
  std::array<char, 64> buffer{};
  const int size = std::snprintf(buffer.data(), buffer.size(), pattern, numbers...);
  return {buffer.data(), static_cast<std::size_t>(size)};
}

}  // namespace

std::optional<Date> Date::fromCalendar(int year, int month, int day) {
  if (year < kFirstYear || year > kLastYear || month < 1 || month > 12) return std::nullopt;
  if (day < 1 || day > daysInMonth(year, month)) return std::nullopt;
  return Date(static_cast<std::int32_t>(dayNumber(year, month, day)));
}

std::optional<Date> Date::parse(std::string_view text) {
  return parseDate(text);
}

Date Date::fromText(std::string_view text) {
  const std::optional<Date> date = parse(text);
  if (!date) throw RunTimeError(kTypeMismatch);
  return *date;
}

std::optional<Date> Date::fromIso(std::string_view text) {
  return parseIsoDate(text);
}

int Date::year() const {
  return static_cast<int>(calendarOf(days_).year);
}
int Date::month() const {
  return calendarOf(days_).month;
}
int Date::day() const {
  return calendarOf(days_).day;
}

Date Date::plusDays(std::int32_t count) const {
  const std::int64_t days = std::int64_t{days_} + count;
  if (days < kFirstDay || days > kLastDay) throw RunTimeError(kOverflow);
  return Date(static_cast<std::int32_t>(days), seconds_);
}

std::string Date::shortDateText() const {
  const Calendar calendar = calendarOf(days_);
  const int yearOfCentury = static_cast<int>((calendar.year % 100 + 100) % 100);
  const std::string year = std::to_string(yearOfCentury);
  return std::to_string(calendar.month) + '/' + std::to_string(calendar.day) +
         (year.size() < 2 ? "/0" : "/") + year;
}

std::string Date::longTimeText() const {
  const int hour = seconds_ / 3600;
  return print("%d:%02d:%02d %s", (hour + 11) % 12 + 1, seconds_ / 60 % 60, seconds_ % 60,
               hour < 12 ? "AM" : "PM");
}

std::string Date::text() const {
  if (days_ == 0) return longTimeText();
  if (seconds_ == 0) return shortDateText();
  return shortDateText() + ' ' + longTimeText();
}

std::string Date::isoText() const {
  const Calendar calendar = calendarOf(days_);
  return print("%04d-%02d-%02d", static_cast<int>(calendar.year), calendar.month, calendar.day);
}

}  // namespace dg
