#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace dg::sample {

/// A product line, as the families that belong to a line need it.
struct SampleLine {
  std::int32_t number = 0;
  std::string alpha;        ///< two-character code, first part of every part key
  char type = 'P';          ///< "P", "U" units or "R"; any other letter counts as "P"
  std::int32_t record = 0;  ///< in LINEL
};

/// What the families tell each other: a family fills its part and reads those of families before
/// it in the order of sample_store.cpp.
struct SampleWorld {
  std::vector<SampleLine> lines;  ///< all below 1000, in order of line number
};

}  // namespace dg::sample
