#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tools/check/check_run.h"

namespace dg::check {

/// Examines an index: header, tree, keys, leaf chain, sentinel, and whether its record numbers are
/// ones of the record file that it leads to. Leaves its entries in the run.
class IndexChecker {
 public:
  IndexChecker(CheckRun& run, const LogicalView& file);
  void check();

 private:
  struct Node {
    std::int32_t number = 0;
    std::int32_t nextLeaf = 0;
    std::int32_t count = 0;
    std::string bytes;
  };
  struct Leaf {
    std::int32_t number = 0;
    std::int32_t nextLeaf = 0;
  };

  bool checkHeader();
  /// Walks the nodes below and including one. Returns the highest key there, or nothing when it is
  /// not known.
  std::optional<std::string> walk(std::int32_t number, int level, const Place& reference);
  bool enter(std::int32_t number, int level, const Place& reference);
  std::optional<Node> readNode(std::int32_t number);
  void checkKeyOrder(const Node& node);
  std::optional<std::string> walkInterior(const Node& node, int level);
  std::string walkLeaf(const Node& node, int level);
  void checkLeafChain();
  void checkSentinel();
  void checkPointers();

  std::string_view key(const Node& node, std::int32_t entry) const;
  std::int32_t pointer(const Node& node, std::int32_t entry) const;
  /// Byte of an entry within its node.
  std::int64_t entryOffset(std::int32_t entry) const;
  void damage(std::string_view kind, const Place& place, std::string text);

  CheckRun& run_;
  const LogicalView& file_;
  const IndexTraits* traits_;
  IndexContents contents_;
  std::int32_t entryLength_ = 0;
  std::int32_t root_ = 0;
  bool mayRepeat_ = false;

  std::vector<bool> visited_;  // by node number
  std::vector<Leaf> leaves_;   // in the order of the tree
  int leafLevel_ = 0;          // 0: no leaf yet
  std::string lastKey_;        // of the leaves so far
  bool anyKey_ = false;
  std::int64_t repeatedKeys_ = 0;
  std::optional<Place> firstRepeated_;
};

}  // namespace dg::check
