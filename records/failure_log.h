#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/values/run_time_error.h"

namespace dg {

/// Where a record class tells a failure that it traps itself: the shell connects it with the
/// operation log, which lies above this layer.
struct FailureLog {
  std::function<void(std::string_view phrase, const RunTimeError& error)> failure;
  std::function<void(const std::string& line)> line;  ///< for lines of a form of their own
};

/// Returns the log in force before.
FailureLog setFailureLog(FailureLog log);
/// Pass a failure or a whole line on; do nothing while no log is connected.
void reportFailure(std::string_view phrase, const RunTimeError& error);
void reportLine(const std::string& line);

}  // namespace dg
