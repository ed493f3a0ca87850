#pragma once

#include <CLI/CLI.hpp>
#include <memory>
#include <span>
#include <string>

#include "shell/view.h"
#include "tools/dgtool/console.h"
#include "tools/dgtool/options.h"

namespace dg {

/// A command of dgtool: it adds its options to the command line and runs with what they were told.
class Command {
 public:
  virtual ~Command() = default;
  virtual void addOptions(CLI::App& app) = 0;
  /// Returns the exit status. Raises UsageError for what the command line names and is not there.
  virtual int run(const Console& console) = 0;
};

/// A command as the command line knows it. A new command is a source with its class, and a line in
/// the table of `commands.cpp`.
struct CommandEntry {
  const char* group;  ///< the command that it stands below, such as "inspect"; empty for none
  const char* name;
  const char* description;
  /// Null for a command that only has others below it. The catalogue outlives the command.
  std::unique_ptr<Command> (*make)(const ViewCatalogue& catalogue);
};

/// All commands, in the order in which the help lists them.
std::span<const CommandEntry> commands();

/// The options that tell where the store is.
void addStoreOptions(CLI::App& app, StoreOptions& store);

/// An option whose text one of the parsers of options.h takes apart.
template <class T, class Parser>
CLI::Option* addParsed(CLI::App& app, const std::string& name, T& target, Parser parser,
                       const std::string& hint, const std::string& description) {
  return app.add_option_function<std::string>(
      name,
      [&target, parser, name, hint](const std::string& text) {
        const auto parsed = parser(text);
        if (!parsed) throw CLI::ValidationError(name, "\"" + text + "\" is not " + hint);
        target = *parsed;
      },
      description);
}

}  // namespace dg
