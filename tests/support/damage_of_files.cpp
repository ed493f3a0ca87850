#include <array>

#include "tests/support/damage_kinds.h"

namespace dg::test {

namespace {

void cutFile(Patient& store) {
  SampleFile& file = store.anyFile();
  file.content.resize(store.below(file.content.size()));
  store.tell(file.path + " cut at " + std::to_string(file.content.size()));
}

void growFile(Patient& store) {
  SampleFile& file = store.anyFile();
  const std::size_t more = 1 + store.below(4 * kBlock);
  const bool anyBytes = store.random.chance(50);
  for (std::size_t i = 0; i < more; ++i)
    file.content += anyBytes ? store.byte() : file.content[i % file.content.size()];
  store.tell(file.path + " longer by " + std::to_string(more));
}

void loseFile(Patient& store) {
  const std::size_t index = store.below(store.files.size());
  store.tell(store.files[index].path + " missing");
  store.files[index].path = "lost";
}

void emptyFile(Patient& store) {
  SampleFile& file = store.anyFile();
  file.content.clear();
  store.tell(file.path + " empty");
}

void flipBits(Patient& store) {
  SampleFile& file = store.anyFile();
  const int count = store.random.between(1, 64);
  for (int i = 0; i < count; ++i)
    file.content[store.below(file.content.size())] ^= static_cast<char>(1 << store.below(8));
  store.tell(std::to_string(count) + " bits of " + file.path);
}

void wipeBlocks(Patient& store) {
  SampleFile& file = store.anyFile();
  constexpr std::array<char, 4> kFills = {'\0', '\xff', ' ', '\x01'};
  const int kind = store.random.between(0, 4);
  const std::size_t first = store.below(file.content.size()) / kBlock * kBlock;
  const std::size_t end = std::min(first + (1 + store.below(8)) * kBlock, file.content.size());
  for (std::size_t at = first; at < end; ++at)
    file.content[at] = kind == 4 ? store.byte() : kFills[static_cast<std::size_t>(kind)];
  store.tell(file.path + " blocks wiped from " + std::to_string(first));
}

void shiftBytes(Patient& store) {
  SampleFile& file = store.anyFile();
  const std::size_t at = store.below(file.content.size());
  if (store.random.chance(50)) {
    file.content.erase(at, 1 + store.below(16));
  } else {
    file.content.insert(at, 1 + store.below(16), store.byte());
  }
  store.tell(file.path + " shifted from " + std::to_string(at));
}

void swapFiles(Patient& store) {
  SampleFile& one = store.anyFile();
  SampleFile& other = store.anyFile();
  std::swap(one.content, other.content);
  store.tell(one.path + " and " + other.path + " changed places");
}

void swapNodes(Patient& store) {
  const PlacedFile& index = store.anyPlaced('I');
  std::string& bytes = store.files[index.data].content;
  const std::int32_t one = store.random.between(0, index.lastRecord);
  const std::int32_t other = store.anyNode(index);
  const std::size_t left = Patient::recordAt(index, one);
  const std::size_t right = Patient::recordAt(index, other);
  for (std::size_t i = 0; i < kBlock && std::max(left, right) + i < bytes.size(); ++i)
    std::swap(bytes[left + i], bytes[right + i]);
  store.tell(index.name + " blocks " + std::to_string(one) + " and " + std::to_string(other) +
             " swapped");
}

/// The chain of leaves, and with 0 or 65535 also what is a leaf at all and what is the last one.
void bendLeafChain(Patient& store) {
  const PlacedFile& index = store.anyPlaced('I');
  const std::int32_t node = store.anyNode(index);
  const std::int64_t next = store.random.chance(60)   ? store.anyNode(index)
                            : store.random.chance(50) ? node
                                                      : store.edge();
  store.number(store.files[index.data], Patient::recordAt(index, node) + 2, 2, next);
  store.tell(index.name + " block " + std::to_string(node) + " next leaf " + std::to_string(next));
}

/// Every leaf leads to another, none is the last.
void closeLeafChain(Patient& store) {
  const PlacedFile& index = store.anyPlaced('I');
  SampleFile& file = store.files[index.data];
  for (std::int32_t node = 1; node <= index.lastRecord; ++node) {
    const std::size_t at = Patient::recordAt(index, node);
    if (store.number(file, at + 2, 2) == 65535) store.number(file, at + 2, 2, store.anyNode(index));
  }
  store.tell(index.name + " last leaf leads on");
}

void countEntriesWrongly(Patient& store) {
  const PlacedFile& index = store.anyPlaced('I');
  const std::int32_t node = store.anyNode(index);
  const std::int64_t count = store.edge();
  store.number(store.files[index.data], Patient::recordAt(index, node), 2, count);
  store.tell(index.name + " block " + std::to_string(node) + " entries " + std::to_string(count));
}

void breakHeader(Patient& store) {
  const PlacedFile& index = store.anyPlaced('I');
  const std::size_t field = store.below(9);
  const std::int64_t value = store.random.chance(50) ? store.edge() : store.anyNode(index);
  store.number(store.files[index.data], Patient::recordAt(index, 0) + 2 * field, 2, value);
  store.tell(index.name + " header word " + std::to_string(field) + " is " + std::to_string(value));
}

/// An entry of a node leads somewhere else: to a node above it, which makes a tree without end, to
/// another record, or nowhere.
void misdirectEntry(Patient& store) {
  const PlacedFile& index = store.anyPlaced('I');
  SampleFile& file = store.files[index.data];
  const std::int32_t node = store.anyNode(index);
  const std::size_t at = Patient::recordAt(index, node);
  const auto count = static_cast<std::size_t>(store.number(file, at, 2));
  const std::size_t entry = store.below(std::min<std::size_t>(count, 100));
  const std::size_t length = store.entryLength(index);
  const std::int64_t target = store.random.chance(50) ? store.anyNode(index) : store.edge();
  store.number(file, at + 4 + (entry + 1) * length - 4, 4, target);
  store.tell(index.name + " block " + std::to_string(node) + " entry " + std::to_string(entry) +
             " leads to " + std::to_string(target));
}

/// Every entry of every inner node leads to the root: the deepest descent there can be.
void endlessTree(Patient& store) {
  const PlacedFile& index = store.anyPlaced('I');
  SampleFile& file = store.files[index.data];
  const std::int64_t root = store.number(file, Patient::recordAt(index, 0) + 8, 2);
  const std::size_t at = Patient::recordAt(index, static_cast<std::int32_t>(root));
  store.number(file, at + 2, 2, 0);
  const std::size_t length = store.entryLength(index);
  for (std::size_t end = at + 4 + length; length > 4 && end <= at + kBlock; end += length)
    store.number(file, end - 4, 4, root);
  store.tell(index.name + " root leads to itself");
}

void shuffleKeys(Patient& store) {
  const PlacedFile& index = store.anyPlaced('I');
  SampleFile& file = store.files[index.data];
  const std::int32_t node = store.anyNode(index);
  const std::size_t at = Patient::recordAt(index, node) + 4;
  for (std::size_t i = 0; i < kBlock - 4 && at + i < file.content.size(); ++i)
    if (store.random.chance(10)) file.content[at + i] = store.byte();
  store.tell(index.name + " block " + std::to_string(node) + " keys changed");
}

constexpr DamageKind kKinds[] = {
    {"cut file", &cutFile},
    {"longer file", &growFile},
    {"missing file", &loseFile},
    {"empty file", &emptyFile},
    {"flipped bits", &flipBits},
    {"wiped blocks", &wipeBlocks},
    {"shifted bytes", &shiftBytes},
    {"swapped files", &swapFiles},
    {"swapped nodes", &swapNodes},
    {"bent leaf chain", &bendLeafChain},
    {"closed leaf chain", &closeLeafChain},
    {"wrong entry count", &countEntriesWrongly},
    {"wrong index header", &breakHeader},
    {"misdirected entry", &misdirectEntry},
    {"endless tree", &endlessTree},
    {"shuffled keys", &shuffleKeys},
};

}  // namespace

std::span<const DamageKind> fileDamage() {
  return kKinds;
}

}  // namespace dg::test
