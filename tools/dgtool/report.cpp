#include "tools/dgtool/report.h"

#include <algorithm>

#include "export/csv.h"
#include "platform/text.h"
#include "shell/recap_sheet.h"
#include "tools/dgtool/json_report.h"
#include "tools/dgtool/text_report.h"
#include "tools/dgtool/xlsx.h"

namespace dg {

namespace {

constexpr std::string_view kRecap = "frmRecap";

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

/// The grid of --csv: a grid's name, with its view's in front where two views have one so named.
const Grid& wantedGrid(const std::vector<View*>& views, const std::string& text) {
  const auto dot = text.find('.');
  const std::string viewName = dot == std::string::npos ? "" : text.substr(0, dot);
  const std::string gridName = dot == std::string::npos ? text : text.substr(dot + 1);
  std::vector<const Grid*> found;
  std::string candidates;
  std::string all;
  for (const View* view : views) {
    for (const auto& control : view->controls()) {
      const auto* grid = dynamic_cast<const Grid*>(control.get());
      if (grid == nullptr) continue;
      const std::string full = view->name() + "." + grid->name();
      all.append(" ").append(full);
      if (!equalIgnoringCase(grid->name(), gridName)) continue;
      if (!viewName.empty() && !equalIgnoringCase(view->name(), viewName)) continue;
      found.push_back(grid);
      candidates.append(" ").append(full);
    }
  }
  if (found.empty()) throw UsageError("--csv: there is no grid " + text + "; the grids are" + all);
  if (found.size() > 1) {
    throw UsageError("--csv: " + text + " is ambiguous, name one of" + candidates);
  }
  return *found.front();
}

void writeReport(const ReportOptions& options, const Console& console, const Session& session,
                 const frmTRVN& main, const std::vector<View*>& views) {
  switch (options.format) {
    case ReportFormat::kJson:
      writeJsonReport(console.out, session, main, views, options.details);
      break;
    case ReportFormat::kCsv:
      writeCsv(console.out, wantedGrid(views, options.csvGrid));
      break;
    case ReportFormat::kXlsx:
      writeWorkbook(options.xlsxFile, main, views);
      break;
    case ReportFormat::kText:
      writeTextReport(console.out, main, views, options.details);
      break;
  }
}

bool anyDataError(const frmTRVN& main) {
  const View* recap = main.view(kRecap);
  for (int index = 0; index < kRecapLabels; ++index) {
    const Label* label = recapLabel(recap, index);
    if (label != nullptr && isDataError(*label)) return true;
  }
  return false;
}

/// Whether the load, and the refresh after it, came to their end: showing a view is their last
/// step.
bool isComplete(const frmTRVN& main) {
  return main.CurrentView() != nullptr && main.CurrentView()->visible();
}

}  // namespace

const Label* recapLabel(const View* recap, int index) {
  if (recap == nullptr) return nullptr;
  return dynamic_cast<const Label*>(recap->find(elementName("lblRecap", index)));
}

bool isDataError(const Label& label) {
  return label.caption() == kDataError || label.foreColor() == kRed;
}

int runReport(const ReportOptions& options, const Console& console,
              const ViewCatalogue& catalogue) {
  const std::vector<std::string> wanted = knownViews(options.views, catalogue);
  if (options.format == ReportFormat::kXlsx) checkWorkbookPath(options.xlsxFile);

  Session session(options.store, console);
  frmTRVN& main = session.load(catalogue, wanted);
  if (!session.storeReachable()) {
    if (options.format == ReportFormat::kJson) {
      writeJsonReport(console.out, session, main, reportedViews(main, wanted), false);
    }
    session.complain();
    throw UsageError("the store cannot be reached");
  }
  if (options.refresh) session.refresh();
  const std::vector<View*> views = reportedViews(main, wanted);
  for (const std::string& name : wanted) {
    if (main.view(name) == nullptr) console.complain(name + " is not in use in this store");
  }
  for (const HeadClick& each : options.clicks)
    click(views, each);
  writeReport(options, console, session, main, views);
  if (options.format != ReportFormat::kJson) session.complain();
  return anyDataError(main) || !isComplete(main) ? 1 : 0;
}

}  // namespace dg
