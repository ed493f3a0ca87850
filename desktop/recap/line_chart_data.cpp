#include "desktop/recap/line_chart_data.h"

#include <QDate>
#include <QLocale>
#include <algorithm>
#include <cmath>
#include <iterator>

#include "desktop/recap/chart_data.h"

namespace dg {

namespace {

const QLocale& english() {
  static const QLocale locale(QLocale::English, QLocale::UnitedStates);
  return locale;
}

QDate calendarDay(int day) {
  static const QDate kZero(1899, 12, 30);  // the day that dates count from
  return kZero.addDays(day);
}

int dayNumber(QDate date) {
  return static_cast<int>(calendarDay(0).daysTo(date));
}

/// The largest value of a line, without its sign.
double sizeOf(const LineSeries& series) {
  double size = 0;
  for (const LinePoint& point : series.points)
    size = std::max(size, std::fabs(point.value));
  return size;
}

/// How far apart marks may stand, and how they are written.
struct MarkStep {
  int days;    ///< 0: by months
  int months;  ///< 0: by days
  const char* format;
};
constexpr MarkStep kMarkSteps[] = {
    {1, 0, "MMM d"},    {2, 0, "MMM d"},    {7, 0, "MMM d"},    {14, 0, "MMM d"},
    {0, 1, "MMM yyyy"}, {0, 2, "MMM yyyy"}, {0, 3, "MMM yyyy"}, {0, 6, "MMM yyyy"},
    {0, 12, "yyyy"},    {0, 24, "yyyy"},    {0, 60, "yyyy"},    {0, 120, "yyyy"},
    {0, 300, "yyyy"},   {0, 600, "yyyy"},   {0, 1200, "yyyy"},  {0, 6000, "yyyy"},
};

QList<DayMark> marksOf(const MarkStep& step, int firstDay, int lastDay) {
  constexpr int kYear = 12;
  QList<DayMark> marks;
  QDate date = calendarDay(firstDay);
  if (step.months == 0) {
    // Weeks are counted from Mondays, which are 2 beyond the multiples of 7.
    const int start = firstDay + (2 - firstDay % step.days + step.days) % step.days;
    date = calendarDay(step.days < 7 ? firstDay : start);
  } else {
    int month = date.year() * kYear + date.month() - 1;
    if (date.day() > 1) ++month;
    month = (month + step.months - 1) / step.months * step.months;
    date = QDate(month / kYear, month % kYear + 1, 1);
  }
  for (int day = dayNumber(date); day <= lastDay; day = dayNumber(date)) {
    marks.append({day, english().toString(date, QString::fromLatin1(step.format))});
    date = step.months == 0 ? date.addDays(step.days) : date.addMonths(step.months);
  }
  return marks;
}

}  // namespace

const LinePoint* LineSeries::nearest(int day) const {
  const auto after =
      std::lower_bound(points.begin(), points.end(), day,
                       [](const LinePoint& point, int wanted) { return point.day < wanted; });
  if (after == points.begin()) return points.isEmpty() ? nullptr : &*after;
  const auto before = std::prev(after);
  if (after == points.end()) return &*before;
  return day - before->day <= after->day - day ? &*before : &*after;
}

bool LineData::isEmpty() const {
  return std::all_of(series.begin(), series.end(),
                     [](const LineSeries& each) { return each.points.isEmpty(); });
}

ValueAxis valueAxis(const QList<const LineSeries*>& lines, int parts) {
  double least = INFINITY;
  double most = -INFINITY;
  for (const LineSeries* line : lines) {
    for (const LinePoint& point : line->points) {
      least = std::min(least, point.value);
      most = std::max(most, point.value);
    }
  }
  if (least > most) return {};
  if (least == most) {
    // A line without any change runs through the middle.
    const double around = least == 0 ? 1 : std::fabs(least) / 10;
    least -= around;
    most += around;
  }
  const double step = roundStep(most - least, parts);
  return {std::floor(least / step) * step, std::ceil(most / step) * step, step};
}

bool shareAxis(const LineSeries& first, const LineSeries& second) {
  constexpr double kLike = 3;
  if (first.kind != second.kind) return false;
  const double one = sizeOf(first);
  const double other = sizeOf(second);
  return one <= other * kLike && other <= one * kLike;
}

QList<DayMark> dayMarks(int firstDay, int lastDay, int most) {
  QList<DayMark> marks;
  for (const MarkStep& step : kMarkSteps) {
    const double days = step.months == 0 ? step.days : step.months * 30.4;
    if ((lastDay - firstDay) / days > most) continue;
    marks = marksOf(step, firstDay, lastDay);
    if (!marks.isEmpty()) break;
  }
  if (marks.isEmpty()) marks.append({firstDay, dayText(firstDay)});
  return marks;
}

QList<LinePoint> thinnedOut(const QList<LinePoint>& points, int firstDay, int lastDay, int width) {
  const int days = lastDay - firstDay + 1;
  if (days <= width * 2) return points;
  QList<LinePoint> result;
  const auto placeOf = [&](const LinePoint& point) {
    return static_cast<qint64>(point.day - firstDay) * width / days;
  };
  for (auto from = points.begin(); from != points.end();) {
    const auto to = std::find_if(
        from, points.end(),
        [&, place = placeOf(*from)](const auto& point) { return placeOf(point) != place; });
    const auto byValue = [](const LinePoint& a, const LinePoint& b) { return a.value < b.value; };
    const auto [least, greatest] = std::minmax_element(from, to, byValue);
    QList<QList<LinePoint>::const_iterator> kept{from, least, greatest, std::prev(to)};
    std::sort(kept.begin(), kept.end());
    kept.erase(std::unique(kept.begin(), kept.end()), kept.end());
    for (const auto& each : kept)
      result.append(*each);
    from = to;
  }
  return result;
}

QString dayText(int day) {
  return english().toString(calendarDay(day), QStringLiteral("MMM d, yyyy"));
}

QString axisText(double value, FigureKind kind, double step) {
  if (kind == FigureKind::kRate) {
    const int decimals = step < 0.001 ? 2 : step < 0.01 ? 1 : 0;
    return QString::number(value * 100, 'f', decimals) + u'%';
  }
  struct Unit {
    double size;
    const char* letter;
  };
  constexpr Unit kUnits[] = {{1e9, "B"}, {1e6, "M"}, {1e3, "k"}, {1, ""}};
  const Unit* unit = kUnits;
  while (unit->size > 1 && std::fabs(value) < unit->size)
    ++unit;
  // As many decimals as tell neighbours apart; where that takes too many, all the digits.
  const int decimals = qMax(0, static_cast<int>(std::ceil(-std::log10(step / unit->size) - 1e-9)));
  if (decimals > 3) {
    const QString whole = english().toString(std::fabs(value), 'f', 0);
    return (value < 0 ? QStringLiteral("-$") : QStringLiteral("$")) + whole;
  }
  const QString sign = value < 0 ? QStringLiteral("-$") : QStringLiteral("$");
  return sign + QString::number(std::fabs(value) / unit->size, 'f', decimals) +
         QLatin1String(unit->letter);
}

}  // namespace dg
