#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "forms/signal.h"
#include "platform/values/run_time_error.h"

namespace dg {

extern std::string gsLogFile;  ///< full path of the operation log; set once in Main
extern std::string gsLogLine;  ///< the line about to be logged, or the last one that was

/// Appends a line to the log, which is opened and closed in this one call. Raises what the platform
/// raises when the log cannot be written.
void WriteLog(const std::string& path, const std::string& text);

/// Puts `line` into gsLogLine and writes it to the operation log, control characters other than
/// CR LF as blanks. Raises as WriteLog: for the lines that start and end a run.
void writeOperationLog(const std::string& line);

/// As writeOperationLog, but a log that cannot be written loses the line: for traps, which have no
/// caller to tell.
void logLine(const std::string& line);

/// Why the last line could not be written; none when it was written, or when nothing is logged.
const std::optional<RunTimeError>& logFailure();
/// Emitted when a line could not be written and the one before it could.
Signal<>& logFailed();

/// The two forms of a failure text: phrase, "error # :" and the number, a separator, description.
std::string shellFailureText(std::string_view phrase, const RunTimeError& error);  ///< CR LF
std::string viewFailureText(std::string_view phrase, const RunTimeError& error);   ///< two blanks

/// Whether lines are written at all; the command-line tool can turn it off. Returns what was.
bool setLogEnabled(bool enabled);
using LogObserver = std::function<void(const std::string& line)>;
/// Called with each line that is logged, whether written or not. Returns the one in force before.
LogObserver setLogObserver(LogObserver observer);

}  // namespace dg
