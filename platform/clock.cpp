#include "platform/clock.h"

#include <algorithm>
#include <ctime>
#include <utility>

namespace dg {

namespace {

std::optional<Date>& fixedMoment() {
  static std::optional<Date> moment;
  return moment;
}

}  // namespace

Date now() {
  if (fixedMoment()) return *fixedMoment();
  const std::time_t moment = std::time(nullptr);
  // The program reads its clock from one thread, so the library's shared buffer does no harm.
  const std::tm* const local = std::localtime(&moment);
  if (local == nullptr) return {};
  const std::optional<Date> day =
      Date::fromCalendar(local->tm_year + 1900, local->tm_mon + 1, local->tm_mday);
  const int second = std::min(local->tm_sec, 59);  // 60 is a leap second
  return Date(day.value_or(Date()).days(), (local->tm_hour * 60 + local->tm_min) * 60 + second);
}

std::optional<Date> setClock(std::optional<Date> moment) {
  return std::exchange(fixedMoment(), moment);
}

}  // namespace dg
