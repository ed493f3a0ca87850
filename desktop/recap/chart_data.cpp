#include "desktop/recap/chart_data.h"

#include <QCoreApplication>
#include <QLocale>
#include <algorithm>
#include <cmath>

#include "desktop/window/text.h"
#include "platform/values/convert.h"
#include "platform/values/format.h"
#include "shell/main_window.h"
#include "shell/recap_figures.h"

namespace dg {

namespace {

constexpr int kMostBars = 14;

QString tr(const char* text) {
  return QCoreApplication::translate("Charts", text);
}

/// The rows of a grid of a view, read column by column; empty without that view or grid.
class GridReader {
 public:
  GridReader(const frmTRVN& main, std::string_view view, std::string_view grid) {
    const View* form = main.view(view);
    if (form != nullptr) grid_ = dynamic_cast<const Grid*>(form->find(grid));
  }
  int rows() const { return grid_ == nullptr ? 0 : grid_->Rows(); }
  QString text(std::string_view column, int row) const {
    return cellText(grid_->CellValue(column, row)).trimmed();
  }
  double number(std::string_view column, int row) const {
    return parseNumber(grid_->CellValue(column, row)).value_or(0);
  }
  QString line(int row) const {
    const QString alpha = text("Alpha", row);
    return alpha.isEmpty() ? text("Line", row) : alpha + QStringLiteral("  ") + text("Line", row);
  }

 private:
  const Grid* grid_ = nullptr;
};

/// Puts the bars in order of their first value. Of many the largest stay, and the note tells of the
/// others: a bar for their sum would dwarf the rest.
void arrange(ChartData& chart) {
  QList<ChartBar>& bars = chart.bars;
  bars.removeIf([](const ChartBar& bar) {
    return std::all_of(bar.values.begin(), bar.values.end(), [](double v) { return v == 0; });
  });
  std::stable_sort(bars.begin(), bars.end(), [](const ChartBar& a, const ChartBar& b) {
    return a.values.first() > b.values.first();
  });
  if (bars.size() <= kMostBars) return;
  double others = 0;
  for (qsizetype bar = kMostBars; bar < bars.size(); ++bar)
    others += bars[bar].values.first();
  QStringList note;
  if (!chart.note.isEmpty()) note.append(chart.note);
  note.append(tr("The %1 largest of %2; the others: %3")
                  .arg(kMostBars)
                  .arg(bars.size())
                  .arg(shortMoney(others)));
  chart.note = note.join(QStringLiteral(". "));
  bars.resize(kMostBars);
}

struct PeriodColumns {
  std::string_view sales, cost;
  const char* name;
};
constexpr PeriodColumns kPeriods[] = {
    {"mtdsales", "mtdcost", QT_TRANSLATE_NOOP("Charts", "Month to date")},
    {"ytdsales", "ytdcost", QT_TRANSLATE_NOOP("Charts", "Year to date")},
    {"pyrsales", "pyrcost", QT_TRANSLATE_NOOP("Charts", "Previous year")},
};

}  // namespace

ChartData assetChart(const frmTRVN& main) {
  ChartData chart{tr("Assets by kind"), {}, {tr("Assets")}, {}};
  const View* recap = main.view("frmRecap");
  if (recap == nullptr) return chart;
  int missing = 0;
  for (const RecapFigure& figure : recapFigures(RecapBlock::kAssets)) {
    // The day's takings stand among the assets and are none.
    if (figure.span == FigureSpan::kToday) continue;
    if (const auto value = figureValue(recap, figure.figure)) {
      chart.bars.append({cellText(figure.name), {value->toDouble()}});
    } else {
      ++missing;
    }
  }
  if (missing > 0) chart.note = tr("Without %1 that the recap has no figure for").arg(missing);
  arrange(chart);
  return chart;
}

ChartData inventoryChart(const frmTRVN& main) {
  ChartData chart{tr("Parts inventory by line"), {}, {tr("Investment")}, {}};
  const GridReader grid(main, "frmInv", "grdInvest");
  for (int row = 0; row < grid.rows(); ++row) {
    chart.bars.append({grid.line(row), {grid.number("Merchandise", row)}});
  }
  arrange(chart);
  return chart;
}

ChartData salesChart(const frmTRVN& main, ChartPeriod period) {
  const PeriodColumns& columns = kPeriods[static_cast<int>(period)];
  ChartData chart{
      tr("Sales and profit by line"), tr(columns.name), {tr("Sales"), tr("Profit")}, {}};
  const GridReader grid(main, "frmProfit", "grdProfit");
  for (int row = 0; row < grid.rows(); ++row) {
    const double sales = grid.number(columns.sales, row);
    chart.bars.append({grid.line(row), {sales, sales - grid.number(columns.cost, row)}});
  }
  arrange(chart);
  return chart;
}

double roundStep(double range, int parts) {
  const double rough = range / parts;
  const double power = std::pow(10, std::floor(std::log10(rough)));
  for (const double factor : {1.0, 2.0, 2.5, 5.0}) {
    if (rough <= factor * power) return factor * power;
  }
  return 10 * power;
}

QString shortMoney(double value) {
  struct Step {
    double from;
    double unit;
    const char* letter;
  };
  // A step begins where the one below would round up to it.
  constexpr Step kSteps[] = {{999.95e6, 1e9, "B"}, {999.95e3, 1e6, "M"}, {999.5, 1e3, "k"}};
  const QString sign = value < 0 ? QStringLiteral("-$") : QStringLiteral("$");
  const double size = std::fabs(value);
  for (const Step& step : kSteps) {
    if (size < step.from) continue;
    QString digits = QString::number(size / step.unit, 'f', 1);
    if (digits.endsWith(QStringLiteral(".0"))) digits.chop(2);
    return sign + digits + QLatin1String(step.letter);
  }
  return sign + QString::number(size, 'f', 0);
}

QString exactMoney(double value) {
  return fromBytes(Format(value, "$#,###,##0.00"));
}

}  // namespace dg
