#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace dg {

class frmTRVN;

/// One bar, or a group of bars side by side: a name and a value for each series.
struct ChartBar {
  QString name;
  QList<double> values;
};

/// What a bar chart shows.
struct ChartData {
  QString title;
  QString note;          ///< under the title; empty for none
  QStringList series;    ///< names for the legend; one series needs none
  QList<ChartBar> bars;  /// from the top

  bool isEmpty() const { return bars.isEmpty(); }
};

/// Periods of the sales and profit chart.
enum class ChartPeriod { kMonth, kYear, kLastYear };

// The charts take their figures from the texts on show: the recap's labels, the grids of inventory
// and profit. Lines are ordered by size; the smaller ones of many are summed up in one bar.
ChartData assetChart(const frmTRVN& main);
ChartData inventoryChart(const frmTRVN& main);
ChartData salesChart(const frmTRVN& main, ChartPeriod period);

/// A round step that parts `range` into about `parts`.
double roundStep(double range, int parts);

/// A figure in short: "$1.2M", "$34.5k", "$120".
QString shortMoney(double value);
/// An amount with its cents, for a tip: "$1,234.50".
QString exactMoney(double value);

}  // namespace dg
