#pragma once

#include <cstdint>
#include <functional>

#include "records/lines.h"

namespace dg {

/// Calls `visit` for each product line of the dealership's own, those below 1000, in the order of
/// "LINEI", with the number that the index has. Raises what the engine and `visit` raise.
void forEachOwnLine(const std::function<void(std::int32_t number, const clsLines& line)>& visit);

}  // namespace dg
