#pragma once

#include <string>
#include <vector>

#include "shell/view.h"
#include "tools/dgtool/console.h"

namespace dg {

/// Runs dgtool with the arguments of main. Returns the exit status: 0 done, 1 a view ended in an
/// error or a check found damage, 2 the store cannot be reached or the command line is wrong.
int runDgtool(int argc, char** argv);

/// The same with the arguments behind the program's name, writing to the given streams and with
/// the views of the given catalogue.
int runDgtool(const std::vector<std::string>& arguments, const Console& console,
              const ViewCatalogue& catalogue);

}  // namespace dg
