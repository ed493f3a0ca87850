#include "tools/dgtool/report_command.h"

#include <algorithm>

#include "platform/text.h"
#include "platform/unopened_files.h"
#include "tools/dgtool/left_out.h"
#include "tools/dgtool/session.h"

namespace dg {

namespace {

/// The views as the catalogue spells them, whatever the case on the command line.
std::vector<std::string> knownViews(const std::vector<std::string>& wanted,
                                    const ViewCatalogue& catalogue) {
  const std::vector<std::string> names = catalogue.names();
  std::vector<std::string> result;
  for (const std::string& name : wanted) {
    const auto found = std::ranges::find_if(
        names, [&](const std::string& known) { return equalIgnoringCase(known, name); });
    if (found == names.end()) {
      std::string known;
      for (const std::string& each : names)
        known.append(" ").append(each);
      throw UsageError("there is no view " + name + "; the views are" + known);
    }
    result.push_back(*found);
  }
  return result;
}

bool contains(const std::vector<std::string>& names, std::string_view name) {
  return std::ranges::find(names, name) != names.end();
}

/// The views to report: those that were asked for. The recap is loaded in any case, because the
/// others write to it.
std::vector<View*> reportedViews(const frmTRVN& main, const std::vector<std::string>& wanted) {
  std::vector<View*> views = main.loadedViews();
  if (wanted.empty()) return views;
  std::erase_if(views, [&](const View* view) { return !contains(wanted, view->name()); });
  return views;
}

Grid* findGrid(const View& view, std::string_view name) {
  for (const auto& control : view.controls()) {
    auto* grid = dynamic_cast<Grid*>(control.get());
    if (grid != nullptr && equalIgnoringCase(grid->name(), name)) return grid;
  }
  return nullptr;
}

void click(const std::vector<View*>& views, const HeadClick& click) {
  for (const View* view : views) {
    if (!equalIgnoringCase(view->name(), click.view)) continue;
    Grid* grid = findGrid(*view, click.grid);
    if (grid == nullptr) {
      throw UsageError("--click: " + view->name() + " has no grid " + click.grid);
    }
    if (click.column >= grid->Cols()) {
      throw UsageError("--click: " + grid->name() + " has no column " +
                       std::to_string(click.column) + "; they count from 0 to " +
                       std::to_string(grid->Cols() - 1));
    }
    grid->headClick(click.column);
    return;
  }
  throw UsageError("--click: the view " + click.view + " is not loaded");
}

}  // namespace

ReportCommand::ReportCommand(const ViewCatalogue& catalogue)
    : catalogue_(catalogue), format_(&reportFormats().front()) {}

void ReportCommand::addOptions(CLI::App& app) {
  app.add_option("--view", views_, "Load and report this view only (repeatable)")
      ->type_name("NAME")
      ->allow_extra_args(false);
  CLI::Option* details =
      app.add_flag("--details", details_, "Also open the windows behind the rows (text and JSON)");
  addFormats(app, *details);
  app.add_flag("--refresh", refresh_, "Refresh once after the load");
  app.add_option_function<std::vector<std::string>>(
         "--click",
         [this](const std::vector<std::string>& texts) {
           for (const std::string& text : texts) {
             const auto click = parseHeadClick(text);
             if (!click) {
               throw CLI::ValidationError("--click", "\"" + text + "\" is not VIEW.GRID:INDEX");
             }
             clicks_.push_back(*click);
           }
         },
         "Click the column head with this index from 0, which sorts (repeatable, in order)")
      ->type_name("VIEW.GRID:INDEX")
      ->allow_extra_args(false);
  addStoreOptions(app, store_);
}

/// Of the formats at most one is asked for.
void ReportCommand::addFormats(CLI::App& app, CLI::Option& details) {
  std::vector<CLI::Option*> others;
  for (const ReportFormat& format : reportFormats()) {
    const std::string name = format.option;
    if (name.empty()) continue;
    CLI::Option* option = nullptr;
    if (*format.argument == '\0') {
      option = app.add_flag_callback(
          name, [this, &format] { format_ = &format; }, format.description);
    } else {
      option = app.add_option_function<std::string>(
                      name,
                      [this, &format](const std::string& text) {
                        format_ = &format;
                        argument_ = text;
                      },
                      format.description)
                   ->type_name(format.argument);
    }
    for (CLI::Option* other : others)
      other->excludes(option);
    others.push_back(option);
    if (!format.hasDetails) details.excludes(option);
  }
}

int ReportCommand::run(const Console& console) {
  const std::vector<std::string> wanted = knownViews(views_, catalogue_);
  if (format_->check != nullptr) format_->check(argument_);

  Session session(store_, console);
  frmTRVN& main = session.load(catalogue_, wanted);
  const auto write = [&](const std::vector<View*>& views, bool details) {
    return format_->write({session, main, views, details, argument_, console.out});
  };
  if (!session.storeReachable()) {
    if (format_->hasMessages) write(reportedViews(main, wanted), false);
    session.complain();
    throw UsageError("the store cannot be reached");
  }
  if (refresh_) session.refresh();
  const std::vector<View*> views = reportedViews(main, wanted);
  for (const std::string& name : wanted) {
    if (main.view(name) == nullptr) console.complain(name + " is not in use in this store");
  }
  for (const HeadClick& each : clicks_)
    click(views, each);
  const bool complete = write(views, details_);
  for (const std::string& line : shareWarnings(main))
    console.complain(line);
  for (const View* view : views) {
    if (view->incomplete()) console.complain(view->name() + ": " + kIncomplete);
  }
  if (!format_->hasMessages) session.complain();
  if (!main.lostShare().empty()) throw UsageError("the store cannot be reached any more");
  const bool allRead = complete && unopenedFiles().count == 0;
  return session.isWhole() && allRead ? 0 : 1;
}

}  // namespace dg
