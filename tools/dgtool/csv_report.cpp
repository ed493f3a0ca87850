#include "tools/dgtool/csv_report.h"

#include "export/csv.h"
#include "platform/text.h"

namespace dg {

namespace {

/// A grid by its name, with its view's in front where two views have one so named.
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

}  // namespace

bool writeCsvReport(const ReportInput& input) {
  writeCsv(input.out, wantedGrid(input.views, input.argument));
  return areComplete(input.views);
}

}  // namespace dg
