#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace dg {

/// A date and time of day, to the second. Days count from 30 December 1899, which is the value of
/// a default-constructed date (the run-time's zero date).
class Date {
 public:
  constexpr Date() = default;
  constexpr explicit Date(std::int32_t days, std::int32_t seconds = 0)
      : days_(days), seconds_(seconds) {}

  /// A calendar day of the years 100 to 9999; nothing when there is no such day.
  static std::optional<Date> fromCalendar(int year, int month, int day);
  /// Month-first text such as "12/31/99", "1/5/1999", "11 24 2006 14:38:23", or a time alone.
  /// Separators are "/", "-", "," and blanks; a month's name may stand first or second. Times are
  /// "14:38", "14:38:23", "2:38:23 PM" or "2 PM". Two-digit years: 30 to 99 are 19yy, 00 to 29 are
  /// 20yy. Nothing when the text is no date: month and day never change places.
  static std::optional<Date> parse(std::string_view text);
  /// As parse, but raises error 13 when the text is no date.
  static Date fromText(std::string_view text);
  /// "2026-11-24" or "2026-11-24T10:30:00", and nothing else.
  static std::optional<Date> fromIso(std::string_view text);

  constexpr std::int32_t days() const { return days_; }
  constexpr std::int32_t secondOfDay() const { return seconds_; }
  int year() const;
  int month() const;
  int day() const;

  /// The day `count` days later at the same time of day. Raises error 6 when that lies outside the
  /// years 100 to 9999.
  Date plusDays(std::int32_t count) const;

  /// "M/d/yy": the short date form that every text of the program uses.
  std::string shortDateText() const;
  /// "h:mm:ss AM" or "h:mm:ss PM".
  std::string longTimeText() const;
  /// The run-time's plain text: the date, the time, or both, as far as they are not zero; of the
  /// zero date the time.
  std::string text() const;
  /// "yyyy-mm-dd".
  std::string isoText() const;

  constexpr bool operator==(const Date&) const = default;
  constexpr std::strong_ordering operator<=>(const Date& other) const {
    return days_ != other.days_ ? days_ <=> other.days_ : seconds_ <=> other.seconds_;
  }

 private:
  std::int32_t days_ = 0;
  std::int32_t seconds_ = 0;
};

/// The day from which the suite's day numbers count: 31 December 1967.
inline constexpr Date kDayZero{24837};
/// The suite's empty date: 1 January 1968.
inline constexpr Date kEmptyDate{24838};

}  // namespace dg
