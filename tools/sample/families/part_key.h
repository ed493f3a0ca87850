#pragma once

#include <string>
#include <string_view>

namespace dg::sample {

inline constexpr int kPartKeyWidth = 14;

/// A part's key in PARTI, and what document lines carry of it: line code and part number, packed.
std::string partKey(std::string_view lineCode, std::string_view number);

}  // namespace dg::sample
