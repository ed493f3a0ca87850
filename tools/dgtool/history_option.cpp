#include "tools/dgtool/history_option.h"

#include "history/history.h"
#include "platform/text.h"
#include "platform/text_file.h"
#include "tools/dgtool/console.h"

namespace dg {

void addHistoryOption(CLI::App& app, std::string& file) {
  app.add_option("--history", file, "File that keeps the figures, in place of the user's own")
      ->type_name("FILE");
}

std::string storeName(const StoreKey& store) {
  return terminalText(bytesFromUtf8(store.server + " " + store.directory));
}

std::filesystem::path historyFile(const std::string& file) {
  const std::filesystem::path path = file.empty() ? defaultHistoryFile() : pathFromBytes(file);
  if (path.empty()) throw UsageError("there is no folder for the history; name a file: --history");
  return path;
}

}  // namespace dg
