#pragma once

#include <cstdint>

namespace dg {

/// Whether the company option at a 1-based position of the control file's option record is "Y".
/// A failure is logged and gives false.
bool GetOption(std::int32_t position);

}  // namespace dg
