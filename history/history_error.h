#pragma once

#include <stdexcept>

namespace dg {

/// A history that cannot be opened, read or written. The text (UTF-8) names the file and the
/// reason; whoever wanted the history tells it and goes on without.
class HistoryError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace dg
