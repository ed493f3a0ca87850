#pragma once

#include <QList>
#include <QString>
#include <optional>

#include "history/figure_history.h"

namespace dg {

/// A day of a line: its number, as Date has it, and the value.
struct LinePoint {
  int day;
  double value;
};

/// A line over days. Days that are not there are gaps.
struct LineSeries {
  QString name;
  FigureKind kind = FigureKind::kMoney;
  QList<LinePoint> points;  ///< from the first day on

  /// The point nearest to a day; null without points.
  const LinePoint* nearest(int day) const;
};

/// What a line chart shows.
struct LineData {
  QString title;
  QString note;
  QList<LineSeries> series;  ///< one or two
  int firstDay = 0;
  int lastDay = 0;

  bool isEmpty() const;
};

/// The values of an axis: round ones, from below the least to above the most of its lines.
struct ValueAxis {
  double least = 0;
  double most = 1;
  double step = 1;
};
ValueAxis valueAxis(const QList<const LineSeries*>& lines, int parts);

/// Whether two lines are best read on one axis: figures of one kind and of like size.
bool shareAxis(const LineSeries& first, const LineSeries& second);

/// A mark under the chart.
struct DayMark {
  int day;
  QString text;
};
/// About `most` marks between two days, at days, Mondays, months or years as the room allows.
QList<DayMark> dayMarks(int firstDay, int lastDay, int most);

/// Of the points that fall on one of `width` places only those that show: the first, the least, the
/// most and the last. Gaps stay.
QList<LinePoint> thinnedOut(const QList<LinePoint>& points, int firstDay, int lastDay, int width);

/// "Nov 21, 2026".
QString dayText(int day);
/// A value of an axis in short: "$1.2M", "22.5%".
QString axisText(double value, FigureKind kind, double step);

}  // namespace dg
