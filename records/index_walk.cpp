#include "records/index_walk.h"

#include <utility>

#include "engine/codec.h"
#include "engine/state.h"
#include "platform/checked.h"

namespace dg {

namespace {

// An index block is its count and next leaf, and then entries of a key and a pointer each.
constexpr std::size_t kEntriesSize = kBlockSize - 4;
constexpr std::size_t kPointerSize = 4;

std::int64_t entriesPerBlock(std::size_t keyLength) {
  return static_cast<std::int64_t>(kEntriesSize / (keyLength + kPointerSize)) + 1;
}

}  // namespace

std::string integerKey(char opcode, std::int32_t value) {
  std::string key(static_cast<std::size_t>(opcodeWidth(opcode)), '\0');
  Pack(opcode, key, value, 1);
  return key;
}

std::int32_t findExact(const char* index, std::string key) {
  std::string cursor;
  std::int32_t record = 0;
  bool orb = true;
  sharedEngine().KFind(index, cursor, key, record, orb);
  return record > 0 ? record : 0;
}

IndexWalk::IndexWalk(const char* index, std::string key)
    : index_(LogicalFileArgument(index).resolve()), key_(std::move(key)), guard_(start()) {}

WalkGuard IndexWalk::start() {
  bool orb = true;
  sharedEngine().KFind(index_, cursor_, key_, record_, orb);
  record_ = checkedAbs(record_);
  return WalkGuard(*index_, entriesPerBlock(key_.size()));
}

std::int32_t IndexWalk::keyField(char opcode, std::int32_t position) const {
  return Unpack(opcode, key_, position);
}

void IndexWalk::next() {
  guard_.step();
  bool orb = true;
  sharedEngine().KNext(index_, cursor_, key_, record_, orb);
}

}  // namespace dg
