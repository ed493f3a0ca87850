#pragma once

#include <optional>

#include "platform/values/date.h"

namespace dg {

/// The local date and time, or the fixed moment that setClock gave.
Date now();
/// Replaces the clock for the whole process; nothing restores the system's. Returns what was.
std::optional<Date> setClock(std::optional<Date> moment);

}  // namespace dg
