#pragma once

#include <span>
#include <string>
#include <vector>

#include "insight/attention.h"
#include "platform/unopened_files.h"
#include "shell/main_window.h"
#include "tools/dgtool/window_json.h"

namespace dg {

/// What a reader is told under the title of a window that is incomplete.
inline constexpr const char* kIncomplete = "Could not be read completely: see the log.";

/// Files that could not be opened as a document's member "unopened": how many, and the first names.
/// Nothing is added when there are none.
void addUnopenedFiles(Json& document);

/// What a reader is told of a share that was lost, and of files that could not be opened: a line
/// each, without line ends.
std::vector<std::string> shareWarnings(const frmTRVN& main);
/// The same of kinds that could not be read, or not to their end.
std::vector<std::string> kindWarnings(std::span<const KindResult> kinds);

}  // namespace dg
