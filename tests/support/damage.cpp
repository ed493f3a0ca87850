#include "tests/support/damage.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "engine/codec.h"
#include "engine/logical_file.h"
#include "engine/record_zero.h"

namespace dg::test {

namespace {

using sample::Random;

constexpr std::size_t kBlock = 512;

/// Numbers that decide something at their edges.
constexpr std::int64_t kEdges[] = {0,     1,     2,      3,      7,          8,           101,
                                   127,   128,   254,    255,    256,        511,         512,
                                   32767, 32768, 65534,  65535,  65536,      8388607,     8388608,
                                   -1,    -2,    -32768, 999999, 2147483647, -2147483648, 4194304};

/// A store under the hammer: its files, where its logical files are, and what was done so far.
class Patient {
 public:
  Patient(std::vector<SampleFile> sound, const std::vector<PlacedFile>& places, Random& stream)
      : files(std::move(sound)), placed(places), random(stream) {}

  std::vector<SampleFile> files;
  const std::vector<PlacedFile>& placed;
  Random& random;
  std::string story;

  void tell(const std::string& text) { story += (story.empty() ? "" : "; ") + text; }

  SampleFile& anyFile() {
    for (;;) {
      SampleFile& file = files[below(files.size())];
      if (!file.content.empty()) return file;
    }
  }
  /// A logical file of a type that has anything in it.
  const PlacedFile& anyPlaced(char type) {
    for (;;) {
      const PlacedFile& file = random.pick(placed);
      if (file.type == type && file.lastRecord > 0) return file;
    }
  }
  const PlacedFile& named(std::string_view name) {
    return *std::ranges::find(placed, name, &PlacedFile::name);
  }
  SampleFile* find(std::string_view end) {
    const auto found = std::ranges::find_if(
        files, [&](const SampleFile& file) { return file.path.ends_with(end); });
    return found == files.end() ? nullptr : &*found;
  }

  std::size_t below(std::size_t count) {
    return static_cast<std::size_t>(random.below(std::max<std::size_t>(count, 1)));
  }
  std::int64_t edge() { return random.pick(kEdges); }
  char byte() { return static_cast<char>(random.below(256)); }

  /// Offset of a record in its data file.
  static std::size_t recordAt(const PlacedFile& file, std::int32_t record) {
    return static_cast<std::size_t>(file.startBlock) * kBlock +
           static_cast<std::size_t>(record) * static_cast<std::size_t>(file.recordLength);
  }
  std::int32_t anyRecord(const PlacedFile& file) { return random.between(1, file.lastRecord); }

  /// Overwrites `width` bytes at an offset with a big-endian number; nothing beyond the end.
  void number(SampleFile& file, std::size_t offset, std::size_t width, std::int64_t value) {
    for (std::size_t i = 0; i < width; ++i) {
      if (offset + i >= file.content.size()) return;
      file.content[offset + i] = static_cast<char>(value >> (8 * (width - 1 - i)) & 0xff);
    }
  }
  std::int64_t number(const SampleFile& file, std::size_t offset, std::size_t width) const {
    std::int64_t value = 0;
    for (std::size_t i = 0; i < width && offset + i < file.content.size(); ++i)
      value = value << 8 | static_cast<unsigned char>(file.content[offset + i]);
    return value;
  }

