#include "tools/dgtool/command_line.h"

#include <algorithm>
#include <iostream>
#include <new>
#include <utility>

#include "platform/out_of_memory.h"
#include "platform/values/run_time_error.h"
#include "tools/dgtool/command.h"
#include "tools/dgtool/terminal.h"
#include "views/view_catalogue.h"

namespace dg {

namespace {

constexpr int kWrong = 2;
constexpr const char* kProgram = "dgtool";
constexpr const char* kVersion = "dgtool " DG_VERSION;

constexpr const char* kFooter =
    "Exit status: 0 done, 1 a view ended in \"Data Error !\" or a check found damage,\n"
    "2 the store cannot be reached or the command line is wrong.";

void addCommon(CLI::App& app) {
  app.allow_windows_style_options(false);  // the same words mean the same everywhere
  app.set_help_flag("-h,--help", "Print this help and exit");
  app.set_version_flag("--version", kVersion, "Print the version and exit");
}

/// The program's whole command line and what it was told.
class CommandLine {
 public:
  explicit CommandLine(const ViewCatalogue& catalogue) {
    addCommon(app_);
    app_.footer(kFooter);
    app_.require_subcommand(1);
    for (const CommandEntry& entry : commands()) {
      CLI::App& parent = *entry.group == '\0' ? app_ : *app_.get_subcommand(entry.group);
      CLI::App& app = *parent.add_subcommand(entry.name, entry.description);
      addCommon(app);
      app.footer(kFooter);
      if (entry.make == nullptr) {
        app.require_subcommand(1);
        continue;
      }
      commands_.emplace_back(&app, entry.make(catalogue));
      commands_.back().second->addOptions(app);
    }
  }

  /// Raises CLI::ParseError, and UsageError for a command that there is not.
  int run(std::vector<std::string> arguments, const Console& console) {
    checkCommands(arguments);
    std::ranges::reverse(arguments);  // as the parser wants them
    app_.parse(arguments);
    for (const auto& [app, command] : commands_) {
      if (app->parsed()) return command->run(console);
    }
    return kWrong;
  }

  int exit(const CLI::ParseError& error, const Console& console) const {
    if (error.get_exit_code() == 0) return app_.exit(error, console.out, console.err);
    console.err << "dgtool: " << error.what() << "\nTry \"dgtool --help\".\n";
    return kWrong;
  }

 private:
  /// The parser would only complain that no command is there.
  void checkCommands(const std::vector<std::string>& arguments) const {
    const CLI::App* app = &app_;
    for (const std::string& word : arguments) {
      const auto commands = app->get_subcommands({});
      if (commands.empty() || word.starts_with('-')) return;
      const auto found = std::ranges::find(commands, word, &CLI::App::get_name);
      if (found == commands.end()) {
        std::string names;
        for (const CLI::App* command : commands)
          names.append(" ").append(command->get_name());
        throw UsageError("there is no command " + word + "; the commands are" + names);
      }
      app = *found;
    }
  }

  CLI::App app_{"Reports and examines the files of a dealership's terminal suite", "dgtool"};
  std::vector<std::pair<CLI::App*, std::unique_ptr<Command>>> commands_;
};

int runCommandLine(const std::vector<std::string>& arguments, const Console& console,
                   const ViewCatalogue& catalogue) {
  CommandLine commandLine(catalogue);
  try {
    const int status = commandLine.run(arguments, console);
    if (!console.out.flush()) throw UsageError("the answer cannot be written");
    return status;
  } catch (const CLI::ParseError& error) {
    return commandLine.exit(error, console);
  }
}

}  // namespace

int runDgtool(const std::vector<std::string>& arguments, const Console& console,
              const ViewCatalogue& catalogue) {
  try {
    return runCommandLine(arguments, console, catalogue);
  } catch (const std::bad_alloc&) {
    tellOutOfMemory(kProgram);
  } catch (const UsageError& error) {
    console.err << "dgtool: " << error.what() << '\n';
  } catch (const RunTimeError& error) {
    console.complain(error.description() + " (error " + std::to_string(error.number()) + ")");
  } catch (const std::exception& error) {
    console.err << "dgtool: " << error.what() << '\n';
  }
  return kWrong;
}

int runDgtool(int argc, char** argv) {
  endWhenOutOfMemory(kProgram, kWrong);
  makeOutputBinary();
  const std::vector<std::string> arguments(argv + std::min(argc, 1), argv + argc);
  const Console console{std::cout, std::cerr, errorStreamIsTerminal()};
  return runDgtool(arguments, console, viewCatalogue());
}

}  // namespace dg
