#pragma once

#include <cstdint>

namespace dg::test {

/// The greatest resident memory of this process so far, in KiB.
std::int64_t residentKilobytes();

}  // namespace dg::test
