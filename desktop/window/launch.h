#pragma once

#include <string>

namespace dg {

/// Exit statuses of the program.
inline constexpr int kStarted = 0;
inline constexpr int kRefused = 1;    ///< the launch token was not given
inline constexpr int kNoDisplay = 2;  ///< there is no display to show windows on
inline constexpr int kOutOfMemoryStatus = 2;

/// Everything behind the program's name on the command line, as one text.
std::string commandTail(int argc, char** argv);

class DesktopPresenter;

/// Ends the program as closing its main window does, but in its own time: what is open above that
/// window is closed first, and a load under way comes to its end, since code of the window's pages
/// still runs below them.
void endProgram(const DesktopPresenter& presenter);

/// Runs the desktop program from start to end and returns its exit status.
int runDesktop(int argc, char** argv);

}  // namespace dg
