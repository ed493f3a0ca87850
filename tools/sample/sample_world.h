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

/// A part of a line; partKey (families/part_key.h) makes its key in PARTI.
struct SamplePart {
  std::string lineCode;
  std::string number;       ///< without dashes, up to 12 characters
  std::int32_t cost = 0;    ///< cents; 0 where the record has none
  std::int32_t record = 0;  ///< in PARTL
};

/// A counterman, sales person or mechanic with an index entry of its own.
struct SampleCounterman {
  std::int32_t number = 0;  ///< those of the smallest store fit a byte, as shop jobs hold them
  std::string name;
  std::int32_t record = 0;  ///< in MANL
};

struct SampleCustomer {
  std::int32_t account = 0;  ///< key in CUSTI
  std::string name;
};

/// What the families tell each other: a family fills its part and reads those of families before
/// it in the order of sample_store.cpp.
struct SampleWorld {
  std::vector<SampleLine> lines;  ///< all below 1000, in order of line number
  std::vector<SamplePart> parts;
  std::vector<SampleCounterman> countermen;
  std::vector<std::int32_t> vendors;  ///< numbers that VNDRI holds, 1 to 999, in order
  std::vector<SampleCustomer> customers;
};

}  // namespace dg::sample
