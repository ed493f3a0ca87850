#include "tools/dgtool/command.h"

namespace dg {

void addStoreOptions(CLI::App& app, StoreOptions& store) {
  const auto text = [&](const char* name, std::string& target, const char* type,
                        const char* description) {
    app.add_option(name, target, description)
        ->type_name(type)
        ->group("Store")
        ->check([](const std::string& value) {
          return value.empty() ? std::string("must not be empty") : std::string();
        });
  };
  text("--store", store.store, "DIR", "An example store: names share, temp and settings at once");
  text("--temp", store.temp, "DIR", "Folder of cQTCatalog.ini and of the operation log");
  text("--share-root", store.shareRoot, "DIR", "Folder that holds SERVER/SHARE/...");
  text("--computer", store.computer, "NAME", "Name of this workstation");
  text("--directory", store.directory, "NAME", "Store directory in place of the catalog's");
  text("--settings", store.settings, "FILE", "File of the saved account lists");
  addParsed(app, "--as-of", store.asOf, parseMoment, "a moment such as 2026-11-24T10:30:00",
            "Date and time to take for now, as 2026-11-24T10:30:00")
      ->type_name("MOMENT")
      ->group("Store");
  app.add_flag("--no-log", store.noLog, "Write nothing to the operation log")->group("Store");
}

}  // namespace dg