  /// A node of an index: its block number, from 1.
  std::int32_t anyNode(const PlacedFile& index) {
    std::int32_t node = random.between(1, index.lastRecord);
    // Spare blocks are no nodes: nothing reads them.
    for (int i = 0; i < 20 && number(files[index.data], recordAt(index, node), 2) == 0; ++i)
      node = random.between(1, index.lastRecord);
    return node;
  }
  std::size_t entryLength(const PlacedFile& index) const {
    return static_cast<std::size_t>(number(files[index.data], recordAt(index, 0), 2));
  }
};

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

void breakRecordZero(Patient& store) {
  const PlacedFile& file = store.anyPlaced('L');
  const std::size_t field = store.below(3);
  const std::int64_t value = store.edge();
  store.number(store.files[file.data], Patient::recordAt(file, 0) + 2 + 4 * field, 4, value);
  store.tell(file.name + " record zero field " + std::to_string(field) + " is " +
             std::to_string(value));
}

/// The free chain leads to a record that is in use, or in a circle.
void breakFreeChain(Patient& store) {
  const PlacedFile& file = store.anyPlaced('L');
  const std::int32_t record = store.anyRecord(file);
  SampleFile& data = store.files[file.data];
  store.number(data, Patient::recordAt(file, 0) + 2, 4, record);
  store.number(data, Patient::recordAt(file, record), 2, 0);
  store.number(data, Patient::recordAt(file, record) + 2, 4, record);
  store.tell(file.name + " free chain ends in a circle at " + std::to_string(record));
}

/// A link between records, by file and 0-based place.
struct Link {
  std::string_view file;
  std::size_t offset, width;
};

/// Makes a record lead to itself, to another of its file, or to no record.
void bendLink(Patient& store, const Link& link) {
  const PlacedFile& file = store.named(link.file);
  SampleFile& data = store.files[file.data];
  const bool all = store.random.chance(30);
  const std::int32_t one = store.anyRecord(file);
  for (std::int32_t record = all ? 1 : one; record <= (all ? file.lastRecord : one); ++record) {
    const std::int64_t target = store.random.chance(40)   ? record
                                : store.random.chance(70) ? store.anyRecord(file)
                                                          : store.edge();
    store.number(data, Patient::recordAt(file, record) + link.offset, link.width, target);
  }
  store.tell(file.name + " link at " + std::to_string(link.offset) + " of " +
             (all ? "all records" : "record " + std::to_string(one)));
}

void bendPageChain(Patient& store) {
  constexpr Link kLinks[] = {{"INVOL", 109, 3}, {"WARRL", 109, 3}};
  constexpr std::size_t kPage = 114;
  const Link& link = store.random.pick(kLinks);
  bendLink(store, link);
  if (store.random.chance(50)) return;
  // No record is the first page any more.
  const PlacedFile& file = store.named(link.file);
  for (std::int32_t record = 1; record <= file.lastRecord; ++record) {
    SampleFile& data = store.files[file.data];
    const std::size_t at = Patient::recordAt(file, record) + kPage;
    if (store.number(data, at, 1) == 1) store.number(data, at, 1, store.random.between(2, 255));
  }
  store.tell("no first pages");
}

void bendRecordChain(Patient& store) {
  constexpr Link kLinks[] = {
      {"LUNITL", 60, 4}, {"UNITL", 504, 4}, {"FPEXL", 28, 3}, {"FPLNL", 93, 3}};
  bendLink(store, store.random.pick(kLinks));
}

void countLinesWrongly(Patient& store) {
  const PlacedFile& file = store.named(store.random.chance(50) ? "INVOL" : "WARRL");
  constexpr std::size_t kLineCount = 145;
  SampleFile& data = store.files[file.data];
  const int percent = store.random.between(1, 100);
  const std::int64_t value = store.random.chance(50) ? 255 : store.edge();
  for (std::int32_t record = 1; record <= file.lastRecord; ++record)
    if (store.random.chance(percent))
      store.number(data, Patient::recordAt(file, record) + kLineCount, 1, value);
  store.tell(file.name + " line counts " + std::to_string(value));
}

/// An edge value at any place of some records.
void smashFields(Patient& store) {
  const PlacedFile& file = store.anyPlaced('L');
  SampleFile& data = store.files[file.data];
  const std::size_t offset = store.below(static_cast<std::size_t>(file.recordLength));
  const std::size_t width = 1 + store.below(4);
  const std::int64_t value = store.edge();
  const int percent = store.random.between(1, 100);
  for (std::int32_t record = 1; record <= file.lastRecord; ++record)
    if (store.random.chance(percent))
      store.number(data, Patient::recordAt(file, record) + offset, width, value);
  store.tell(file.name + " bytes " + std::to_string(offset) + " of records are " +
             std::to_string(value));
}

void swapRecords(Patient& store) {
  const PlacedFile& one = store.anyPlaced('L');
  const PlacedFile& other = store.anyPlaced('L');
  const auto length = static_cast<std::size_t>(std::min(one.recordLength, other.recordLength));
  const std::string former = store.files[one.data].content;
  std::string& target = store.files[other.data].content;
  for (int i = 0; i < 8; ++i) {
    const std::size_t to = Patient::recordAt(other, store.anyRecord(other));
    const std::size_t from = Patient::recordAt(one, store.anyRecord(one));
    if (to + length <= target.size() && from + length <= former.size())
      target.replace(to, length, former, from, length);
  }
  store.tell("records of " + one.name + " in " + other.name);
}

void breakDirectory(Patient& store) {
  const PlacedFile& file = store.random.pick(store.placed);
  SampleFile& directory = store.files[file.directory];
  struct FieldOf {
    const char* name;
    std::size_t offset, width;
  };
  constexpr FieldOf kFields[] = {{"flags", 6, 2}, {"start block", 10, 3}, {"record length", 13, 2},
                                 {"type", 15, 1}, {"capacity", 16, 4},    {"name", 0, 2}};
  const FieldOf& field = store.random.pick(kFields);
  const std::int64_t value =
      store.random.chance(70) ? store.edge() : store.random.between(0, 70000);
  store.number(directory, file.directoryEntry + field.offset, field.width, value);
  store.tell(file.name + " " + field.name + " " + std::to_string(value));
}

/// The capacity of every file is the greatest there is: no guard may believe it.
void boundlessCapacity(Patient& store) {
  for (const PlacedFile& file : store.placed)
    store.number(store.files[file.directory], file.directoryEntry + 16, 4, 0x7fffffff);
  store.tell("all capacities boundless");
}

void breakLinkTable(Patient& store) {
  SampleFile* links = store.find("/LINKSFILE");
  if (links == nullptr || links->content.size() < 160) return;
  const std::size_t entry = store.below(links->content.size() / 160) * 160;
  switch (store.random.between(0, 2)) {
    case 0:  // another file's directory
      links->content.replace(entry + 81, 79, links->content,
                             store.below(links->content.size() / 160) * 160 + 81, 79);
      break;
    case 1:
      for (std::size_t i = 0; i < 79; ++i)
        links->content[entry + 81 + i] = store.byte();
      break;
    default:
      links->content.erase(entry, 1 + store.below(160));
  }
  store.tell("link table entry at " + std::to_string(entry));
}

void breakDocument(Patient& store) {
  constexpr std::size_t kRecord = 38;
  for (int tries = 0; tries < 1000; ++tries) {
    SampleFile& file = store.anyFile();
    const std::string name = file.path.substr(file.path.rfind('/') + 1);
    if (name.size() != 6 || (name.front() != 'V' && name.front() != 'R')) continue;
    if (store.random.chance(50)) {
      file.content.resize(store.below(8 * kRecord));
    } else {
      const std::size_t at = store.below(file.content.size());
      store.number(file, at, 1 + store.below(4), store.edge());
    }
    store.tell("document " + name);
    return;
  }
}

/// The slots of the control file's tables lead to any record.
void breakControlFile(Patient& store) {
  SampleFile* control = store.find("/FILE0");
  if (control == nullptr || control->content.empty()) return;
  struct Range {
    std::size_t first, last;
  };
  constexpr Range kTables[] = {{301, 325}, {451, 458}, {501, 571}, {440, 450}, {0, 2}, {401, 401}};
  const Range& table = store.random.pick(kTables);
  const int percent = store.random.between(1, 30);
  for (std::size_t at = table.first * kBlock; at < (table.last + 1) * kBlock; at += 4) {
    if (!store.random.chance(percent)) continue;
    const std::int64_t value =
        store.random.chance(70) ? store.random.between(0, 400) : store.edge();
    store.number(*control, at, 4, value);
  }
  store.tell("control file blocks " + std::to_string(table.first) + " on");
}

void breakTexts(Patient& store) {
  constexpr std::string_view kTexts[] = {"/ttymap", "/cQTCatalog.ini", "/DARR.TRVN",
                                         "/DealerGauge.ini"};
  SampleFile* file = store.find(store.random.pick(kTexts));
  if (file == nullptr || file->content.empty()) return;
  const int edits = store.random.between(1, 20);
  for (int i = 0; i < edits && !file->content.empty(); ++i) {
    const std::size_t at = store.below(file->content.size());
    switch (store.random.between(0, 3)) {
      case 0:
        file->content[at] = store.byte();
        break;
      case 1:
        file->content.erase(at, 1 + store.below(8));
        break;
      case 2:
        file->content.insert(at, 1 + store.below(300), store.random.chance(50) ? ',' : '9');
        break;
      default:
        file->content.insert(at, "\r\n");
    }
  }
  store.tell(std::to_string(edits) + " edits of " + file->path);
}

struct Kind {
  std::string_view name;
  void (*apply)(Patient&);
};
constexpr Kind kKinds[] = {
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
    {"wrong record zero", &breakRecordZero},
    {"looping free chain", &breakFreeChain},
    {"bent page chain", &bendPageChain},
    {"bent record chain", &bendRecordChain},
    {"wrong line counts", &countLinesWrongly},
    {"smashed fields", &smashFields},
    {"swapped records", &swapRecords},
    {"wrong directory", &breakDirectory},
    {"boundless capacity", &boundlessCapacity},
    {"wrong link table", &breakLinkTable},
    {"broken document", &breakDocument},
    {"wrong control file", &breakControlFile},
    {"broken text file", &breakTexts},
};

}  // namespace

std::vector<PlacedFile> placedFiles(const std::vector<SampleFile>& files) {
  std::vector<PlacedFile> placed;
  for (std::size_t at = 0; at < files.size(); ++at) {
    const std::string& path = files[at].path;
    if (!path.ends_with("LK")) continue;
    const std::string data = path.substr(0, path.size() - 2) + "DB";
    const auto found = std::ranges::find(files, data, &SampleFile::path);
    if (found == files.end()) continue;
    const std::string& bytes = files[at].content;
    for (std::size_t offset = 0; offset < bytes.size(); offset += DirectoryEntry::kSize) {
      const auto entry = DirectoryEntry::decode(bytes.substr(offset, DirectoryEntry::kSize));
      if (entry.FileName.empty() || entry.FileType.empty()) continue;
      placed.push_back({.name = entry.FileName,
                        .type = entry.FileType.front(),
                        .startBlock = entry.Position,
                        .recordLength = entry.RecordLength,
                        .lastRecord = entry.LastRecord,
                        .directory = at,
                        .directoryEntry = offset,
                        .data = static_cast<std::size_t>(found - files.begin())});
    }
  }
  return placed;
}

Damager::Damager(std::vector<SampleFile> sound)
    : sound_(std::move(sound)), placed_(placedFiles(sound_)) {}

std::vector<std::string_view> Damager::kinds() {
  std::vector<std::string_view> names;
  std::ranges::transform(kKinds, std::back_inserter(names), &Kind::name);
  return names;
}

DamagedStore Damager::make(std::uint64_t number) const {
  Random random(number, "damage");
  Patient store(sound_, placed_, random);
  kKinds[number % std::size(kKinds)].apply(store);
  // Troubles come together: one damage can hide behind the guard against another.
  const int more = number / std::size(kKinds) % 2 == 0 ? 0 : random.between(1, 5);
  for (int i = 0; i < more; ++i)
    random.pick(kKinds).apply(store);
  return {std::move(store.files), std::move(store.story)};
}

}  // namespace dg::test
