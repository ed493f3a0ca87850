#include "records/index_walk.h"

#include <algorithm>
#include <utility>

#include "engine/codec.h"
#include "engine/keyed_index.h"
#include "engine/state.h"
#include "platform/values/checked.h"

namespace dg {

std::string integerKey(char opcode, std::int32_t value) {
  std::string key(static_cast<std::size_t>(opcodeWidth(opcode)), '\0');
  Pack(opcode, key, value, 1);
  return key;
}

namespace {

std::int32_t find(const LogicalFileArgument& index, std::string& cursor, std::string& key) {
  std::int32_t record = 0;
  bool orb = true;
  sharedEngine().KFind(index, cursor, key, record, orb);
  return record;
}

}  // namespace

std::int32_t findExact(const char* index, std::string key) {
  std::string cursor;
  return std::max(find(index, cursor, key), 0);
}

std::int32_t findOrNext(const char* index, std::string key) {
  std::string cursor;
  return checkedAbs(find(index, cursor, key));
}

IndexWalk::IndexWalk(const char* index, std::string key)
    : index_(LogicalFileArgument(index).resolve()), key_(std::move(key)), guard_(start()) {}

WalkGuard IndexWalk::start() {
  record_ = checkedAbs(find(index_, cursor_, key_));
  const auto keyLength = static_cast<std::int32_t>(key_.size());
  return WalkGuard(*index_, mostEntriesPerBlock(keyLength));
}

std::int32_t IndexWalk::keyField(char opcode, std::int32_t position) const {
  return Unpack(opcode, key_, position);
}

void IndexWalk::next() {
  guard_.step(placeOf(cursor_));
  bool orb = true;
  sharedEngine().KNext(index_, cursor_, key_, record_, orb);
}

}  // namespace dg
