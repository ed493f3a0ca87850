#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "engine/codec.h"
#include "engine/logical_file.h"
#include "tests/support/engine_store.h"
#include "tools/sample/index_writer.h"

namespace dg::test {

inline std::string padded(std::string key, int length) {
  key.resize(static_cast<std::size_t>(length), '\0');
  return key;
}

/// An index in a file of its own, behind one block of something else, and a walk over it.
class Index {
 public:
  explicit Index(const std::string& blocks) { open(blocks); }
  Index(const std::map<std::string, std::int32_t>& entries, sample::IndexShape shape) {
    std::vector<sample::IndexEntry> list;
    list.reserve(entries.size());
    for (const auto& [key, record] : entries)
      list.push_back({key, record});
    const sample::IndexImage image = sample::buildIndex(list, shape);
    levels_ = image.levels;
    open(image.bytes);
  }

  int levels() const { return levels_; }
  const std::shared_ptr<cLogicalFile>& file() const { return file_; }
  EngineStore& store() { return store_; }
  const cBusinessBasic& engine() { return store_.engine(); }

  std::int32_t find(std::string key) {
    key_ = std::move(key);
    engine().KFind(file_, cursor_, key_, record_, orb_);
    return record_;
  }
  std::int32_t next() {
    engine().KNext(file_, cursor_, key_, record_, orb_);
    return record_;
  }
  std::int32_t previous() {
    engine().KPrev(file_, cursor_, key_, record_, orb_);
    return record_;
  }
  std::int32_t last() {
    engine().KLast(file_, cursor_, key_, record_, orb_);
    return record_;
  }
  std::int32_t count() { return engine().KCount(file_, orb_); }
  const std::string& key() const { return key_; }
  std::string& cursor() { return cursor_; }
  /// What the cursor says: the entry in its leaf, the levels to it, the node of a level.
  std::int32_t entry() const { return Unpack('B', cursor_, 17); }
  std::int32_t depth() const { return Unpack('B', cursor_, 18); }
  std::int32_t node(int level) const { return Unpack('C', cursor_, 17 + 2 * level); }

 private:
  void open(const std::string& blocks) {
    const auto lastBlock = static_cast<std::int32_t>(blocks.size() / kBlockSize) - 1;
    store_.place("OTHER", 'X', 512, 0, std::string(512, '\xEE'));
    store_.place("KEYI", 'I', 512, lastBlock, blocks);
    file_ = engine().LogicalOpen("KEYI");
  }

  EngineStore store_;
  std::shared_ptr<cLogicalFile> file_;
  int levels_ = 0;
  std::string cursor_;
  std::string key_;
  std::int32_t record_ = 0;
  bool orb_ = false;
};

/// Blocks of an index by hand, for trees that no writer makes.
class Blocks {
 public:
  Blocks(int entryLength, int root) : entryLength_(entryLength) {
    node();
    put('C', entryLength, 1);
    put('C', root, 9);
  }
  /// Begins a node; its number is the count of blocks before it.
  Blocks& node(int entryCount = 0, int nextLeaf = 0) {
    bytes_.append(kBlockSize, '\0');
    position_ = 5;
    put('C', entryCount, 1);
    put('C', nextLeaf, 3);
    return *this;
  }
  Blocks& entry(const std::string& key, std::int32_t pointer) {
    bytes_.replace(bytes_.size() - kBlockSize + static_cast<std::size_t>(position_) - 1, key.size(),
                   key);
    put('L', pointer, position_ + entryLength_ - 4);
    position_ += entryLength_;
    return *this;
  }
  Blocks& put(char opcode, std::int32_t value, std::int32_t position) {
    Pack(opcode, bytes_, value, static_cast<std::int32_t>(bytes_.size()) - kBlockSize + position);
    return *this;
  }
  const std::string& bytes() const { return bytes_; }

 private:
  int entryLength_;
  int position_ = 5;
  std::string bytes_;
};

}  // namespace dg::test
