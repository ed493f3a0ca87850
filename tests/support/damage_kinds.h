#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/support/damage.h"

namespace dg::test {

inline constexpr std::size_t kBlock = 512;

/// Numbers that decide something at their edges.
inline constexpr std::int64_t kEdges[] = {
    0,       1,   2,   3,      7,      8,          101,         127,    128,   254,
    255,     256, 511, 512,    32767,  32768,      65534,       65535,  65536, 8388607,
    8388608, -1,  -2,  -32768, 999999, 2147483647, -2147483648, 4194304};

/// A store under the hammer: its files, where its logical files are, and what was done so far.
class Patient {
 public:
  Patient(std::vector<SampleFile> sound, const std::vector<PlacedFile>& places,
          sample::Random& stream)
      : files(std::move(sound)), placed(places), random(stream) {}

  std::vector<SampleFile> files;
  const std::vector<PlacedFile>& placed;
  sample::Random& random;
  std::string story;

  void tell(const std::string& text) { story += (story.empty() ? "" : "; ") + text; }

  SampleFile& anyFile() {
    for (;;) {
      SampleFile& file = files[below(files.size())];
      if (!file.content.empty()) return file;
    }
  }
  /// A logical file of a type that has anything in it.
  const PlacedFile& anyPlaced(char type) {
    for (;;) {
      const PlacedFile& file = random.pick(placed);
      if (file.type == type && file.lastRecord > 0) return file;
    }
  }
  const PlacedFile& named(std::string_view name) {
    return *std::ranges::find(placed, name, &PlacedFile::name);
  }
  SampleFile* find(std::string_view end) {
    const auto found = std::ranges::find_if(
        files, [&](const SampleFile& file) { return file.path.ends_with(end); });
    return found == files.end() ? nullptr : &*found;
  }

  std::size_t below(std::size_t count) {
    return static_cast<std::size_t>(random.below(std::max<std::size_t>(count, 1)));
  }
  std::int64_t edge() { return random.pick(kEdges); }
  char byte() { return static_cast<char>(random.below(256)); }

  /// Offset of a record in its data file.
  static std::size_t recordAt(const PlacedFile& file, std::int32_t record) {
    return static_cast<std::size_t>(file.startBlock) * kBlock +
           static_cast<std::size_t>(record) * static_cast<std::size_t>(file.recordLength);
  }
  std::int32_t anyRecord(const PlacedFile& file) { return random.between(1, file.lastRecord); }

  /// Overwrites `width` bytes at an offset with a big-endian number; nothing beyond the end.
  void number(SampleFile& file, std::size_t offset, std::size_t width, std::int64_t value) {
    for (std::size_t i = 0; i < width; ++i) {
      if (offset + i >= file.content.size()) return;
      file.content[offset + i] = static_cast<char>(value >> (8 * (width - 1 - i)) & 0xff);
    }
  }
  std::int64_t number(const SampleFile& file, std::size_t offset, std::size_t width) const {
    std::int64_t value = 0;
    for (std::size_t i = 0; i < width && offset + i < file.content.size(); ++i)
      value = value << 8 | static_cast<unsigned char>(file.content[offset + i]);
    return value;
  }

  /// A node of an index: its block number, from 1.
  std::int32_t anyNode(const PlacedFile& index) {
    std::int32_t node = random.between(1, index.lastRecord);
    // Spare blocks are no nodes: nothing reads them.
    for (int i = 0; i < 20 && number(files[index.data], recordAt(index, node), 2) == 0; ++i)
      node = random.between(1, index.lastRecord);
    return node;
  }
  std::size_t entryLength(const PlacedFile& index) const {
    return static_cast<std::size_t>(number(files[index.data], recordAt(index, 0), 2));
  }
};

/// A way to damage a store.
struct DamageKind {
  std::string_view name;
  void (*apply)(Patient&);
};
/// Whole files, and the nodes of indexes.
std::span<const DamageKind> fileDamage();
/// Records and their chains, and the tables that lead to them.
std::span<const DamageKind> recordDamage();

}  // namespace dg::test
