#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>

#include "tools/check/findings.h"
#include "tools/check/store_reader.h"

namespace dg::check {

struct CheckOptions {
  /// Structures only: link table, directories, record zeros, indexes; no records and no chains.
  bool quick = false;
  /// Gets the name of each file as its turn comes.
  std::function<void(std::string_view)> progress;
};

/// How much was examined.
struct CheckedAmount {
  std::int64_t files = 0;         ///< logical files
  std::int64_t indexEntries = 0;  ///< leaf entries of indexes
  std::int64_t records = 0;       ///< records in use
};

/// Examines a store as far as its files allow; never raises for what stands in them. Time and
/// memory are bounded by the length of the files, whatever they hold.
CheckedAmount checkStore(StoreReader& store, Findings& findings, const CheckOptions& options);

}  // namespace dg::check
