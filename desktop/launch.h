#pragma once

#include <string>

namespace dg {

/// Exit statuses of the program.
inline constexpr int kStarted = 0;
inline constexpr int kRefused = 1;    ///< the launch token was not given
inline constexpr int kNoDisplay = 2;  ///< there is no display to show windows on

/// Everything behind the program's name on the command line, as one text.
std::string commandTail(int argc, char** argv);

/// Runs the desktop program from start to end and returns its exit status.
int runDesktop(int argc, char** argv);

}  // namespace dg
