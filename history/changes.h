#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>

#include "history/kept_figure.h"

namespace dg {

/// How a figure changed against an older day.
struct Change {
  KeptValue from;
  Currency amount;                     ///< newer less older
  std::optional<std::int64_t> count;   ///< the same of counts, where both days have one
  std::optional<std::string> percent;  ///< of the older amount's size, two decimals; none of 0
};

/// Nothing where no such day is kept.
std::optional<Change> changeFrom(const std::optional<KeptValue>& older, const KeptValue& newer);

/// The days that a figure is compared with.
struct FigureChanges {
  std::optional<Change> day;    ///< the kept day before
  std::optional<Change> week;   ///< the last one at least 7 days back
  std::optional<Change> month;  ///< the same day of last month, or the last up to 7 days before it
  std::optional<Change> year;   ///< the same day of last year, likewise
};

/// Finds the last kept day that is not later than one day and not before another.
using FindLast = std::function<std::optional<KeptValue>(Date notAfter, Date notBefore)>;

FigureChanges changesOf(const KeptValue& newest, const FindLast& findLast);
/// Of the last of these days, which stand in order; all empty without days.
FigureChanges changesOf(std::span<const KeptValue> days);

/// The same day so many months before, or the last day of a month that is shorter.
Date monthsBefore(Date day, int months);
/// The last kept day that stands for the same day so many months before.
std::optional<KeptValue> sameDayBefore(Date day, int months, const FindLast& findLast);

}  // namespace dg
