#pragma once

#include <cstdint>

#include "records/line_builder.h"

namespace dg {

/// The lines of a pick ticket or saved invoice.
class clsInvDetail final : public LineBuilder {
 public:
  clsInvDetail();

  /// Record of "INVOL" where the document's chain starts.
  void InvoiceRec(std::int32_t record) { invoiceRec_ = record; }
  /// Reads the document's pages. Failures are logged, under the words that the shop job's builder
  /// uses too, and set DetailError. Leaves the packed-text table with its head " ,-.".
  void GetDetail();

 private:
  std::int32_t invoiceRec_ = 0;
};

}  // namespace dg
