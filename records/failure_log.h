#pragma once

#include <functional>
#include <string_view>

#include "platform/values/run_time_error.h"

namespace dg {

/// Where a record class tells a failure that it traps itself: the shell connects it with the
/// operation log, which lies above this layer.
using FailureLog = std::function<void(std::string_view phrase, const RunTimeError& error)>;

/// Returns the log in force before.
FailureLog setFailureLog(FailureLog log);
/// Passes a failure on; does nothing while no log is connected.
void reportFailure(std::string_view phrase, const RunTimeError& error);

}  // namespace dg
