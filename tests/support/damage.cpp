#include "tests/support/damage.h"

#include <algorithm>
#include <iterator>

#include "engine/logical_file.h"
#include "tests/support/damage_kinds.h"

namespace dg::test {

namespace {

const std::vector<DamageKind>& allKinds() {
  static const std::vector<DamageKind> all = [] {
    std::vector<DamageKind> kinds;
    for (const auto& some : {fileDamage(), recordDamage()})
      kinds.insert(kinds.end(), some.begin(), some.end());
    return kinds;
  }();
  return all;
}

}  // namespace

std::vector<PlacedFile> placedFiles(const std::vector<SampleFile>& files) {
  std::vector<PlacedFile> placed;
  for (std::size_t at = 0; at < files.size(); ++at) {
    const std::string& path = files[at].path;
    if (!path.ends_with("LK")) continue;
    const std::string data = path.substr(0, path.size() - 2) + "DB";
    const auto found = std::ranges::find(files, data, &SampleFile::path);
    if (found == files.end()) continue;
    const std::string& bytes = files[at].content;
    for (std::size_t offset = 0; offset < bytes.size(); offset += DirectoryEntry::kSize) {
      const auto entry = DirectoryEntry::decode(bytes.substr(offset, DirectoryEntry::kSize));
      if (entry.FileName.empty() || entry.FileType.empty()) continue;
      placed.push_back({.name = entry.FileName,
                        .type = entry.FileType.front(),
                        .startBlock = entry.Position,
                        .recordLength = entry.RecordLength,
                        .lastRecord = entry.LastRecord,
                        .directory = at,
                        .directoryEntry = offset,
                        .data = static_cast<std::size_t>(found - files.begin())});
    }
  }
  return placed;
}

Damager::Damager(std::vector<SampleFile> sound)
    : sound_(std::move(sound)), placed_(placedFiles(sound_)) {}

std::vector<std::string_view> Damager::kinds() {
  std::vector<std::string_view> names;
  std::ranges::transform(allKinds(), std::back_inserter(names), &DamageKind::name);
  return names;
}

DamagedStore Damager::make(std::uint64_t number) const {
  const std::vector<DamageKind>& all = allKinds();
  sample::Random random(number, "damage");
  Patient store(sound_, placed_, random);
  all[number % all.size()].apply(store);
  // Troubles come together: one damage can hide behind the guard against another.
  const int more = number / all.size() % 2 == 0 ? 0 : random.between(1, 5);
  for (int i = 0; i < more; ++i)
    random.pick(all).apply(store);
  return {std::move(store.files), std::move(store.story)};
}

}  // namespace dg::test
