#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "engine/layout.h"
#include "engine/logical_file.h"

namespace dg {

/// Layout of an index's block 0.
namespace index_header {
inline constexpr NumberField kEntryLength{'C', 1};  ///< the key's length and 4
inline constexpr NumberField kEntriesPerNode{'C', 3};
inline constexpr NumberField kLastBlock{'C', 5};
inline constexpr NumberField kAlwaysTwo{'C', 7};
inline constexpr NumberField kRoot{'C', 9};
inline constexpr NumberField kFirstFill{'C', 11};
inline constexpr NumberField kDuplicateKeys{'C', 13};  ///< all ones when keys may repeat, else 0
}  // namespace index_header

/// Layout of all other blocks.
namespace index_node {
inline constexpr NumberField kEntryCount{'C', 1};
inline constexpr NumberField kNextLeaf{'C', 3};  ///< 0 in an interior node
inline constexpr std::int32_t kEntries = 5;      ///< where the first entry begins
}  // namespace index_node

/// Layout of the 544-byte cursor that a caller owns for each walk: what it needs of the header,
/// then the walk's state, then the current node.
namespace index_cursor {
inline constexpr std::int32_t kSize = 544;
inline constexpr NumberField kEntryLength = index_header::kEntryLength;
inline constexpr NumberField kRootNode = index_header::kRoot;
inline constexpr NumberField kCurrentEntry{'B', 17};  ///< 1-based entry in the current leaf
inline constexpr NumberField kPathDepth{'B', 18};     ///< levels from the root (1) to the leaf
inline constexpr NumberField kNodePath{'C', 19};      ///< node number of level 1; the others behind
inline constexpr std::int32_t kMaxDepth = 7;          ///< levels that the path has room for
inline constexpr std::int32_t kNode = 33;
inline constexpr NumberField kEntryCount = index_node::kEntryCount.behind(kNode - 1);
inline constexpr NumberField kNextLeaf = index_node::kNextLeaf.behind(kNode - 1);
inline constexpr std::int32_t kEntries = kNode - 1 + index_node::kEntries;
}  // namespace index_cursor

/// NextLeaf of the last leaf.
inline constexpr std::int32_t kNoNextLeaf = 65535;

/// Bytes of an entry behind its key, and bytes of a node behind its count and next leaf.
inline constexpr std::int32_t kPointerSize = 4;
inline constexpr std::int32_t kEntriesSize = kBlockSize - (index_node::kEntries - 1);

/// A bound of the entries that a walk meets in one block of an index; for a WalkGuard.
constexpr std::int64_t mostEntriesPerBlock(std::int32_t keyLength) {
  const std::int64_t entryLength = std::int64_t{keyLength < 0 ? 0 : keyLength} + kPointerSize;
  return kEntriesSize / entryLength + 1;
}

// The index operations on an open logical file; see engine/business_basic.h. What they raise beside
// the errors of the file's reads:
//   5   an entry length below 4, which leaves the key a negative length; the entry in front of the
//       first where the cursor has no bytes for it (KLast of an empty index with long keys)
//   6   a tree of more levels than a cursor holds; a chain of leaves with more steps than the file
//       has blocks; a node that no parent knows (KPrev)
//   31  an entry beyond the end of its node; a text that is no cursor
void iKFind(const cLogicalFile& LogicalFile, std::string& Buff, std::string& Key, std::int32_t& Rec,
            bool& Orb);
void iKNext(const cLogicalFile& LogicalFile, std::string& Buff, std::string& Key, std::int32_t& Rec,
            bool& Orb);
void iKPrev(const cLogicalFile& LogicalFile, std::string& Buff, std::string& Key, std::int32_t& Rec,
            bool& Orb);
void iKLast(const cLogicalFile& LogicalFile, std::string& Buff, std::string& Key, std::int32_t& Rec,
            bool& Orb);
std::int32_t iKCount(const cLogicalFile& LogicalFile, bool& Orb);
std::int32_t iKLength(const cLogicalFile& LogicalFile, bool& Orb);

/// Where a walk stands, as one number: the current leaf and the entry in it. Raises 31 for a text
/// that is no cursor.
std::int64_t placeOf(std::string_view cursor);

/// Byte-wise comparison of unsigned bytes, the longer being greater when one begins the other; only
/// the sign counts.
int compareKeys(std::string_view a, std::string_view b);

}  // namespace dg
