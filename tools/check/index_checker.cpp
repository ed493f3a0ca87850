#include "tools/check/index_checker.h"

#include <algorithm>

#include "engine/keyed_index.h"
#include "engine/open_file.h"
#include "tools/check/text.h"

namespace dg::check {

namespace {

// Where a cursor has a node's link, as it stands in the header that begins a search: a reader that
// asks for the last key takes these bytes for a link.
constexpr NumberField kFalseLink = index_cursor::kNextLeaf;

constexpr std::int32_t kNoRecord = -1;

bool isSentinelKey(std::string_view key) {
  return key.find_first_not_of('\xFF') == std::string_view::npos;
}

}  // namespace

IndexChecker::IndexChecker(CheckRun& run, const LogicalView& file)
    : run_(run), file_(file), traits_(indexTraits(file.name)) {
  contents_.file = &file;
}

void IndexChecker::damage(std::string_view kind, const Place& place, std::string text) {
  run_.findings.damage(kind, place, std::move(text));
}

void IndexChecker::check() {
  if (!checkHeader()) return;
  const std::int64_t nodes = std::min<std::int64_t>(file_.entry.LastRecord, kNoNextLeaf - 1);
  visited_.assign(static_cast<std::size_t>(nodes) + 1, false);
  walk(root_, 1, file_.atBlock(0, within(index_header::kRoot)));
  checkLeafChain();
  checkSentinel();
  if (repeatedKeys_ > 0 && !mayRepeat_) {
    run_.findings.note(kind::kIndexRepeatedKey, *firstRepeated_,
                       "Keys that stand more than once, though the header says that none may: " +
                           text(repeatedKeys_) + ".");
  }
  checkPointers();
  run_.indexes.insert_or_assign(file_.name, std::move(contents_));
}

bool IndexChecker::checkHeader() {
  const std::string header = file_.block(0);
  entryLength_ = numberOf(index_header::kEntryLength, header);
  root_ = numberOf(index_header::kRoot, header);
  mayRepeat_ = numberOf(index_header::kDuplicateKeys, header) != 0;
  if (entryLength_ <= kPointerSize || entryLength_ > kEntriesSize) {
    damage(kind::kIndexEntryLength, file_.atBlock(0, within(index_header::kEntryLength)),
           "The entry length is " + text(entryLength_) + "; it must be the key's length and 4.");
    return false;
  }
  contents_.keyLength = entryLength_ - kPointerSize;
  if (traits_ != nullptr && contents_.keyLength != traits_->keyLength) {
    run_.findings.note(kind::kIndexEntryLength,
                       file_.atBlock(0, within(index_header::kEntryLength)),
                       "The keys have " + text(contents_.keyLength) + " bytes; those of " +
                           file_.name + " are known with " + text(traits_->keyLength) + ".");
  }
  const std::int32_t perNode = numberOf(index_header::kEntriesPerNode, header);
  if (perNode != kEntriesSize / entryLength_) {
    run_.findings.note(kind::kIndexHeader, file_.atBlock(0, within(index_header::kEntriesPerNode)),
                       "The header gives a node room for " + text(perNode) +
                           " entries; it has for " + text(kEntriesSize / entryLength_) + ".");
  }
  const std::int32_t lastBlock = numberOf(index_header::kLastBlock, header);
  if (lastBlock != file_.entry.LastRecord) {
    run_.findings.note(kind::kIndexHeader, file_.atBlock(0, within(index_header::kLastBlock)),
                       "The header gives the highest block as " + text(lastBlock) +
                           ", the directory as " + text(file_.entry.LastRecord) + ".");
  }
  if (numberOf(kFalseLink, header) != 0) {
    damage(kind::kIndexHeader, file_.atBlock(0, within(kFalseLink)),
           "The bytes 34 and 35 of the header must be 0: with any other value the last key is not "
           "found.");
  }
  return true;
}

std::optional<std::string> IndexChecker::walk(std::int32_t number, int level,
                                              const Place& reference) {
  if (!enter(number, level, reference)) {
    contents_.complete = false;
    return std::nullopt;
  }
  const std::optional<Node> node = readNode(number);
  if (!node) {
    contents_.complete = false;
    return std::nullopt;
  }
  checkKeyOrder(*node);
  if (node->nextLeaf == 0) return walkInterior(*node, level);
  return walkLeaf(*node, level);
}

/// Whether the walk may go into a node. `reference` is where its number stands.
bool IndexChecker::enter(std::int32_t number, int level, const Place& reference) {
  if (number < 1 || number >= static_cast<std::int32_t>(visited_.size())) {
    damage(kind::kIndexNodeRange, reference,
           "The node number " + text(number) + " is none of this index, whose highest block is " +
               text(file_.entry.LastRecord) + ".");
    return false;
  }
  if (visited_[static_cast<std::size_t>(number)]) {
    damage(kind::kIndexNodeTwice, reference,
           "The node " + text(number) + " is already in use at another place of the tree.");
    return false;
  }
  if (level > index_cursor::kMaxDepth) {
    damage(kind::kIndexDepth, reference,
           "The tree has more than " + text(index_cursor::kMaxDepth) +
               " levels; no reader goes deeper.");
    return false;
  }
  visited_[static_cast<std::size_t>(number)] = true;
  return true;
}

/// A node whose entries fit into it, or nothing after a finding.
std::optional<IndexChecker::Node> IndexChecker::readNode(std::int32_t number) {
  if (file_.blockOffset(std::int64_t{number} + 1) > file_.data->size()) {
    damage(kind::kIndexNodeRange, file_.atBlock(number),
           "The node " + text(number) + " lies beyond the end of the data file.");
    return std::nullopt;
  }
  Node node{.number = number, .bytes = file_.block(number)};
  node.count = numberOf(index_node::kEntryCount, node.bytes);
  node.nextLeaf = numberOf(index_node::kNextLeaf, node.bytes);
  if (node.count >= 1 && node.count <= kEntriesSize / entryLength_) return node;
  damage(kind::kIndexEntryCount, file_.atBlock(number, within(index_node::kEntryCount)),
         "The node " + text(number) + " has " + text(node.count) + " entries; a node has 1 to " +
             text(kEntriesSize / entryLength_) + ".");
  // What links here and where it links to is known all the same.
  if (node.nextLeaf != 0) leaves_.push_back({.number = number, .nextLeaf = node.nextLeaf});
  return std::nullopt;
}

std::int64_t IndexChecker::entryOffset(std::int32_t entry) const {
  return (index_node::kEntries - 1) + std::int64_t{entry - 1} * entryLength_;
}

std::string_view IndexChecker::key(const Node& node, std::int32_t entry) const {
  return std::string_view(node.bytes)
      .substr(static_cast<std::size_t>(entryOffset(entry)),
              static_cast<std::size_t>(contents_.keyLength));
}

std::int32_t IndexChecker::pointer(const Node& node, std::int32_t entry) const {
  const std::int64_t position = entryOffset(entry) + contents_.keyLength + 1;
  return numberOf({'L', static_cast<std::int32_t>(position)}, node.bytes);
}

void IndexChecker::checkKeyOrder(const Node& node) {
  for (std::int32_t entry = 2; entry <= node.count; ++entry) {
    if (compareKeys(key(node, entry), key(node, entry - 1)) >= 0) continue;
    damage(kind::kIndexKeyOrder, file_.atBlock(node.number, entryOffset(entry)),
           "The key of entry " + text(entry) + " of node " + text(node.number) +
               " is less than the one before it.");
  }
}

std::optional<std::string> IndexChecker::walkInterior(const Node& node, int level) {
  std::optional<std::string> highest;
  for (std::int32_t entry = 1; entry <= node.count; ++entry) {
    const Place place = file_.atBlock(node.number, entryOffset(entry));
    highest = walk(pointer(node, entry), level + 1, place);
    if (highest && compareKeys(*highest, key(node, entry)) != 0) {
      damage(kind::kIndexSeparator, place,
             "The key of entry " + text(entry) + " of node " + text(node.number) +
                 " is not the highest key below it: keys will not be found.");
    }
  }
  return highest;
}

std::string IndexChecker::walkLeaf(const Node& node, int level) {
  if (leafLevel_ == 0) leafLevel_ = level;
  if (level != leafLevel_) {
    damage(kind::kIndexDepth, file_.atBlock(node.number),
           "The leaf " + text(node.number) + " stands at level " + text(level) +
               ", the leaves before it at level " + text(leafLevel_) + ".");
  }
  leaves_.push_back({.number = node.number, .nextLeaf = node.nextLeaf});
  if (anyKey_ && compareKeys(key(node, 1), lastKey_) < 0) {
    damage(kind::kIndexKeyOrder, file_.atBlock(node.number, entryOffset(1)),
           "The first key of leaf " + text(node.number) +
               " is less than the last key of the leaf before it.");
  }
  for (std::int32_t entry = 1; entry <= node.count; ++entry) {
    const std::string_view found = key(node, entry);
    if (anyKey_ && found == lastKey_ && !isSentinelKey(found) && repeatedKeys_++ == 0)
      firstRepeated_ = file_.atBlock(node.number, entryOffset(entry));
    anyKey_ = true;
    lastKey_ = found;
    contents_.entries.push_back({.record = pointer(node, entry),
                                 .offset = file_.blockOffset(node.number) + entryOffset(entry)});
  }
  return lastKey_;
}

void IndexChecker::checkLeafChain() {
  // Below a node that could not be read there are leaves that are not known.
  for (std::size_t i = 0; i < leaves_.size(); ++i) {
    const Leaf& leaf = leaves_[i];
    const Place place = file_.atBlock(leaf.number, within(index_node::kNextLeaf));
    const bool isLast = i + 1 == leaves_.size();
    const std::int32_t expected = isLast ? kNoNextLeaf : leaves_[i + 1].number;
    if (leaf.nextLeaf == expected) continue;
    const bool mayBeUnknown = !contents_.complete && leaf.nextLeaf != kNoNextLeaf &&
                              leaf.nextLeaf < static_cast<std::int32_t>(visited_.size()) &&
                              !visited_[static_cast<std::size_t>(leaf.nextLeaf)];
    if (mayBeUnknown) continue;
    const std::string next =
        leaf.nextLeaf == kNoNextLeaf ? "ends the chain" : "links to " + text(leaf.nextLeaf);
    damage(kind::kIndexLeafChain, place,
           "The leaf " + text(leaf.number) + " " + next +
               (isLast ? ", but is the last leaf of the tree."
                       : ", but the next leaf of the tree is " + text(expected) + "."));
  }
}

/// The last entry of all: without it no search and no walk ends as it should.
void IndexChecker::checkSentinel() {
  if (leaves_.empty() || contents_.entries.empty()) return;
  const IndexEntry last = contents_.entries.back();
  if (isSentinelKey(lastKey_) && last.record == kNoRecord) {
    contents_.entries.pop_back();
    const bool isAlone = last.offset == file_.blockOffset(leaves_.back().number) + entryOffset(1);
    if (isAlone && leaves_.size() > 1) {
      run_.findings.note(kind::kIndexSentinel, contents_.placeOf(last),
                         "The last leaf holds the end mark alone: the last key is not found.");
    }
    return;
  }
  if (!contents_.complete && !isSentinelKey(lastKey_)) return;  // the last leaf was not reached
  damage(kind::kIndexSentinel, contents_.placeOf(last),
         "The last entry is not the end mark, a key of all 255 with the record -1.");
}

void IndexChecker::checkPointers() {
  const LogicalView* records = traits_ == nullptr || traits_->recordFile.empty()
                                   ? nullptr
                                   : run_.store.find(traits_->recordFile);
  for (const IndexEntry& entry : contents_.entries) {
    if (entry.record < 1) {
      damage(kind::kIndexPointer, contents_.placeOf(entry),
             "An entry leads to record " + text(entry.record) + ": walks end there.");
    } else if (records != nullptr && entry.record > records->entry.LastRecord) {
      damage(kind::kIndexPointer, contents_.placeOf(entry),
             "An entry leads to record " + text(entry.record) + " of " + records->name +
                 ", whose highest is " + text(records->entry.LastRecord) + ".");
    }
  }
}

}  // namespace dg::check
