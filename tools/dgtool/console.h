#pragma once

#include <ostream>
#include <stdexcept>
#include <string>
#include <string_view>

#include "export/printable.h"

namespace dg {

/// Where a run of dgtool writes: answers to `out`, everything else to `err`.
struct Console {
  std::ostream& out;
  std::ostream& err;
  bool errIsTerminal = false;  ///< whether progress may be shown on `err`

  /// Writes "dgtool: " and the text, which is Windows-1252 bytes, as one line of `err`.
  void complain(std::string_view text) const;
};

/// A request that cannot be met as it stands: exit status 2 with this text (UTF-8).
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace dg
