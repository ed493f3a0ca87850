#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/values/date.h"
#include "tools/sample/sample_world.h"

namespace dg {
struct SampleOptions;
}

namespace dg::sample {

class Random;
class StoreBuilder;

/// A line of a purchase order or return.
struct DocumentLine {
  std::int32_t kind = 4;  ///< only kind 4 is shown
  const SamplePart* part = nullptr;
  std::int32_t quantity = 0;
  std::int32_t cost = 0;  ///< of one, in cents; 0: the part's own
};

/// A purchase order or return: a file of its own with 38-byte records.
struct VendorDocumentData {
  std::string name;  ///< of the file, and the number in it
  std::int32_t vendor = 0;
  Date date;
  std::int32_t dropShipInvoice = 0;   ///< 0 for none
  std::vector<std::string> comments;  ///< four, empty ones included
  std::vector<DocumentLine> lines;

  /// Bytes of the file. The total is that of the lines that are shown.
  std::string bytes() const;
};

/// A document with a vendor, a date before the store's day, comments and lines. Some vendors are
/// unknown to VNDRI, some lines have a cost of 0 or are of other kinds; `place`, which counts from
/// 0, leads the first ones through all of that.
VendorDocumentData makeVendorDocument(Random& random, const SampleOptions& options,
                                      const SampleWorld& world, std::string name,
                                      std::size_t place);

/// An entry of the index over a family of documents: the letters of the document's name, and its
/// status.
struct DocumentEntry {
  std::string_view letters;
  std::int32_t status = 0;
};

/// What differs between orders and returns.
struct DocumentFamily {
  std::string_view index;
  int perScale = 0;
  std::span<const DocumentEntry> first;  ///< the first documents go through all of these
  std::string_view letters;              ///< of all others, each with one of the usual statuses
  std::span<const std::int32_t> usualStatuses;
  /// Of so many documents the one at this place was purged while its entry stayed.
  std::size_t purgedEach = 1, purgedPlace = 0;
};

void addDocuments(const DocumentFamily& family, StoreBuilder& builder, Random& random,
                  const SampleOptions& options, const SampleWorld& world);

}  // namespace dg::sample
