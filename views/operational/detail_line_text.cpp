#include "views/operational/detail_line_text.h"

#include "platform/format.h"
#include "platform/text.h"

namespace dg {

namespace {

constexpr std::string_view kAmountMask = "#####.00";

}  // namespace

std::string lineText(const DisplayLine& line, std::size_t index) {
  return std::string(shown(toText(line.at(index))));
}

std::string lineAmount(const DisplayLine& line, std::size_t index) {
  const auto* hundredths = std::get_if<std::int32_t>(&line.at(index));
  return Format(hundredths != nullptr ? *hundredths / 100.0 : 0, kAmountMask);
}

}  // namespace dg
