#pragma once

#include <cstdint>
#include <functional>

#include "records/lines.h"

namespace dg {

/// Calls `visit` for each product line of the dealership's own, those below 1000, in the order of
/// "LINEI", with the number that the index has. Raises what the engine and `visit` raise.
void forEachOwnLine(const std::function<void(std::int32_t number, const clsLines& line)>& visit);

/// The same lines as stock and profit list them: from number 1 on, and no further than the first
/// entry that points to no record. `record` is the line's main record.
void forEachListedLine(
    const std::function<void(const clsLines& line, const std::string& record)>& visit);

}  // namespace dg
