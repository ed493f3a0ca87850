#pragma once

#include "tools/dgtool/console.h"
#include "tools/dgtool/options.h"

namespace dg {

/// `dgtool check`: examines the store's files. Returns 1 when there is damage, else 0. Raises
/// UsageError when the store cannot be reached.
int runCheck(const CheckCommandOptions& options, const Console& console);

}  // namespace dg
