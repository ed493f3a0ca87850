#include "engine/keyed_index.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "engine/codec.h"
#include "engine/walk_guard.h"
#include "platform/message_box.h"
#include "platform/values/checked.h"
#include "platform/values/run_time_error.h"

namespace dg {

namespace {

using namespace index_cursor;

std::int32_t blockOffset(const cLogicalFile& file, std::int32_t block) {
  return checkedMultiply(checkedAdd(file.Position, block), kBlockSize);
}

std::uint32_t bigEndian16(const char* bytes) {
  const auto* byte = reinterpret_cast<const unsigned char*>(bytes);
  return static_cast<std::uint32_t>(byte[0] << 8 | byte[1]);
}

/// A caller's cursor, in place. It is read and changed at the positions of its layout; what lies
/// beyond its end raises what the codec raises.
class Cursor {
 public:
  /// For the start of a walk: the header block over positions 1 to 512.
  Cursor(const cLogicalFile& file, std::string& buff, const char* header)
      : file_(file), buff_(buff) {
    if (buff.size() < static_cast<std::size_t>(kSize)) buff.resize(kSize, '\0');
    std::memcpy(buff.data(), header, kBlockSize);
    readEntryLength();
  }
  /// For going on with a walk: raises 31 for a text that is no cursor.
  Cursor(const cLogicalFile& file, std::string& buff) : file_(file), buff_(buff) {
    // Read in this order: the first that a short text does not reach is the one that is told.
    for (const NumberField field :
         {kCurrentEntry, kPathDepth, kEntryCount, kNextLeaf, NumberField{'B', kSize}})
      Unpack(field, buff);
    readEntryLength();
  }

  std::int32_t keyLength() const { return entryLength_ - kPointerSize; }
  std::int32_t rootNode() const { return field16(kRootNode); }
  std::int32_t currentEntry() const { return byteAt(kCurrentEntry); }
  std::int32_t pathDepth() const { return byteAt(kPathDepth); }
  std::int32_t entryCount() const { return field16(kEntryCount); }
  std::int32_t nextLeaf() const { return field16(kNextLeaf); }
  std::int32_t nodeAt(std::int32_t level) const { return field16(nodeField(level)); }

  void setCurrentEntry(std::int32_t entry) {
    buff_[kCurrentEntry.position - 1] = static_cast<char>(entry);
  }
  void setPathDepth(std::int32_t depth) {
    buff_[kPathDepth.position - 1] = static_cast<char>(depth);
  }
  void setNodeAt(std::int32_t level, std::int32_t node) {
    const auto at = static_cast<std::size_t>(nodeField(level).position) - 1;
    buff_[at] = static_cast<char>(node >> 8);
    buff_[at + 1] = static_cast<char>(node);
  }

  void readNode(std::int32_t node, bool& orb) {
    iReadFileInto(file_.OpenFile, buff_.data() + kNode - 1, kBlockSize, blockOffset(file_, node),
                  orb);
  }
  /// Reads a node one level below `level`, which it counts up, and notes it in the path.
  void descend(std::int32_t node, std::int32_t& level, bool& orb) {
    if (level >= kMaxDepth) throw RunTimeError(kOverflow);
    readNode(node, orb);
    setNodeAt(++level, node);
  }
  /// Reads the next leaf and notes it in the path at `level`; a level that the path has no room for
  /// is not noted.
  void moveRight(std::int32_t level, bool& orb) {
    const std::int32_t node = nextLeaf();
    readNode(node, orb);
    if (level <= kMaxDepth) setNodeAt(level, node);
  }

  /// Key of a 1-based entry. Entry 0 lies in front of the first, inside the cursor or before it.
  std::string_view key(std::int32_t entry) const {
    const std::int32_t position = checkedAdd(kEntries, checkedMultiply(entry - 1, entryLength_));
    if (position < 1) throw RunTimeError(kInvalidProcedureCall);
    return {buff_.data() + position - 1, static_cast<std::size_t>(keyLength())};
  }
  /// Pointer of an entry, as it stands. Read before the key: it proves that the entry is there.
  std::int32_t pointer(std::int32_t entry) const {
    return Unpack('L', buff_, checkedAdd(kNode, checkedMultiply(entry, entryLength_)));
  }
  /// An entry's key and its pointer, -1 as 0.
  void fetch(std::int32_t entry, std::string& entryKey, std::int32_t& record) const {
    const std::int32_t value = pointer(entry);
    entryKey.assign(key(entry));
    record = value == -1 ? 0 : value;
  }

  /// The node's first entry whose key is not less than `sought`, with the sign of their difference
  /// in `order`; 0 when there is none.
  std::int32_t firstNotLess(std::string_view sought, int& order) const;
  /// The node's last entry that has this key and this pointer; 0 when there is none.
  std::int32_t lastIdentical(std::string_view entryKey, std::int32_t entryPointer) const;

