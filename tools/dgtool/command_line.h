#pragma once

namespace dg {

/// Runs dgtool with the arguments of main. Returns the exit status: 0 done, 1 a view ended in an
/// error or a check found damage, 2 the store cannot be reached or the command line is wrong.
int runDgtool(int argc, char** argv);

}  // namespace dg
