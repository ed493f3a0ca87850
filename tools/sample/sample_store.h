#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/values/date.h"

namespace dg {

/// What an example store holds and how much of it.
struct SampleOptions {
  std::uint64_t seed = 1;         ///< the same seed gives the same bytes
  int scale = 1;                  ///< multiplies the number of records; 1 is a small dealership
  Date asOf = Date(46350);        ///< the day on which the store stands; dates lie before it
  bool warrantySegments = false;  ///< warranty claims per segment instead of whole ones
  int stores = 1;  ///< on the server; others than the first are of seeds that follow the first's
  int indexFill = 60;  ///< percent of an index node that is in use; less makes more levels
};

/// A file of an example store: its path below the store's folder, parted by "/", and its bytes.
struct SampleFile {
  std::string path;
  std::string content;
};

/// All files of an example store, in the order in which they are written. Names and figures are
/// invented. The workstation "PC7" is terminal 12 of server "SRV1", store directory "LNK001";
/// further stores are "LNK002" and so on. Raises 5 for a scale, a fill or a day that makes no
/// store.
std::vector<SampleFile> composeSampleStore(const SampleOptions& options);

/// Writes a complete example store into a folder: share/, temp/ and config/. The folder is made
/// when missing; an example store that stands there is replaced, in one step and only when the new
/// one is complete. A folder that holds anything else is left alone and raises 75. Raises 57, 61,
/// 70, 75 or 76 when a file cannot be written, and what composeSampleStore raises.
void writeSampleStore(const std::string& folder, const SampleOptions& options);

}  // namespace dg
