#include "tools/sample/families/vendor_documents.h"

#include <algorithm>
#include <array>
#include <utility>

#include "tools/sample/families/part_key.h"
#include "tools/sample/random.h"
#include "tools/sample/record_writer.h"
#include "tools/sample/sample_store.h"
#include "tools/sample/store_builder.h"

namespace dg::sample {

namespace {

constexpr int kRecordLength = 38;
constexpr int kComments = 4;
constexpr int kCommentWidth = 35;
constexpr std::int32_t kShownKind = 4;
constexpr std::array<std::int32_t, 4> kOtherKinds = {3, 5, 1, 0};
constexpr std::int32_t kHighestVendor = 999;

constexpr std::array<std::string_view, 8> kCommentTexts = {
    "RUSH ORDER",        "SHIP COMPLETE",       "CALL BEFORE DELIVERY", "BACK DOOR, DOCK 3",
    "DATED ORDER 60/90", "CONFIRMED BY PHONE.", "SHIP WITH NEXT STOCK", "DO NOT DUPLICATE"};

std::int32_t lineTotal(const DocumentLine& line) {
  const std::int32_t cost = line.cost != 0 ? line.cost : line.part->cost;
  return line.kind == kShownKind ? cost * line.quantity : 0;
}

/// Numbers of five digits end here.
constexpr int kMostDocuments = 99'999;

/// The key of a document's index entry.
std::string documentKey(std::string_view name, std::int32_t status) {
  RecordWriter key(16);
  return key.raw(1, static_cast<int>(name.size()), name).integer(16, 'B', status).bytes();
}

/// "V00012": a letter or two and a running number of five digits.
std::string documentName(std::string_view letters, std::size_t number) {
  const std::string digits = std::to_string(number);
  return std::string(letters) + std::string(5 - std::min<std::size_t>(digits.size(), 5), '0') +
         digits;
}

/// The lowest vendor number from a random one on that VNDRI does not hold.
std::int32_t unknownVendor(Random& random, const std::vector<std::int32_t>& vendors) {
  std::int32_t vendor = random.between(1, kHighestVendor);
  while (std::binary_search(vendors.begin(), vendors.end(), vendor))
    vendor = vendor % kHighestVendor + 1;
  return vendor;
}

/// Quantity and price stay small enough for a document's total to fit its field.
DocumentLine makeLine(Random& random, const SampleWorld& world, std::size_t place) {
  constexpr std::int32_t kDear = 100'000;
  DocumentLine line{.kind = kShownKind, .part = &random.pick(world.parts)};
  line.quantity = line.part->cost >= kDear ? random.between(1, 2) : random.between(1, 60);
  if (random.chance(3)) line.quantity = -line.quantity;
  const bool partsOwnCost = place % 4 == 1 || random.chance(15);
  if (!partsOwnCost) line.cost = std::max(1, line.part->cost * random.between(90, 110) / 100);
  if (place % 9 == 6) line.kind = random.pick(kOtherKinds);
  return line;
}

std::string documentRecord(std::int32_t kind) {
  return RecordWriter(kRecordLength).integer(1, 'J', kind).bytes();
}

}  // namespace

std::string VendorDocumentData::bytes() const {
  const auto lastRecord = static_cast<std::int32_t>(lines.size()) + 6;
  // Nothing reads record 0; the suite keeps its counts there, as in other record files.
  std::string file = RecordWriter(documentRecord(-2))
                         .integer(3, 'L', -1)
                         .integer(7, 'L', lastRecord)
                         .integer(11, 'L', lastRecord)
                         .bytes();
  file += RecordWriter(documentRecord(1))
              .raw(3, 8, name)
              .integer(11, 'C', vendor)
              .date(13, 'D', date)
              .integer(17, 'L', dropShipInvoice)
              .bytes();
  for (int i = 0; i < kComments; ++i) {
    file += RecordWriter(documentRecord(1))
                .packed(3, kCommentWidth, comments[static_cast<std::size_t>(i)])
                .bytes();
  }
  std::int32_t total = 0;
  for (const DocumentLine& line : lines)
    total += lineTotal(line);
  file += RecordWriter(documentRecord(1)).integer(22, 'L', total).bytes();
  for (const DocumentLine& line : lines) {
    file += RecordWriter(documentRecord(line.kind))
                .raw(3, kPartKeyWidth, partKey(line.part->lineCode, line.part->number))
                .integer(18, 'K', line.quantity)
                .integer(33, 'D', line.cost)
                .bytes();
  }
  return file;
}

VendorDocumentData makeVendorDocument(Random& random, const SampleOptions& options,
                                      const SampleWorld& world, std::string name,
                                      std::size_t place) {
  VendorDocumentData document;
  document.name = std::move(name);
  document.vendor =
      place % 11 == 5 ? unknownVendor(random, world.vendors) : random.pick(world.vendors);
  document.date = options.asOf.plusDays(-random.between(0, 120));
  if (place % 6 == 2) document.dropShipInvoice = random.between(1, 999'999);
  for (int i = 0; i < kComments; ++i) {
    const std::string_view text = random.chance(40) ? random.pick(kCommentTexts) : "";
    document.comments.emplace_back(text);
  }
  // The fourth has no lines at all.
  const int lines = place == 3 ? 0 : random.between(1, 14);
  for (int i = 0; i < lines; ++i)
    document.lines.push_back(makeLine(random, world, static_cast<std::size_t>(i)));
  return document;
}

void addDocuments(const DocumentFamily& family, StoreBuilder& builder, Random& random,
                  const SampleOptions& options, const SampleWorld& world) {
  IndexFile& byName = builder.index(std::string(family.index));
  const auto count =
      static_cast<std::size_t>(std::min(options.scale * family.perScale, kMostDocuments));
  for (std::size_t place = 0; place < count; ++place) {
    const DocumentEntry entry =
        place < family.first.size()
            ? family.first[place]
            : DocumentEntry{.letters = family.letters, .status = random.pick(family.usualStatuses)};
    const std::string name = documentName(entry.letters, place + 1);
    byName.add(documentKey(name, entry.status), static_cast<std::int32_t>(place) + 1);
    const VendorDocumentData document = makeVendorDocument(random, options, world, name, place);
    if (place % family.purgedEach != family.purgedPlace) builder.addFile(name, document.bytes());
  }
}

}  // namespace dg::sample
