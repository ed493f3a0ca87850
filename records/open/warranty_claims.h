#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "records/warranty.h"
#include "records/warranty_lines.h"

namespace dg {

/// How a claim's entry in the index is shown, and found again: its number there, and its cells.
struct ClaimReference {
  std::int32_t number = 0;
  std::string shopReference;
  std::string segment;  ///< empty where claims are whole
};

/// A claim of the first kind, billed and not yet settled.
struct BilledClaim {
  const clsWarranty& claim;
  const ClaimReference& reference;
  std::int32_t billedDigits;    ///< MMDDYY
  const clsWarrDetail& detail;  ///< its totals; in error where its lines could not be read
};

/// Calls `visit` for each billed claim in the order of "WARRI". `bySegments`: the index carries the
/// shop reference with a two-digit segment number behind it; a number without room for one raises
/// 5. Raises what the engine and `visit` raise.
void forEachBilledClaim(bool bySegments, const std::function<void(const BilledClaim&)>& visit);

/// The customer of a claim as its view shows him.
std::string claimCustomer(const clsWarranty& claim, bool bySegments);

}  // namespace dg
