#pragma once

#include <memory>
#include <string>
#include <vector>

#include "shell/main_window.h"

namespace dg {

/// What the suite's main menu passes on the command line.
inline constexpr const char* kLaunchToken = "7Q809R21T";

/// Sets gsLogFile from the environment's "TEMP".
void setLogFile();

/// Lets failures that record classes trap themselves go to the operation log.
void connectFailureLog();

/// The start behind the launch check, for programs that need no token: shows the splash, loads and
/// shows the main window. `only`: names of the views to load, all when empty.
std::unique_ptr<frmTRVN> startProgram(const ViewCatalogue& catalogue,
                                      std::vector<std::string> only = {});

/// The process's entry: checks the launch token (`commandTail` is everything behind the program's
/// name as one text), shows the splash, loads and shows the main window. Empty when the token
/// differs: a message has been shown and nothing has been touched.
std::unique_ptr<frmTRVN> Main(const std::string& commandTail, const ViewCatalogue& catalogue);

}  // namespace dg
