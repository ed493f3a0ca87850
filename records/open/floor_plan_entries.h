#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "records/floor_plan.h"

namespace dg {

/// Calls `visit` for each open entry of a line with its cost, in the order of "FPLNI". Open is what
/// is still on the floor: not sold and not invoiced. The cost of an entry that has none is the part
/// cost of its model. Raises what the engine and `visit` raise.
void forEachOpenEntry(std::int32_t line,
                      const std::function<void(const clsFloorPlan&, Currency cost)>& visit);

/// Calls `visit` for each product line of the dealership's own with the cost of its open entries, 0
/// where there is none. Raises as forEachOpenEntry.
void forEachFloorPlanLine(
    const std::function<void(std::int32_t line, const std::string& name, Currency cost)>& visit);

}  // namespace dg
