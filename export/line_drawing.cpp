#include "export/line_drawing.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace dg {

namespace {

constexpr int kWidth = 160;
constexpr int kHeight = 36;
constexpr int kMargin = 3;

std::pair<Currency, Currency> bounds(const FigureHistory& figure) {
  const auto [least, most] = std::ranges::minmax_element(figure.values, {}, &KeptValue::amount);
  return {least->amount, most->amount};
}

struct Point {
  int x;
  int y;  ///< tenths of a unit

  bool operator==(const Point&) const = default;
};

std::string tenths(int value) {
  return std::to_string(value / 10) + "." + std::to_string(value % 10);
}

/// The points of the line; where years of days meet in one place, its ends and extremes stay.
std::vector<Point> pointsOf(const FigureHistory& figure) {
  const auto [least, most] = bounds(figure);
  const double low = least.toDouble();
  const double span = most.toDouble() - low;
  const int first = figure.values.front().day.days();
  const int days = std::max(1, figure.values.back().day.days() - first);
  std::vector<std::vector<Point>> places(static_cast<std::size_t>(kWidth) + 1);
  for (const KeptValue& value : figure.values) {
    const double share = span > 0 ? (value.amount.toDouble() - low) / span : 0.5;
    const int x = kMargin + static_cast<int>(std::int64_t{value.day.days() - first} *
                                             (kWidth - 2 * kMargin) / days);
    const int y =
        static_cast<int>(std::lround(10 * (kMargin + (1 - share) * (kHeight - 2 * kMargin))));
    places[static_cast<std::size_t>(x)].push_back({x, y});
  }
  std::vector<Point> points;
  for (const std::vector<Point>& place : places) {
    if (place.empty()) continue;
    const auto [top, bottom] = std::ranges::minmax_element(place, {}, &Point::y);
    for (auto point = place.begin(); point != place.end(); ++point) {
      const bool shows =
          point == place.begin() || point == top || point == bottom || point + 1 == place.end();
      if (shows && (points.empty() || !(points.back() == *point))) points.push_back(*point);
    }
  }
  return points;
}

}  // namespace

std::string lineInWords(const FigureHistory& figure) {
  const auto [least, most] = bounds(figure);
  const auto text = [&](Currency amount) { return amountText(amount, figure.kind()); };
  const KeptValue& first = figure.values.front();
  const KeptValue& last = figure.values.back();
  return figure.figure.name + " over " + std::to_string(figure.values.size()) +
         " kept days: " + text(first.amount) + " on " + first.day.shortDateText() + ", " +
         text(last.amount) + " on " + last.day.shortDateText() + ", least " + text(least) +
         ", most " + text(most);
}

void drawLine(HtmlWriter& html, const FigureHistory& figure) {
  const std::vector<Point> points = pointsOf(figure);
  std::string path;
  for (const Point& point : points)
    path += (path.empty() ? "" : " ") + std::to_string(point.x) + "," + tenths(point.y);
  const std::string words = lineInWords(figure);
  const HtmlScope svg(html, "svg",
                      {{"role", "img"},
                       {"aria-label", words},
                       {"viewBox", "0 0 " + std::to_string(kWidth) + " " + std::to_string(kHeight)},
                       {"preserveAspectRatio", "none"}});
  html.element("title", words);
  html.element("polyline", "", {{"points", path}});
}

}  // namespace dg
