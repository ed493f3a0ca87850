#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "tools/sample/families/scattered_records.h"
#include "tools/sample/record_writer.h"

namespace dg::sample {

struct SampleWorld;

// Documents of several pages: shop jobs, pick tickets, saved invoices and warranty claims are
// chains of records of 1024 bytes, each with a header and lines of 44 bytes.

struct PageLine {
  std::string bytes;
  std::int64_t amount = 0;  ///< price times quantity, in thousandths of the money unit
};

struct DocumentPage {
  int number = 1;
  std::vector<PageLine> lines;
};

struct PagedDocument {
  std::vector<DocumentPage> pages;  ///< page 1 first
  std::vector<std::size_t> order;   ///< of a walk over the pages, as indexes; it ends at page 1

  /// The page that a walk starts at.
  DocumentPage& first() { return pages[order.front()]; }
  const DocumentPage& first() const { return pages[order.front()]; }
  /// What the lines add up to, in hundredths.
  std::int32_t subTotal() const;
};

/// A document with lines of all kinds: parts of the store, labor, freight, charges and remarks.
/// Some pages are empty, some quantities negative or less than one.
PagedDocument makePagedDocument(Random& random, const SampleWorld& world, int pages);

/// Puts the header fields of a page into its record, which is empty.
using PutHeader = std::function<void(RecordWriter& record, const DocumentPage& page)>;

/// Writes a document's pages; returns the record that a walk starts at. `lastLink` goes into the
/// link field of page 1, which leads nowhere.
std::int32_t writePagedDocument(ScatteredRecords& records, Random& random,
                                const PagedDocument& document, std::int32_t lastLink,
                                const PutHeader& putHeader);

/// The account of a document: a customer's, or now and then one that is no longer on file.
std::int32_t accountFor(Random& random, const SampleWorld& world);
/// A counterman's number as a document holds it, in one byte; 0 for one that does not fit.
std::int32_t byteNumber(std::int32_t number);

}  // namespace dg::sample
