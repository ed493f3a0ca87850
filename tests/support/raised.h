#pragma once

#include <gtest/gtest.h>
#include <ostream>
#include <string>
#include <utility>

#include "platform/values/run_time_error.h"

namespace dg::test {

/// What a step raised, comparable as a whole: number, source and description.
struct Raised {
  int number = 0;
  std::string source;
  std::string description;

  bool operator==(const Raised&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const Raised& error) {
  return out << error.number << " \"" << error.source << "\" \"" << error.description << '"';
}

/// Runs a step that must raise; number 0 when it did not. See errorNumber for the number alone.
template <class Step>
Raised raised(Step&& step) {
  try {
    std::forward<Step>(step)();
  } catch (const RunTimeError& error) {
    return {error.number(), error.source(), error.description()};
  }
  return {};
}

}  // namespace dg::test
