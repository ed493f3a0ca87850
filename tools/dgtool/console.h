#pragma once

#include <ostream>
#include <stdexcept>
#include <string>
#include <string_view>

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

/// Record bytes as UTF-8 without any control character: what may go to a terminal.
std::string terminalText(std::string_view bytes);

/// The same as bytes of the code page, for texts that are still to be padded.
std::string printableBytes(std::string_view bytes);

}  // namespace dg
