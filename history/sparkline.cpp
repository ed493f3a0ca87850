#include "history/sparkline.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string_view>
#include <vector>

namespace dg {

namespace {

constexpr std::string_view kBlocks[] = {"▁", "▂", "▃", "▄", "▅", "▆", "▇", "█"};

}  // namespace

std::string sparkline(std::span<const KeptValue> values, Date first, Date last, std::size_t width) {
  if (last < first) return {};
  const auto days = static_cast<std::size_t>(last.days() - first.days()) + 1;
  const std::size_t places = std::min(days, width);
  std::vector<std::optional<double>> heights(places);
  for (const KeptValue& value : values) {
    if (value.day < first || last < value.day) continue;
    const auto day = static_cast<std::size_t>(value.day.days() - first.days());
    heights[day * places / days] = value.amount.toDouble();
  }
  double low = INFINITY;
  double high = -INFINITY;
  for (const auto& height : heights) {
    if (!height) continue;
    low = std::min(low, *height);
    high = std::max(high, *height);
  }
  std::string line;
  for (const auto& height : heights) {
    // Days that are all alike are a line in the middle.
    const double share = high > low && height ? (*height - low) / (high - low) : 0.5;
    const auto block = static_cast<std::size_t>(std::lround(share * (std::size(kBlocks) - 1)));
    line += height ? kBlocks[block] : " ";
  }
  return line;
}

}  // namespace dg
