#pragma once

#include <functional>
#include <new>
#include <string_view>

#include "forms/form.h"
#include "platform/values/run_time_error.h"

namespace dg {

/// Runs the body of a routine that traps all run-time errors; `handler` gets the error. Returns
/// whether the body ran to its end. Running out of memory counts as run-time error 7.
bool trapErrors(const std::function<void()>& body,
                const std::function<void(const RunTimeError&)>& handler);

/// The trap of a view: on an error the phrase, number and description go to the log with a leading
/// "*", after `failed` has run (which marks the view's recap label); the view is incomplete then.
/// Returns whether all went well.
bool trapView(Form& view, std::string_view phrase, const std::function<void()>& body,
              const std::function<void()>& failed = {});

/// Runs one statement or a few whose errors the program ignores, running out of memory included;
/// keep what is inside small. Returns whether all went well.
template <class Body>
bool suppressErrors(Body&& body) {
  return trapErrors(body, [](const RunTimeError&) {});
}

}  // namespace dg
