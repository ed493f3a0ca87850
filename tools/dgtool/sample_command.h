#pragma once

#include "tools/dgtool/console.h"
#include "tools/dgtool/options.h"

namespace dg {

/// `dgtool sample`: writes an example store. Raises UsageError for a folder that holds something
/// else, and what the writer raises.
int runSample(const SampleCommandOptions& options, const Console& console);

}  // namespace dg
