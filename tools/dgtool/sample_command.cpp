#include "tools/dgtool/sample_command.h"

#include <filesystem>

#include "platform/clock.h"
#include "tools/sample/sample_store.h"

namespace dg {

namespace {

namespace fs = std::filesystem;

/// A store that stands in the folder is replaced; anything else there is somebody's work.
void checkFolder(const fs::path& folder) {
  std::error_code ignored;
  if (!fs::exists(folder, ignored)) return;
  if (!fs::is_directory(folder, ignored)) {
    throw UsageError(folder.string() + " is no folder");
  }
  if (!fs::is_empty(folder, ignored) && !fs::is_directory(folder / "share", ignored)) {
    throw UsageError(folder.string() + " is not empty and holds no example store");
  }
}

}  // namespace

int runSample(const SampleCommandOptions& options, const Console& console) {
  checkFolder(options.folder);
  const Date today(now().days());
  writeSampleStore(options.folder, {.seed = options.seed,
                                    .scale = options.scale,
                                    .asOf = options.asOf.value_or(today),
                                    .warrantySegments = options.warrantySegments});
  console.out << "An example store stands in " << options.folder
              << "\nTo see it: dgtool report --store " << options.folder << '\n';
  return 0;
}

}  // namespace dg
