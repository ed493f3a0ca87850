#include "tools/dgtool/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <functional>
#include <iostream>
#include <utility>

#include "platform/values/run_time_error.h"
#include "tools/dgtool/check_command.h"
#include "tools/dgtool/inspect.h"
#include "tools/dgtool/options.h"
#include "tools/dgtool/report.h"
#include "tools/dgtool/sample_command.h"
#include "tools/dgtool/terminal.h"
#include "views/view_catalogue.h"

namespace dg {

namespace {

constexpr int kWrong = 2;
constexpr const char* kVersion = "dgtool " DG_VERSION;

constexpr const char* kFooter =
    "Exit status: 0 done, 1 a view ended in \"Data Error !\" or a check found damage,\n"
    "2 the store cannot be reached or the command line is wrong.";

using Command = std::function<int(const Console&)>;

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

void addCommon(CLI::App& app) {
  app.allow_windows_style_options(false);  // the same words mean the same everywhere
  app.set_help_flag("-h,--help", "Print this help and exit");
  app.set_version_flag("--version", kVersion, "Print the version and exit");
}

CLI::App& addCommand(CLI::App& parent, const std::string& name, const std::string& description) {
  CLI::App& command = *parent.add_subcommand(name, description);
  addCommon(command);
  command.footer(kFooter);
  return command;
}

void addStoreOptions(CLI::App& app, StoreOptions& store) {
  const auto text = [&](const char* name, std::string& target, const char* type,
                        const char* description) {
    app.add_option(name, target, description)->type_name(type)->group("Store");
  };
  text("--store", store.store, "DIR", "An example store: names share, temp and settings at once");
  text("--temp", store.temp, "DIR", "Folder of cQTCatalog.ini and of the operation log");
  text("--share-root", store.shareRoot, "DIR", "Folder that holds SERVER/SHARE/...");
  text("--computer", store.computer, "NAME", "Name of this workstation");
  text("--settings", store.settings, "FILE", "File of the saved account lists");
  addParsed(app, "--as-of", store.asOf, parseMoment, "a moment such as 2026-11-24T10:30:00",
            "Date and time to take for now, as 2026-11-24T10:30:00")
      ->type_name("MOMENT")
      ->group("Store");
  app.add_flag("--no-log", store.noLog, "Write nothing to the operation log")->group("Store");
}

void addReport(CLI::App& app, ReportOptions& options) {
  app.add_option("--view", options.views, "Load and report this view only (repeatable)")
      ->type_name("NAME")
      ->allow_extra_args(false);
  auto* json = app.add_flag_callback(
      "--json", [&] { options.format = ReportFormat::kJson; }, "Write one JSON document");
  auto* csv = app.add_option("--csv", options.csvGrid,
                             "Write one grid as CSV; VIEW.GRID where two views have one so named")
                  ->type_name("GRID");
  auto* xlsx = app.add_option("--xlsx", options.xlsxFile,
                              "Write a workbook to this file, a sheet for each grid")
                   ->type_name("FILE");
  json->excludes(csv)->excludes(xlsx);
  csv->excludes(xlsx);
  app.add_flag("--details", options.details,
               "Also open the windows behind the rows (text and JSON)")
      ->excludes(csv)
      ->excludes(xlsx);
  app.add_flag("--refresh", options.refresh, "Refresh once after the load");
  app.add_option_function<std::vector<std::string>>(
         "--click",
         [&options](const std::vector<std::string>& texts) {
           for (const std::string& text : texts) {
             const auto click = parseHeadClick(text);
             if (!click) {
               throw CLI::ValidationError("--click", "\"" + text + "\" is not VIEW.GRID:INDEX");
             }
             options.clicks.push_back(*click);
           }
         },
         "Click the column head with this index from 0, which sorts (repeatable, in order)")
      ->type_name("VIEW.GRID:INDEX")
      ->allow_extra_args(false);
  app.callback([&options, csv, xlsx] {
    if (csv->count() > 0) options.format = ReportFormat::kCsv;
    if (xlsx->count() > 0) options.format = ReportFormat::kXlsx;
  });
}

void addKeys(CLI::App& app, InspectOptions& options) {
  app.add_option("NAME", options.name, "Logical name of the index, such as CUSTI")->required();
  auto* find = addParsed(app, "--find", options.find, parseHex, "hexadecimal text",
                         "Begin at this key, or the next greater one");
  find->type_name("HEX");
  app.add_flag("--last", options.last, "Begin at the last entry")->excludes(find);
  app.add_flag("--reverse", options.reverse,
               "Walk backwards; from the last entry when no other is named");
  app.add_option("--limit", options.limit, "At most this many entries")
      ->type_name("N")
      ->check(CLI::NonNegativeNumber);
}

void addRecord(CLI::App& app, InspectOptions& options) {
  app.add_option("NAME", options.name,
                 "Logical name of the file, such as CUSTL; FILE0 for a control block")
      ->required();
  app.add_option("NUMBER", options.record, "Record number from 1; a block of FILE0 from 0")
      ->required();
  app.add_option("--as", options.recordClass, "Show the members of this record class")
      ->type_name("CLASS");
  app.add_flag("--hex", options.hex, "Show the bytes as well as the members");
}

void addCheck(CLI::App& app, CheckCommandOptions& options) {
  app.add_flag("--quick", options.quick,
               "Examine the structures only: links, directories, record zeros, indexes");
  app.add_flag("--json", options.json, "Write one JSON document");
  app.add_option("--limit", options.limit, "Show at most this many findings of each file")
      ->type_name("N")
      ->capture_default_str()
      ->check(CLI::Range(1, 10'000));
}

void addSample(CLI::App& app, SampleCommandOptions& options) {
  app.add_option("DIR", options.folder, "Folder of the store; one that stands there is replaced")
      ->required();
  app.add_option("--seed", options.seed, "The same seed gives the same store")
      ->type_name("N")
      ->capture_default_str();
  app.add_option("--scale", options.scale, "Multiplies the number of records")
      ->type_name("N")
      ->capture_default_str()
      ->check(CLI::Range(1, 1000));
  addParsed(app, "--as-of", options.asOf, parseMoment, "a day such as 2026-11-24",
            "The day on which the store stands; today if not given")
      ->type_name("DAY");
  app.add_flag("--warranty-segments", options.warrantySegments,
               "Bill warranty claims segment by segment");
}

/// The program's whole command line and what it was told.
class CommandLine {
 public:
  explicit CommandLine(const ViewCatalogue& catalogue) {
    addCommon(app_);
    app_.footer(kFooter);
    app_.require_subcommand(1);

    CLI::App& report = addCommand(app_, "report", "Report the views of a store");
    addReport(report, report_);
    addStoreOptions(report, report_.store);
    on(report, [this, &catalogue](const Console& console) {
      return runReport(report_, console, catalogue);
    });

    CLI::App& inspect = addCommand(app_, "inspect", "Look into a store's files");
    inspect.require_subcommand(1);
    addInspect(inspect, "files", "List the logical files", {}, &inspectFiles);
    addInspect(inspect, "keys", "Walk or search a keyed index", &addKeys, &inspectKeys);
    addInspect(inspect, "record", "Show one record", &addRecord, &inspectRecord);

    CLI::App& check = addCommand(app_, "check", "Examine a store's files for damage");
    addCheck(check, check_);
    addStoreOptions(check, check_.store);
    on(check, [this](const Console& console) { return runCheck(check_, console); });

    CLI::App& sample = addCommand(app_, "sample", "Write a complete example store");
    addSample(sample, sample_);
    on(sample, [this](const Console& console) { return runSample(sample_, console); });
  }

  /// Raises CLI::ParseError, and UsageError for a command that there is not.
  int run(std::vector<std::string> arguments, const Console& console) {
    checkCommands(arguments);
    std::ranges::reverse(arguments);  // as the parser wants them
    app_.parse(arguments);
    for (const auto& [app, command] : commands_) {
      if (app->parsed()) return command(console);
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

  void on(CLI::App& app, Command command) { commands_.emplace_back(&app, std::move(command)); }

  void addInspect(CLI::App& parent, const std::string& name, const std::string& description,
                  const std::function<void(CLI::App&, InspectOptions&)>& addOptions,
                  int (*inspect)(const InspectOptions&, const Console&)) {
    CLI::App& app = addCommand(parent, name, description);
    if (addOptions) addOptions(app, inspect_);
    app.add_flag("--json", inspect_.json, "Write one JSON document");
    addStoreOptions(app, inspect_.store);
    on(app, [this, inspect](const Console& console) { return inspect(inspect_, console); });
  }

  CLI::App app_{"Reports and examines the files of a dealership's terminal suite", "dgtool"};
  std::vector<std::pair<CLI::App*, Command>> commands_;
  ReportOptions report_;
  InspectOptions inspect_;
  CheckCommandOptions check_;
  SampleCommandOptions sample_;
};

}  // namespace

int runDgtool(const std::vector<std::string>& arguments, const Console& console,
              const ViewCatalogue& catalogue) {
  CommandLine commandLine(catalogue);
  try {
    const int status = commandLine.run(arguments, console);
    if (!console.out.flush()) throw UsageError("the answer cannot be written");
    return status;
  } catch (const CLI::ParseError& error) {
    return commandLine.exit(error, console);
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
  makeOutputBinary();
  const std::vector<std::string> arguments(argv + std::min(argc, 1), argv + argc);
  const Console console{std::cout, std::cerr, errorStreamIsTerminal()};
  return runDgtool(arguments, console, viewCatalogue());
}

}  // namespace dg
