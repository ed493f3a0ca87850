#include "tools/dgtool/recap_command.h"

#include "export/export_file.h"
#include "platform/text_file.h"
#include "tools/dgtool/store_group.h"
#include "tools/dgtool/xlsx_report.h"

namespace dg {

void RecapCommand::addOptions(CLI::App& app) {
  addStoresOption(app, stores_);
  CLI::Option* json = app.add_flag("--json", json_, "One JSON document");
  CLI::Option* csv = app.add_flag("--csv", csv_, "CSV, a line a figure and a column a store");
  app.add_option("--xlsx", workbook_, "Write a workbook to this file")
      ->type_name("FILE")
      ->excludes(json)
      ->excludes(csv);
  csv->excludes(json);
  app.add_flag("--progress", progress_, "Tell on standard error which store is begun");
  addStoreOptions(app, store_);
}

int RecapCommand::run(const Console& console) {
  if (!workbook_.empty()) checkWorkbookPath(workbook_);
  const std::vector<std::string> directories = wantedStores(stores_, store_, console);
  StoreGroup group(catalogue_, store_, console);
  if (progress_) group.tellProgress();
  const std::vector<StoreRecap> stores = group.load(directories);
  if (json_) {
    writeRecapJson(console.out, stores);
  } else if (csv_) {
    writeRecapCsv(console.out, stores);
  } else if (!workbook_.empty()) {
    writeExport(pathFromBytes(workbook_), recapWorkbook(stores));
  } else {
    writeRecapText(console.out, stores);
  }
  return group.isWhole() ? 0 : 1;
}

}  // namespace dg
