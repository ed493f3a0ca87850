#pragma once

#include <cstdint>
#include <string>

#include "engine/layout.h"

namespace dg {

// The general ledger's files, which no record class covers.

/// Layout of an account of the chart, "CHRTL".
namespace chart_record {
inline constexpr NumberField kCompany{'C', 3};
inline constexpr NumberField kAccount{'L', 5};
inline constexpr TextField kKind{9, 1};  ///< "A" asset, "L" liability; others exist
inline constexpr TextField kDescription{10, 30};
}  // namespace chart_record

/// Layout of a posting, "GLDTL".
namespace ledger_detail {
inline constexpr NumberField kAccount{'L', 5};
inline constexpr NumberField kSign{'B', 53};
inline constexpr NumberField kMillions{'C', 54};
inline constexpr NumberField kAmount{'L', 56};  ///< cents

/// The sign of a posting whose amount counts negative.
inline constexpr std::int32_t kNegative = 1;
/// Cents of a million: they count as positive, whatever the sign says.
inline constexpr double kMillion = 1000000;
}  // namespace ledger_detail

/// The key of an account in "CHRTI".
std::string chartKey(std::int32_t company, std::int32_t account);
/// Where the postings of an account begin in "GLDTI".
std::string ledgerDetailKey(std::int32_t company, std::int32_t account);

}  // namespace dg
