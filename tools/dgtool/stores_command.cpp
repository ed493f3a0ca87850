#include "tools/dgtool/stores_command.h"

#include "tools/dgtool/store_group.h"
#include "tools/dgtool/text_table.h"
#include "tools/dgtool/window_json.h"

namespace dg {

void StoresCommand::addOptions(CLI::App& app) {
  app.add_flag("--json", json_, "One JSON document");
  addStoreOptions(app, store_);
}

int StoresCommand::run(const Console& console) {
  store_.noLog = true;
  const std::vector<KnownStore> stores = knownStores(store_, console);
  if (json_) {
    Json list = Json::array();
    for (const KnownStore& store : stores) {
      Json entry = {{"directory", jsonText(store.directory)},
                    {"name", jsonText(store.name)},
                    {"readable", store.error.empty()}};
      if (!store.error.empty()) entry["error"] = jsonText(store.error);
      list.push_back(std::move(entry));
    }
    writeJson(console.out, {{"stores", std::move(list)}});
    return 0;
  }
  for (const KnownStore& store : stores) {
    console.out << terminalText(store.directory) << "  "
                << terminalText(store.error.empty() ? store.name : "(" + store.error + ")") << '\n';
  }
  if (stores.empty()) console.out << "The link table names no store.\n";
  return 0;
}

}  // namespace dg
