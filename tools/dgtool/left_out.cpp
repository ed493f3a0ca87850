#include "tools/dgtool/left_out.h"

#include "platform/unopened_files.h"

namespace dg {

std::vector<std::string> shareWarnings(const frmTRVN& main) {
  std::vector<std::string> lines;
  if (!main.lostShare().empty()) {
    lines.push_back("The share " + main.lostShare() +
                    " could not be reached at the end: figures may be missing.");
  }
  if (const std::string warning = unopenedWarning(); !warning.empty()) lines.push_back(warning);
  return lines;
}

std::vector<std::string> kindWarnings(std::span<const KindResult> kinds) {
  std::vector<std::string> lines;
  for (const KindResult& kind : kinds) {
    if (kind.isWhole()) continue;
    lines.push_back(std::string(entryOf(kind.kind).name) + ": " +
                    (kind.error.empty() ? "could not be read completely" : kind.error));
  }
  return lines;
}

void addUnopenedFiles(Json& document) {
  const UnopenedFiles& unopened = unopenedFiles();
  if (unopened.count == 0) return;
  Json names = Json::array();
  for (const std::string& name : unopened.names)
    names.push_back(jsonText(name));
  document["unopened"] = {{"count", unopened.count}, {"names", std::move(names)}};
}

}  // namespace dg
