#include "records/open/vendor_orders.h"

#include <cstddef>
#include <optional>
#include <string>

#include "engine/codec.h"
#include "platform/read_ahead.h"
#include "platform/values/run_time_error.h"
#include "records/file_names.h"
#include "records/index_walk.h"
#include "records/open/open_work.h"

namespace dg {

namespace {

constexpr std::int32_t kPendingReturn = 20;

/// A family of documents as data.
struct DocumentFamily {
  OpenFamily family;
  const char* index;
  bool (*isOpen)(const VendorDocumentKey& key);
  std::string_view view;
  std::string_view grid;
};

/// By the first digit of an entry's status: 2 for orders proper and 6 for whatever else the index
/// holds.
bool isOpenOrder(const VendorDocumentKey& key) {
  const char digit = std::to_string(key.status).front();
  return (key.kind == 'V' && digit == '2') || digit == '6';
}

bool isPendingReturn(const VendorDocumentKey& key) {
  return key.status == kPendingReturn && key.kind == 'R';
}

constexpr DocumentFamily kOrders{OpenFamily::kPurchaseOrders, files::kPurchaseOrderIndex,
                                 &isOpenOrder, "frmPo", "grdPO"};
constexpr DocumentFamily kReturns{OpenFamily::kReturns, files::kReturnIndex, &isPendingReturn,
                                  "frmReturn", "grdReturn"};

OpenWork workOf(const OpenDocument& open, const DocumentFamily& family) {
  return {.what = open.header.number,
          .who = open.vendor,
          .amount = open.total(),
          .date = open.header.date,
          .row = {.view = family.view,
                  .grid = family.grid,
                  .first = {"PO Number", open.header.number},
                  .second = {}}};
}

/// Goes some documents in front of a walk and tells which will be opened.
class DocumentsAhead {
 public:
  DocumentsAhead(const DocumentFamily& family, const std::string& first) : family_(family) {
    if (canExpectFiles()) go([&] { ahead_.emplace(family.index, first); });
    keepInFront();
  }
  /// The walk has come to the next document.
  void next() {
    if (inFront_ > 0) --inFront_;
    keepInFront();
  }

 private:
  static constexpr std::size_t kMostInFront = 48;

  void keepInFront() {
    go([&] {
      for (; ahead_ && inFront_ < kMostInFront && !ahead_->atEnd(); ahead_->next()) {
        const VendorDocumentKey key = VendorDocumentKey::decode(ahead_->key());
        if (!family_.isOpen(key)) continue;
        VendorDocument::expect(key.name);
        ++inFront_;
      }
    });
  }
  /// What fails here the walk meets by itself, and tells.
  template <class Step>
  void go(Step step) {
    try {
      step();
    } catch (const RunTimeError&) {
      ahead_.reset();
    }
  }

  const DocumentFamily& family_;
  std::optional<IndexWalk> ahead_;
  std::size_t inFront_ = 0;
};

void forEachDocument(const DocumentFamily& family, const VisitDocument& visit) {
  OpenWorkReport report(family.family);
  std::string first(vendor_document::kKeyLength, '\0');
  Pack('C', first, 1, 1);
  // Only the first entry is taken by its magnitude: behind it a negative pointer ends the list, as
  // the owners' totals have always had it.
  IndexWalk walk(family.index, first);
  for (DocumentsAhead ahead(family, first); !walk.atEnd(); walk.next()) {
    const VendorDocumentKey key = VendorDocumentKey::decode(walk.key());
    if (!family.isOpen(key)) continue;
    ahead.next();
    const std::optional<VendorDocument> document = VendorDocument::open(key.name);
    if (!document) continue;
    const auto header =
        VendorDocumentHeader::decode(document->record(VendorDocument::kHeaderRecord));
    const std::string vendor = vendorName(header.vendor);
    const OpenDocument open{.document = *document, .header = header, .vendor = vendor};
    visit(open);
    report.add([&] { return workOf(open, family); });
  }
  report.end();
}

}  // namespace

Currency OpenDocument::total() const {
  return vendorDocumentTotal(document.record(VendorDocument::kTotalRecord));
}

void forEachPurchaseOrder(const VisitDocument& visit) {
  forEachDocument(kOrders, visit);
}

void forEachReturn(const VisitDocument& visit) {
  forEachDocument(kReturns, visit);
}

}  // namespace dg
