#include "records/failure_log.h"

#include <utility>

namespace dg {

namespace {

FailureLog& failureLog() {
  static FailureLog log;
  return log;
}

}  // namespace

FailureLog setFailureLog(FailureLog log) {
  return std::exchange(failureLog(), std::move(log));
}

void reportFailure(std::string_view phrase, const RunTimeError& error) {
  if (failureLog().failure) failureLog().failure(phrase, error);
}

void reportLine(const std::string& line) {
  if (failureLog().line) failureLog().line(line);
}

}  // namespace dg
