#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace dg::sample {

class Random;

/// A key of an index and the record that it leads to.
struct IndexEntry {
  std::string key;
  std::int32_t record = 0;

  bool operator==(const IndexEntry&) const = default;
};

/// What the shape of an index depends on.
struct IndexShape {
  int keyLength = 4;           ///< bytes, 1 to 250
  bool duplicateKeys = false;  ///< whether entries may share a key
  int fillPercent = 60;        ///< how full nodes are; at least two entries stand in each
  int spareBlocks = 0;         ///< blocks behind the nodes that no node uses
  Random* scatter = nullptr;   ///< shuffles the node numbers, as years of splits do; null: in order
};

/// The blocks of an index: header, nodes, spare blocks.
struct IndexImage {
  std::string bytes;
  int lastBlock = 0;  ///< number of the highest block, spare ones included
  int levels = 0;     ///< from the root to the leaves
};

/// Entries that a node of 512 bytes has room for.
int entriesPerNode(int keyLength);

/// Builds an index over entries in key order: equal keys stay in the order given. Where the fill
/// would give a tree deeper than a cursor can walk, or more nodes than have numbers, nodes are
/// filled further. Raises 5 when a key is out of order, not of the key length, repeated without
/// leave or all 255, and 6 when the nodes outgrow their 16-bit numbers even so.
IndexImage buildIndex(std::span<const IndexEntry> entries, const IndexShape& shape);

}  // namespace dg::sample
