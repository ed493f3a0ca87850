#include "engine/links.h"

#include <algorithm>
#include <set>
#include <string_view>

#include "engine/text_utilities.h"
#include "platform/file.h"
#include "platform/text.h"
#include "platform/values/run_time_error.h"

namespace dg {

namespace {

constexpr std::size_t kEntrySize = link_entry::kSize;
constexpr std::size_t kEntriesPerRead = 512;

}  // namespace

cLink cLink::decode(std::string_view entry) {
  cLink link;
  link.LinkFile = Trun(bytesOf(link_entry::kLinkName, entry), true);
  link.ResolutionFile = Trun(bytesOf(link_entry::kResolutionName, entry), true);
  return link;
}

std::shared_ptr<cLink> cLinks::Add(const std::string& LinkFile, const std::string& ResolutionFile,
                                   const std::string& sKey) {
  auto link = std::make_shared<cLink>();
  link->LinkFile = LinkFile;
  link->ResolutionFile = ResolutionFile;
  return insert(std::move(link), sKey);
}

void cLinks::load(const std::string& path) {
  // Nothing is ever written on the share: where the suite's own open would leave a new, empty
  // table, there simply are no links.
  const auto file = openIfThere(path);
  if (!file) return;

  std::string block(kEntrySize * kEntriesPerRead, '\0');
  std::int64_t offset = 0;
  for (std::size_t count = block.size(); count == block.size();) {
    count = file->read(offset, block.data(), block.size());
    offset += static_cast<std::int64_t>(count);
    const std::string_view table = std::string_view(block).substr(0, count);
    for (std::size_t start = 0; start < table.size(); start += kEntrySize) {
      const cLink link = cLink::decode(table.substr(start, kEntrySize));
      // Of a repeated name the first stays.
      if (link.LinkFile.empty() || find(link.LinkFile)) continue;
      Add(link.LinkFile, link.ResolutionFile, link.LinkFile);
    }
  }
}

std::vector<std::string> cLinks::directories() const {
  std::vector<std::string> names;
  std::set<std::string> known;
  for (const auto& link : NewEnum()) {
    const std::string& name = link->LinkFile;
    const std::size_t end = name.find(':', 1);
    if (name.front() != ':' || end == std::string::npos || end == 1) continue;
    std::string directory = name.substr(1, end - 1);
    if (known.insert(upperCase(directory)).second) names.push_back(std::move(directory));
  }
  return names;
}

}  // namespace dg
