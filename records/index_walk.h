#pragma once

#include <cstdint>
#include <string>

#include "engine/business_basic.h"
#include "engine/walk_guard.h"

namespace dg {

/// An integer packed by its opcode into a key of just that width.
std::string integerKey(char opcode, std::int32_t value);

// What the engine's KFind gives is asked for in one of three ways, each a record number or 0:
//   findExact   the key met exactly: one customer, vendor, part, ticket, account
//   findOrNext  that, or else the next greater key's: one claim, one unit
//   IndexWalk   all from there on
// None of them gives a sign: that it was the next key's is told by findExact's 0 alone.

/// The record of the key met exactly.
std::int32_t findExact(const char* index, std::string key);

/// The record of the key or, when that is not met, of the next greater one.
std::int32_t findOrNext(const char* index, std::string key);

/// A walk over an index of the shared engine from a key on, in key order. It begins at the key
/// itself or, when that is not met, at the next greater one.
///
///     for (IndexWalk walk(files::kLineIndex, integerKey('C', 1)); !walk.atEnd(); walk.next()) ...
///
/// Raises what the engine raises, and 6 when the index yields more entries than its blocks can
/// hold.
class IndexWalk {
 public:
  IndexWalk(const char* index, std::string key);

  /// Whether the walk has run past the last entry, or met one that points to no record: a pointer
  /// with a sign behind the first entry ends most lists too. Walks that go on there ask record().
  bool atEnd() const { return record_ <= 0; }
  /// What the index gave; of the first entry the magnitude, because its sign tells only that the
  /// key was not met.
  std::int32_t record() const { return record_; }
  const std::string& key() const { return key_; }
  /// An integer of the current key.
  std::int32_t keyField(char opcode, std::int32_t position) const;
  void next();

 private:
  /// Finds the first entry; returns the guard of the walk from there.
  WalkGuard start();

  std::shared_ptr<cLogicalFile> index_;
  std::string cursor_;
  std::string key_;
  std::int32_t record_ = 0;
  WalkGuard guard_;
};

}  // namespace dg
