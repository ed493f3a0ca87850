#include "tests/support/damage_kinds.h"

namespace dg::test {

namespace {

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

constexpr DamageKind kKinds[] = {
    {"wrong record zero", &breakRecordZero},    {"looping free chain", &breakFreeChain},
    {"bent page chain", &bendPageChain},        {"bent record chain", &bendRecordChain},
    {"wrong line counts", &countLinesWrongly},  {"smashed fields", &smashFields},
    {"swapped records", &swapRecords},          {"wrong directory", &breakDirectory},
    {"boundless capacity", &boundlessCapacity}, {"wrong link table", &breakLinkTable},
    {"broken document", &breakDocument},        {"wrong control file", &breakControlFile},
    {"broken text file", &breakTexts},
};

}  // namespace

std::span<const DamageKind> recordDamage() {
  return kKinds;
}

}  // namespace dg::test
