#include "records/digit_date.h"

#include "platform/values/date.h"
#include "platform/values/format.h"

namespace dg {

std::string digitDateText(std::int32_t digits) {
  return Format(digits, "##/##/##");
}

std::int32_t digitDateDay(std::int32_t digits) {
  return Date::fromText(digitDateText(digits)).days() - kDayZero.days();
}

}  // namespace dg
