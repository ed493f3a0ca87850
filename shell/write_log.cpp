#include "shell/write_log.h"

#include <utility>

#include "platform/text.h"
#include "platform/text_file.h"
#include "shell/trap.h"

namespace dg {

std::string gsLogFile;
std::string gsLogLine;

namespace {

constexpr std::string_view kLineEnd = "\r\n";

bool logEnabled = true;

LogObserver& logObserver() {
  static LogObserver observer;
  return observer;
}

std::optional<RunTimeError>& failure() {
  static std::optional<RunTimeError> last;
  return last;
}

/// An entry may itself hold line ends; any other control character comes from a damaged record and
/// would break the log's lines.
std::string cleaned(std::string_view line) {
  std::string result;
  result.reserve(line.size());
  while (true) {
    const std::size_t end = line.find(kLineEnd);
    result += withoutControls(line.substr(0, end));
    if (end == std::string_view::npos) return result;
    result += kLineEnd;
    line.remove_prefix(end + kLineEnd.size());
  }
}

}  // namespace

void WriteLog(const std::string& path, const std::string& text) {
  appendText(path, text + std::string(kLineEnd));
}

void writeOperationLog(const std::string& line) {
  gsLogLine = cleaned(line);
  if (logObserver()) logObserver()(gsLogLine);
  if (!logEnabled) return;
  try {
    WriteLog(gsLogFile, gsLogLine);
    failure().reset();
  } catch (const RunTimeError& error) {
    const bool isNew = !failure();
    failure() = error;
    if (isNew) logFailed().emit();
    throw;
  }
}

const std::optional<RunTimeError>& logFailure() {
  return failure();
}

Signal<>& logFailed() {
  static Signal<> failed;
  return failed;
}

void logLine(const std::string& line) {
  suppressErrors([&] { writeOperationLog(line); });
}

std::string shellFailureText(std::string_view phrase, const RunTimeError& error) {
  return std::string(phrase) + "error # :" + std::to_string(error.number()) +
         std::string(kLineEnd) + error.description();
}

std::string viewFailureText(std::string_view phrase, const RunTimeError& error) {
  return std::string(phrase) + "error # :  " + std::to_string(error.number()) + "  " +
         error.description();
}

bool setLogEnabled(bool enabled) {
  failure().reset();
  return std::exchange(logEnabled, enabled);
}

LogObserver setLogObserver(LogObserver observer) {
  return std::exchange(logObserver(), std::move(observer));
}

}  // namespace dg
