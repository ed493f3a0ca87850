#pragma once

#include "platform/values/run_time_error.h"

namespace dg {

/// The number of the run-time error that `action` raises; 0 when it raises none.
template <typename Action>
int errorNumber(Action&& action) {
  try {
    action();
  } catch (const RunTimeError& error) {
    return error.number();
  }
  return 0;
}

}  // namespace dg
