#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "records/units.h"

namespace dg {

/// Calls `visit` for each unsold unit of a line with its cost, in the order of "LUNITI". A unit is
/// unsold while its sale date is the empty date; its cost is the sum of its ledger chain, 0 without
/// one. Raises what the engine and `visit` raise, and 6 for a chain that leads in a circle.
void forEachUnsoldUnit(std::int32_t line,
                       const std::function<void(const clsUnits&, Currency cost)>& visit);

/// Calls `visit` for each product line of units with the cost of the unsold ones. Raises as
/// forEachUnsoldUnit.
void forEachUnitLine(
    const std::function<void(std::int32_t line, const std::string& name, Currency cost)>& visit);

}  // namespace dg
