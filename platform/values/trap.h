#pragma once

#include <functional>
#include <new>

#include "platform/values/run_time_error.h"

namespace dg {

/// Runs the body of a routine that traps all run-time errors; `handler` gets the error. Returns
/// whether the body ran to its end. Running out of memory counts as run-time error 7.
bool trapErrors(const std::function<void()>& body,
                const std::function<void(const RunTimeError&)>& handler);

/// Runs one statement or a few whose errors the program ignores, running out of memory included;
/// keep what is inside small. Returns whether all went well.
template <class Body>
bool suppressErrors(Body&& body) {
  return trapErrors(body, [](const RunTimeError&) {});
}

}  // namespace dg
