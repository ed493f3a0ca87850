#include "shell/start_problem.h"

#include "engine/catalog_configuration.h"
#include "engine/state.h"
#include "platform/environment.h"
#include "platform/file.h"
#include "shell/write_log.h"

namespace dg {

namespace {

constexpr const char* kAskSupport =
    "If the terminals work and this workstation does not, ask whoever looks after your network.";

/// A path of the share as the system here sees it, where that differs.
std::string alsoNative(const std::string& path) {
  const std::optional<std::string> native = nativePath(path);
  return native && *native != path ? path + "  (" + *native + ")" : path;
}

}  // namespace

std::optional<StartProblem> startProblem(const frmTRVN& main) {
  if (main.CurrentView() != nullptr) return std::nullopt;
  const std::string catalog = catalogPath();
  if (!fileSystem().fileExists(catalog)) {
    return StartProblem{"The workstation's settings file is not there.", catalog,
                        "The suite's workstation program writes it. Start that program once, then "
                        "try again."};
  }
  if (!SystemInfo || SystemInfo->mUNCDrive.empty()) {
    return StartProblem{"The workstation's settings file names no server.", catalog,
                        "It needs a line \"Server=\" below the heading \"[eZ-Lines]\"."};
  }
  const std::string root = SystemInfo->linkShare();
  if (!shareIsReachable(root)) {
    return StartProblem{
        "The server's share cannot be reached.", alsoNative(root),
        std::string("Is the server on, and this workstation on its network? ") + kAskSupport};
  }
  const std::string terminals = root + "ttymap";
  if (!fileSystem().fileExists(terminals)) {
    return StartProblem{"The table of terminals is not on the share.", alsoNative(terminals),
                        std::string("The suite keeps it there. ") + kAskSupport};
  }
  if (logFailure()) {
    return StartProblem{"The operation log cannot be written: " + logFailure()->description() + ".",
                        gsLogFile,
                        "Its folder must be there, and you must be allowed to write to it."};
  }
  return StartProblem{"The store could not be opened.", alsoNative(SystemInfo->VLMRLNK()),
                      "The log tells what happened. " + std::string(kAskSupport)};
}

}  // namespace dg
