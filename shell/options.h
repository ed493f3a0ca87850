#pragma once

#include <cstdint>
#include <string>

namespace dg {

/// Whether the company option at a 1-based position of the control file's option record is "Y".
/// A failure is logged and gives false.
bool GetOption(std::int32_t position);

/// Puts dashes into a part number by its line's mask; the first argument is changed as well.
std::string FormatPartNumber(std::string& part, const std::string& mask);

}  // namespace dg
