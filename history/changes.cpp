#include "history/changes.h"

#include <algorithm>
#include <cstdint>

#include "platform/values/run_time_error.h"

namespace dg {

namespace {

constexpr int kWeek = 7;
constexpr int kMonthsOfYear = 12;
/// The first day that dates count from: nothing is kept before it.
constexpr Date kFirst;

/// 100 * part / whole with two decimals, halves away from zero; nothing beyond all reason.
std::optional<std::string> percentText(Currency part, Currency whole) {
  constexpr std::uint64_t kFactor = 10'000;
  const auto size = [](Currency value) {
    const auto bits = static_cast<std::uint64_t>(value.tenThousandths());
    return value < Currency() ? 0 - bits : bits;
  };
  std::uint64_t divisor = size(whole);
  std::uint64_t dividend = size(part);
  // The remainder is to be multiplied: figures near the end of the range lose their last digits.
  while (divisor > UINT64_MAX / kFactor / 2) {
    divisor /= 10;
    dividend /= 10;
  }
  const std::uint64_t times = dividend / divisor;
  if (times > UINT64_MAX / kFactor / 2) return std::nullopt;
  const std::uint64_t rest = (dividend % divisor * kFactor * 2 + divisor) / (divisor * 2);
  const std::uint64_t hundredths = times * kFactor + rest;
  std::string digits = std::to_string(hundredths);
  if (digits.size() < 3) digits.insert(0, 3 - digits.size(), '0');
  digits.insert(digits.size() - 2, ".");
  return (part < Currency() && hundredths != 0 ? "-" : "") + digits;
}

}  // namespace

std::optional<Change> changeFrom(const std::optional<KeptValue>& older, const KeptValue& newer) {
  if (!older) return std::nullopt;
  Change change{.from = *older, .amount = {}, .count = std::nullopt, .percent = std::nullopt};
  try {
    change.amount = newer.amount - older->amount;
  } catch (const RunTimeError&) {
    return std::nullopt;  // no figure of a store is that large: another hand has been at the file
  }
  if (newer.count && older->count) change.count = *newer.count - *older->count;
  if (older->amount != Currency()) change.percent = percentText(change.amount, older->amount);
  return change;
}

Date monthsBefore(Date day, int months) {
  const int month = day.year() * kMonthsOfYear + day.month() - 1 - months;
  for (int last = day.day();; --last) {
    const auto found = Date::fromCalendar(month / kMonthsOfYear, month % kMonthsOfYear + 1, last);
    // Before the years that there are, nothing is kept either.
    if (found || last == 1) return found.value_or(kFirst);
  }
}

std::optional<KeptValue> sameDayBefore(Date day, int months, const FindLast& findLast) {
  const Date same = monthsBefore(Date(day.days()), months);
  return findLast(same, Date(same.days() - kWeek));
}

FigureChanges changesOf(const KeptValue& newest, const FindLast& findLast) {
  const std::int32_t day = newest.day.days();
  return {.day = changeFrom(findLast(Date(day - 1), kFirst), newest),
          .week = changeFrom(findLast(Date(day - kWeek), kFirst), newest),
          .month = changeFrom(sameDayBefore(newest.day, 1, findLast), newest),
          .year = changeFrom(sameDayBefore(newest.day, kMonthsOfYear, findLast), newest)};
}

FigureChanges changesOf(std::span<const KeptValue> days) {
  if (days.empty()) return {};
  return changesOf(days.back(), [days](Date notAfter, Date notBefore) {
    const auto end = std::ranges::upper_bound(days, notAfter, {}, &KeptValue::day);
    const bool found = end != days.begin() && std::prev(end)->day >= notBefore;
    return found ? std::optional(*std::prev(end)) : std::nullopt;
  });
}

}  // namespace dg
