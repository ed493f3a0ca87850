#pragma once

#include <functional>
#include <string>

#include "records/vendor_document.h"

namespace dg {

/// An open purchase order or a pending return.
struct OpenDocument {
  const VendorDocument& document;
  const VendorDocumentHeader& header;
  const std::string& vendor;  ///< name, or "Vendor not found"

  /// Reads the total. Raises what the engine raises.
  Currency total() const;
};
using VisitDocument = std::function<void(const OpenDocument&)>;

/// Calls `visit` for each open purchase order in the order of "PUTBI". An entry whose file cannot
/// be opened is passed over. Raises what the engine and `visit` raise.
void forEachPurchaseOrder(const VisitDocument& visit);
/// The same for each pending return, in the order of "RTTBI".
void forEachReturn(const VisitDocument& visit);

}  // namespace dg
