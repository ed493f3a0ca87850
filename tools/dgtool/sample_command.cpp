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

void SampleCommand::addOptions(CLI::App& app) {
  app.add_option("DIR", options_.folder, "Folder of the store; one that stands there is replaced")
      ->required();
  addParsed(app, "--seed", options_.seed, parseSeed, "a whole number from 0 on",
            "The same seed gives the same store")
      ->type_name("N")
      ->default_str("1");
  app.add_option("--scale", options_.scale, "Multiplies the number of records")
      ->type_name("N")
      ->capture_default_str()
      ->check(CLI::Range(1, 1000));
  app.add_option("--stores", options_.stores, "Number of stores on the server")
      ->type_name("N")
      ->capture_default_str()
      ->check(CLI::Range(1, 99));
  addParsed(app, "--as-of", options_.asOf, parseMoment, "a day such as 2026-11-24",
            "The day on which the store stands; today if not given")
      ->type_name("DAY");
  app.add_flag("--warranty-segments", options_.warrantySegments,
               "Bill warranty claims segment by segment");
}

int SampleCommand::run(const Console& console) {
  const Date today(now().days());
  try {
    writeSampleStore(options_.folder, {.seed = options_.seed,
                                       .scale = options_.scale,
                                       .asOf = options_.asOf.value_or(today),
                                       .warrantySegments = options_.warrantySegments,
                                       .stores = options_.stores});
  } catch (const RunTimeError& error) {
    throw explained(error, options_.folder);
  }
  console.out << "An example store stands in " << options_.folder
              << "\nTo see it: dgtool report --store " << options_.folder << '\n';
  return 0;
}

}  // namespace dg
