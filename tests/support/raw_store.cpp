#include "tests/support/raw_store.h"

namespace dg::test {

namespace {

constexpr std::size_t kBlock = 512;
constexpr std::size_t kEntry = 32;
constexpr std::int64_t kLastLeaf = 65'535;
constexpr std::int64_t kNoRecord = -1;

/// The part of a path behind its last "/".
std::string fileName(const std::string& path) {
  return path.substr(path.rfind('/') + 1);
}

}  // namespace

std::int64_t unsignedAt(const std::string& bytes, std::size_t position, std::size_t width) {
  std::int64_t value = 0;
  for (const char byte : bytes.substr(position - 1, width))
    value = value * 256 + static_cast<unsigned char>(byte);
  return value;
}

std::int64_t signedAt(const std::string& bytes, std::size_t position, std::size_t width) {
  const std::int64_t value = unsignedAt(bytes, position, width);
  const std::int64_t range = std::int64_t{1} << (8 * width);
  return value >= range / 2 ? value - range : value;
}

RawStore::RawStore(const std::vector<SampleFile>& files) {
  for (const SampleFile& file : files)
    contents_[fileName(file.path)] = file.content;
  for (const auto& [name, directory] : contents_) {
    if (!name.ends_with("LK")) continue;
    const std::string& data = contents_.at(name.substr(0, name.size() - 2) + "DB");
    for (std::size_t at = 0; at < directory.size(); at += kEntry) {
      const std::string entry = directory.substr(at, kEntry);
      const std::string file = entry.substr(0, entry.find('\0'));
      const auto start = static_cast<std::size_t>(unsignedAt(entry, 11, 3)) * kBlock;
      if (start == 0) continue;
      files_[file] = {.data = data.substr(start),
                      .length = static_cast<std::int32_t>(unsignedAt(entry, 14, 2)),
                      .lastRecord = static_cast<std::int32_t>(signedAt(entry, 17, 4))};
    }
  }
}

const std::string& RawStore::file(const std::string& name) const {
  static const std::string none;
  const auto found = contents_.find(name);
  return found == contents_.end() ? none : found->second;
}

std::string RawStore::record(const std::string& name, std::int32_t number) const {
  const LogicalFile& file = files_.at(name);
  if (number < 1 || number > file.lastRecord) return {};
  const auto length = static_cast<std::size_t>(file.length);
  return file.data.substr(static_cast<std::size_t>(number) * length, length);
}

std::vector<std::pair<std::string, std::int32_t>> RawStore::entries(
    const std::string& index) const {
  const std::string& data = files_.at(index).data;
  const auto block = [&data](std::int64_t number) {
    return data.substr(static_cast<std::size_t>(number) * kBlock, kBlock);
  };
  const auto length = static_cast<std::size_t>(unsignedAt(data, 1, 2));
  const auto pointer = [length](const std::string& node, std::size_t entry) {
    return signedAt(node, 4 + entry * length + length - 3, 4);
  };
  std::string node = block(unsignedAt(data, 9, 2));
  while (unsignedAt(node, 3, 2) == 0)
    node = block(pointer(node, 0));
  std::vector<std::pair<std::string, std::int32_t>> found;
  for (;;) {
    const auto count = static_cast<std::size_t>(unsignedAt(node, 1, 2));
    for (std::size_t entry = 0; entry < count; ++entry) {
      const std::int64_t record = pointer(node, entry);
      if (record == kNoRecord) continue;
      found.emplace_back(node.substr(4 + entry * length, length - 4),
                         static_cast<std::int32_t>(record));
    }
    const std::int64_t next = unsignedAt(node, 3, 2);
    if (next == kLastLeaf) return found;
    node = block(next);
  }
}

}  // namespace dg::test