 private:
  /// Entries of the node that lie within the cursor.
  std::int32_t entriesWithin() const {
    const auto room = static_cast<std::int32_t>(buff_.size()) - kEntries + 1;
    return std::min(entryCount(), room / entryLength_);
  }
  std::int32_t byteAt(NumberField field) const {
    return static_cast<unsigned char>(buff_[static_cast<std::size_t>(field.position) - 1]);
  }
  std::int32_t field16(NumberField field) const {
    return static_cast<std::int32_t>(bigEndian16(buff_.data() + field.position - 1));
  }
  static NumberField nodeField(std::int32_t level) {
    return kNodePath.behind(kNodePath.width() * (level - 1));
  }

  void readEntryLength() {
    entryLength_ = field16(kEntryLength);
    // A key of negative length.
    if (entryLength_ < kPointerSize) throw RunTimeError(kInvalidProcedureCall);
  }

  const cLogicalFile& file_;
  std::string& buff_;
  std::int32_t entryLength_ = 0;
};

std::int32_t Cursor::firstNotLess(std::string_view sought, int& order) const {
  const std::int32_t count = entryCount();
  const std::int32_t within = entriesWithin();
  const auto stride = static_cast<std::size_t>(entryLength_);
  const char* entry = buff_.data() + kEntries - 1;
  for (std::int32_t i = 1; i <= within; ++i, entry += stride) {
    order = std::memcmp(entry, sought.data(), sought.size());
    if (order >= 0) return i;
  }
  // A count beyond the node's end: the codec says where.
  if (within < count) pointer(within + 1);
  return 0;
}

std::int32_t Cursor::lastIdentical(std::string_view entryKey, std::int32_t entryPointer) const {
  for (std::int32_t i = entriesWithin(); i > 0; --i) {
    if (pointer(i) == entryPointer && key(i) == entryKey) return i;
  }
  return 0;
}

using Block = std::array<char, kBlockSize>;

void readBlock(const cLogicalFile& file, std::int32_t block, Block& bytes, bool& orb) {
  iReadFileInto(file.OpenFile, bytes.data(), kBlockSize, blockOffset(file, block), orb);
}

/// Leads the path down to the parent of the leaf at `depth` whose highest key is `highest`, and
/// leaves the parent in the cursor.
void restorePath(Cursor& cursor, std::int32_t depth, std::string_view highest, bool& orb) {
  std::int32_t level = 0;
  std::int32_t node = cursor.rootNode();
  for (;;) {
    cursor.descend(node, level, orb);
    if (level == depth - 1) return;
    int order = 0;
    const std::int32_t entry = cursor.firstNotLess(highest, order);
    if (entry == 0) throw RunTimeError(kOverflow);
    node = cursor.pointer(entry);
  }
}

void showOutOfRange(const cLogicalFile& file) {
  MsgBox("Index is returning information out of Range.  File: " + file.FileName +
             " LastRec: " + std::to_string(file.LastRecord),
         kCritical);
}

}  // namespace

void iKFind(const cLogicalFile& LogicalFile, std::string& Buff, std::string& Key, std::int32_t& Rec,
            bool& Orb) {
  Block header;
  readBlock(LogicalFile, 0, header, Orb);
  Cursor cursor(LogicalFile, Buff, header.data());
  Key.resize(static_cast<std::size_t>(cursor.keyLength()), '\0');

  WalkGuard moves(LogicalFile);
  std::int32_t level = 0;
  for (std::int32_t node = cursor.rootNode();;) {
    // What stands against a tree that is just being rewritten.
    if (node > LogicalFile.LastRecord) {
      showOutOfRange(LogicalFile);
      Rec = 0;
      return;
    }
    cursor.descend(node, level, Orb);

    int order = 0;
    std::int32_t entry = cursor.firstNotLess(Key, order);
    while (entry == 0) {
      if (cursor.nextLeaf() == kNoNextLeaf) {
        Rec = 0;
        return;
      }
      moves.step(cursor.nextLeaf());
      // The level is what the header left at the depth's place, not the one reached: consistent
      // separators never lead here, and the suite's own search does the same.
      cursor.moveRight(cursor.pathDepth(), Orb);
      entry = cursor.firstNotLess(Key, order);
    }

    const std::int32_t pointer = cursor.pointer(entry);
    const std::int32_t found = pointer == -1 ? 0 : pointer;
    if (cursor.nextLeaf() == 0) {
      node = found;
      continue;
    }
    Rec = found;
    if (order > 0) {
      Rec = checkedSubtract(0, found);
      Key.assign(cursor.key(entry));
    }
    cursor.setCurrentEntry(entry);
    cursor.setPathDepth(level);
    return;
  }
}

void iKNext(const cLogicalFile& LogicalFile, std::string& Buff, std::string& Key, std::int32_t& Rec,
            bool& Orb) {
  Cursor cursor(LogicalFile, Buff);
  std::int32_t entry = cursor.currentEntry();
  if (entry == cursor.entryCount()) {
    if (cursor.nextLeaf() == kNoNextLeaf) {
      Rec = 0;
      return;
    }
    if (cursor.pathDepth() > kMaxDepth) throw RunTimeError(kOverflow);
    cursor.moveRight(cursor.pathDepth(), Orb);
    entry = 0;
  }
  ++entry;
  cursor.fetch(entry, Key, Rec);
  cursor.setCurrentEntry(entry);
}

void iKPrev(const cLogicalFile& LogicalFile, std::string& Buff, std::string& Key, std::int32_t& Rec,
            bool& Orb) {
  Cursor cursor(LogicalFile, Buff);
  const std::string saved = Buff;
  const std::int32_t depth = cursor.pathDepth();
  if (depth > kMaxDepth) throw RunTimeError(kOverflow);
  std::int32_t entry = cursor.currentEntry();
  std::int32_t level = depth;

  while (entry == 1) {
    --level;
    if (level < 1) {
      Buff = saved;
      Rec = 0;
      return;
    }
    // The parent's entry for the current node: the node's highest key and its number.
    const std::int32_t last = cursor.entryCount();
    cursor.pointer(last);
    const std::string highest(cursor.key(last));
    const std::int32_t node = cursor.nodeAt(level + 1);
    cursor.readNode(cursor.nodeAt(level), Orb);
    entry = cursor.lastIdentical(highest, node);
    if (entry == 0 && level == depth - 1) {
      // A walk forwards keeps only the leaf of its path up to date: its parent may be another one
      // by now.
      restorePath(cursor, depth, highest, Orb);
      entry = cursor.lastIdentical(highest, node);
    }
    // The search for an entry that no parent holds would never end.
    if (entry == 0) throw RunTimeError(kOverflow);
  }
  while (level < depth) {
    cursor.descend(cursor.pointer(entry - 1), level, Orb);
    entry = cursor.entryCount() + 1;
  }
  --entry;
  cursor.fetch(entry, Key, Rec);
  cursor.setCurrentEntry(entry);
}

void iKLast(const cLogicalFile& LogicalFile, std::string& Buff, std::string& Key, std::int32_t& Rec,
            bool& Orb) {
  Block header;
  readBlock(LogicalFile, 0, header, Orb);
  Cursor cursor(LogicalFile, Buff, header.data());
  std::int32_t level = 0;
  // At first the place of NextLeaf holds the header's bytes at 34, which are 0.
  for (std::int32_t node = cursor.rootNode(); cursor.nextLeaf() == 0;) {
    cursor.descend(node, level, Orb);
    node = cursor.pointer(cursor.entryCount());
  }
  // The one before the sentinel. In an empty index that is none: callers must not ask there.
  const std::int32_t entry = cursor.entryCount() - 1;
  cursor.fetch(entry, Key, Rec);
  cursor.setCurrentEntry(entry);
  cursor.setPathDepth(level);
}

std::int32_t iKCount(const cLogicalFile& LogicalFile, bool& Orb) {
  std::string buff;
  std::string key;
  std::int32_t record = 0;
  bool askForBroker = true;  // the first descent asks for itself, whatever the caller wishes
  iKFind(LogicalFile, buff, key, record, askForBroker);

  Cursor cursor(LogicalFile, buff);
  std::int32_t entries = cursor.entryCount();
  for (WalkGuard leaves(LogicalFile); cursor.nextLeaf() != kNoNextLeaf;) {
    leaves.step(cursor.nextLeaf());
    cursor.readNode(cursor.nextLeaf(), Orb);
    entries = checkedAdd(entries, cursor.entryCount());
  }
  return checkedSubtract(entries, 1);  // the sentinel
}

std::int32_t iKLength(const cLogicalFile& LogicalFile, bool& Orb) {
  Block header;
  readBlock(LogicalFile, 0, header, Orb);
  return static_cast<std::int32_t>(bigEndian16(header.data() + kEntryLength.position - 1)) -
         kPointerSize;
}

std::int64_t placeOf(std::string_view cursor) {
  const std::int32_t depth = Unpack(kPathDepth, cursor);
  const std::int32_t leaf = Unpack(kNodePath.behind(kNodePath.width() * (depth - 1)), cursor);
  return std::int64_t{leaf} * 256 + Unpack(kCurrentEntry, cursor);
}

int compareKeys(std::string_view a, std::string_view b) {
  return a.compare(b);
}

}  // namespace dg
