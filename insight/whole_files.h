#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "insight/attention_kinds.h"

namespace dg {

/// Told of the records read so far, out of how many at most (0: unknown); false ends the reading.
using ReadProgress = std::function<bool(std::int64_t done, std::int64_t most)>;

/// What a kind of whole files found.
struct WholeFileItems {
  std::vector<OpenWork> items;
  std::string error;  ///< why there is nothing; empty when all was read
};

/// Both kinds of customers out of one reading: past due, then over their limit. Each record of
/// "CUSTI" counts, in its order; one that is too short for a field is left out. Nothing when
/// `progress` ended it. Leaves log and packed-text table alone; never raises.
std::optional<std::array<WholeFileItems, 2>> readCustomers(const ReadProgress& progress);

/// The parts of "PARTI" that are on hand with nothing asked for or received for more than `days`
/// before `today`. The rest as readCustomers.
std::optional<WholeFileItems> readIdleParts(Date today, int days, const ReadProgress& progress);

}  // namespace dg
