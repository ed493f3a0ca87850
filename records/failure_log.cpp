#include "records/failure_log.h"

#include <utility>

namespace dg {

namespace {

FailureLog& failureLog() {
  static FailureLog log;
  return log;
}

}  // namespace

void setFailureLog(FailureLog log) {
  failureLog() = std::move(log);
}

void reportFailure(std::string_view phrase, const RunTimeError& error) {
  if (failureLog()) failureLog()(phrase, error);
}

}  // namespace dg
