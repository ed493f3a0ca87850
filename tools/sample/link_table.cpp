#include "tools/sample/link_table.h"

#include <array>

namespace dg::sample {

namespace {

constexpr std::size_t kNameWidth = 79;
constexpr std::string_view kPadding("\0\t\n\r ", 5);

/// A name behind its lead byte, which no reader looks at.
std::string field(std::string_view text, int entry) {
  std::string result("\1");
  result += text;
  // The suite's programs pad each in their own way: NULs, blanks, or a line end and then NULs.
  const std::array<std::string_view, 3> starts = {"", " ", "\r\n"};
  const auto kind = static_cast<std::size_t>(entry) % starts.size();
  result += starts[kind];
  result.resize(1 + kNameWidth, kind == 1 ? ' ' : '\0');
  return result;
}

}  // namespace

void LinkTable::add(std::string_view directory, std::string_view name,
                    std::string_view resolution) {
  std::string link(":");
  link.append(directory).append(":").append(name);
  bytes_ += field(link, entries_);
  bytes_ += field(resolution, entries_);
  ++entries_;
}

void LinkTable::addUnused() {
  add("", "", "");
  // A name of padding of every kind, over the two colons that stand there now.
  bytes_.replace(bytes_.size() - 2 * (1 + kNameWidth) + 1, kPadding.size(), kPadding);
}

std::string LinkTable::bytes() const {
  return bytes_.substr(0, bytes_.find_last_not_of(kPadding) + 1);
}

}  // namespace dg::sample
