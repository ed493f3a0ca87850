#pragma once

#include <cstdint>
#include <string>

#include "platform/date.h"

namespace dg {

/// What an example store holds and how much of it.
struct SampleOptions {
  std::uint64_t seed = 1;         ///< the same seed gives the same bytes
  int scale = 1;                  ///< multiplies the number of records; 1 is a small dealership
  Date asOf;                      ///< the day on which the store stands; dates lie before it
  bool warrantySegments = false;  ///< warranty claims per segment instead of whole ones
};

/// Writes a complete example store into a folder: share/, temp/ and config/. The folder is made
/// when missing; a store that stands there is replaced. Names and figures are invented. Raises 70,
/// 75 or 76 when a file cannot be written.
void writeSampleStore(const std::string& folder, const SampleOptions& options);

}  // namespace dg
