#pragma once

#include <optional>
#include <string_view>

#include "platform/values/date.h"

namespace dg {

/// What Date::parse and Date::fromIso do; callers use those.
std::optional<Date> parseDate(std::string_view text);
std::optional<Date> parseIsoDate(std::string_view text);

}  // namespace dg
