// The table of dgtool's commands.

#include "tools/dgtool/attention_command.h"
#include "tools/dgtool/brief_command.h"
#include "tools/dgtool/check_command.h"
#include "tools/dgtool/command.h"
#include "tools/dgtool/history_command.h"
#include "tools/dgtool/inspect.h"
#include "tools/dgtool/recap_command.h"
#include "tools/dgtool/report_command.h"
#include "tools/dgtool/sample_command.h"
#include "tools/dgtool/snapshot_command.h"
#include "tools/dgtool/stores_command.h"

namespace dg {

namespace {

template <class CommandType>
std::unique_ptr<Command> make(const ViewCatalogue&) {
  return std::make_unique<CommandType>();
}

/// For commands that load views.
template <class CommandType>
std::unique_ptr<Command> makeWithViews(const ViewCatalogue& catalogue) {
  return std::make_unique<CommandType>(catalogue);
}

// clang-format off
constexpr CommandEntry kCommands[] = {
    {"",        "report",  "Report the views of a store",        &makeWithViews<ReportCommand>},
    {"",        "inspect", "Look into a store's files",          nullptr},
    {"inspect", "files",   "List the logical files",             &make<InspectFilesCommand>},
    {"inspect", "keys",    "Walk or search a keyed index",       &make<InspectKeysCommand>},
    {"inspect", "record",  "Show one record",                    &make<InspectRecordCommand>},
    {"",        "attention", "Show what needs attention today, and the age of what is open", &make<AttentionCommand>},
    {"",        "snapshot", "Keep today's figures in the history",         &makeWithViews<SnapshotCommand>},
    {"",        "history", "Show the kept figures and how they changed",           &make<HistoryCommand>},
    {"",        "brief",   "Write the morning report as a page or a mail",             &makeWithViews<BriefCommand>},
    {"",        "recap",   "Show the recaps of several stores side by side",           &makeWithViews<RecapCommand>},
    {"",        "stores",  "List the store directories that the share knows",          &make<StoresCommand>},
    {"",        "check",   "Examine a store's files for damage", &make<CheckCommand>},
    {"",        "sample",  "Write a complete example store",     &make<SampleCommand>},
};
// clang-format on

}  // namespace

std::span<const CommandEntry> commands() {
  return kCommands;
}

}  // namespace dg
