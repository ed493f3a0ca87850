#include "tools/check/terminal_checker.h"

#include <algorithm>

#include "engine/text_utilities.h"
#include "tools/check/text.h"

namespace dg::check {

namespace {

const std::string kTable = "ttymap";
// Start-up reads the table in whole: a long one is not the suite's.
constexpr std::int64_t kMostBytes = 1 << 20;

Place table() {
  return {.file = kTable, .physical = kTable};
}

bool hasTerminal(std::string_view text) {
  while (!text.empty()) {
    const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
    if (Split(text.substr(0, end), " ").size() >= 2) return true;
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return false;
}

}  // namespace

void TerminalChecker::check() {
  std::shared_ptr<StoreFile> file;
  std::string error;
  switch (run_.store.open(run_.store.sharePath(kTable), kTable, file, error)) {
    case Presence::kThere:
      break;
    case Presence::kUnreadable:
      run_.findings.damage(kind::kUnreadable, table(),
                           "The terminal table cannot be read: " + error + ".");
      return;
    default:
      run_.findings.damage(kind::kTerminalTable, table(),
                           "The terminal table is not there, so no program can start.");
      return;
  }
  if (file->size() > kMostBytes) {
    run_.findings.damage(
        kind::kTerminalTable, table(),
        "The terminal table has " + text(file->size()) + " bytes, more than any real one.");
    return;
  }
  if (!hasTerminal(file->bytes(0, static_cast<std::size_t>(file->size())))) {
    run_.findings.note(kind::kTerminalTable, table(),
                       "No line of the terminal table names a terminal; every workstation gets 0.");
  }
}

}  // namespace dg::check
