#pragma once

#include <cstdint>
#include <string>
#include <variant>

#include "platform/values/currency.h"
#include "platform/values/date.h"

namespace dg {

/// A value of any kind that a grid cell or a display line can hold. std::monostate is the empty
/// value of a cell that nothing has set.
using Variant = std::variant<std::monostate, std::int32_t, double, Currency, Date, std::string>;

/// The run-time's plain text of a value: numbers without trailing zeros or thousands separators,
/// dates as M/d/yy, the empty value as the empty text.
std::string toText(const Variant& value);

}  // namespace dg
