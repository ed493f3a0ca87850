#include "tools/dgtool/sample_command.h"

#include "platform/clock.h"
#include "platform/values/run_time_error.h"
#include "tools/sample/sample_store.h"

namespace dg {

namespace {

/// The writer's errors in the words of the command line.
UsageError explained(const RunTimeError& error, const std::string& folder) {
  switch (error.number()) {
    case kInvalidProcedureCall:
      return UsageError("--as-of: an example store stands on a day from 1970 to 2099");
    case kPathFileAccess:
      return UsageError(folder + " holds something other than an example store, or is no folder");
    default:
      return UsageError("cannot write " + folder + ": " + error.description());
  }
}

}  // namespace

int runSample(const SampleCommandOptions& options, const Console& console) {
  const Date today(now().days());
  try {
    writeSampleStore(options.folder, {.seed = options.seed,
                                      .scale = options.scale,
                                      .asOf = options.asOf.value_or(today),
                                      .warrantySegments = options.warrantySegments});
  } catch (const RunTimeError& error) {
    throw explained(error, options.folder);
  }
  console.out << "An example store stands in " << options.folder
              << "\nTo see it: dgtool report --store " << options.folder << '\n';
  return 0;
}

}  // namespace dg
