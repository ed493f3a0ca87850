#include "views/financial/profit.h"

#include <array>
#include <string>

#include "platform/values/format.h"
#include "records/lines.h"
#include "records/open/own_lines.h"
#include "shell/recap_sheet.h"
#include "shell/sort_grid.h"
#include "shell/splash.h"
#include "shell/trap.h"

namespace dg {

namespace {

constexpr std::string_view kAmountMask = "$##,###,##0.00";
constexpr std::string_view kRateMask = "##.0%";

constexpr ColumnSpec money(std::string_view name, std::string_view caption,
                           std::string_view group = {}) {
  return {.name = name,
          .caption = caption,
          .kind = ColumnKind::kMoney,
          .mask = kCurrencyStyle,
          .group = group};
}
constexpr ColumnSpec rate(std::string_view name) {
  return {.name = name, .caption = "GPR", .kind = ColumnKind::kPercent, .mask = kRateMask};
}

// Nothing fills "Merchandise": it keeps the head clicks' indices in step with the grid. Three more
// columns that nothing fills and no click reaches are left out.
constexpr ColumnSpec kColumns[] = {
    {.name = "Line", .kind = ColumnKind::kNumber, .group = "Product Group"},
    {.name = "Alpha"},
    {.name = "Merchandise", .caption = "Investment", .kind = ColumnKind::kMoney, .hidden = true},
    money("mtdsales", "Sales", "Month to Date"),
    money("mtdcost", "Cost"),
    rate("mtdgpr"),
    money("ytdsales", "Sales", "Year to Date"),
    money("ytdcost", "Cost"),
    rate("ytdgpr"),
    money("pyrsales", "Sales", "Previous Year"),
    money("pyrcost", "Cost"),
    rate("pyrgpr"),
};

constexpr HeadSort kHeadSorts[] = {
    {"Line"},     {"Alpha", true}, {},         {"mtdsales"}, {"mtdcost"}, {"mtdgpr"},
    {"ytdsales"}, {"ytdcost"},     {"ytdgpr"}, {"pyrsales"}, {"pyrcost"}, {"pyrgpr"},
};

constexpr Place kSheet[] = {
    {.control = "Label1", .row = 0},
    {.control = "grdProfit", .row = 1},
};

/// A period: its members, its columns and its figures on the recap.
struct Period {
  Currency clsLines::*sales;
  Currency clsLines::*cost;
  std::string_view salesColumn, costColumn, rateColumn;
  Figure salesFigure, costFigure, rateFigure;
};
constexpr Period kPeriods[] = {
    {&clsLines::MTD_Sales, &clsLines::MTD_Cost, "mtdsales", "mtdcost", "mtdgpr",
     Figure::kMonthSales, Figure::kMonthCost, Figure::kMonthRate},
    {&clsLines::YTD_Sales, &clsLines::YTD_Cost, "ytdsales", "ytdcost", "ytdgpr", Figure::kYearSales,
     Figure::kYearCost, Figure::kYearRate},
    {&clsLines::PYTD_Sales, &clsLines::PYTD_COGS, "pyrsales", "pyrcost", "pyrgpr",
     Figure::kLastYearSales, Figure::kLastYearCost, Figure::kLastYearRate},
};

struct Totals {
  Currency sales;
  Currency cost;
};

}  // namespace

frmProfit::frmProfit()
    : View("frmProfit", "Profit by Line"),
      grdProfit(addTitled<Grid>("Label1", "Profit by Line", "grdProfit", kColumns)) {
  sortOnHeads(grdProfit, kHeadSorts);
  grdProfit.onHeadClick = [this](int column) {
    // The blank entry is no sort at all: that head does not even flip the direction.
    const auto index = static_cast<std::size_t>(column);
    if (index < std::size(kHeadSorts) && !kHeadSorts[index].column.empty()) {
      sortByHead(grdProfit, column, kHeadSorts);
    }
  };
  setSheet(kSheet);
}

void frmProfit::Form_Load() {
  showProgress("Loading Profit Data...");
  // This view marks no recap label: after a failure the block simply stays empty.
  trapView(*this, "Error in frmProfit GetProfit routine ", [this] { GetProfit(); });
}

void frmProfit::GetProfit() {
  grdProfit.RemoveAll();
  std::array<Totals, std::size(kPeriods)> totals{};
  forEachListedLine([&](const clsLines& line, const std::string&) {
    grdProfit.AddNew();
    grdProfit.set("Line", line.Line);
    grdProfit.set("Alpha", line.Alpha_Line);
    for (std::size_t i = 0; i < std::size(kPeriods); ++i) {
      const Period& period = kPeriods[i];
      const Currency sales = line.*period.sales;
      const Currency cost = line.*period.cost;
      grdProfit.set(period.salesColumn, sales);
      grdProfit.set(period.costColumn, cost);
      grdProfit.set(period.rateColumn, profitRate(sales, cost));
      totals[i].sales += sales;
      totals[i].cost += cost;
    }
    grdProfit.Update();
  });
  grdProfit.MoveFirst();
  for (std::size_t i = 0; i < std::size(kPeriods); ++i) {
    const auto& [sales, cost] = totals[i];
    writeRecap(kPeriods[i].salesFigure, Format(sales, kAmountMask));
    writeRecap(kPeriods[i].costFigure, Format(cost, kAmountMask));
    writeRecap(kPeriods[i].rateFigure, Format(profitRate(sales, cost), kRecapRateMask));
  }
}

}  // namespace dg
