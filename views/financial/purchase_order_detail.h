#pragma once

#include <array>
#include <functional>

#include "forms/form.h"
#include "records/vendor_document.h"

namespace dg {

/// "Purchase Order Detail": one order or return with its vendor, comments and lines.
class frmPODetail final : public Form {
 public:
  static constexpr std::size_t kDetails = 5;
  static constexpr std::size_t kDropShip = 4;  ///< hidden unless the document has one

  frmPODetail();

  std::array<Label*, kDetails> Label1;     ///< captions of lblDetail
  std::array<Label*, kDetails> lblDetail;  ///< vendor, date, total, number of items, drop ship
  Frame& Frame3;                           ///< around the comments
  Label& lblComments;
  Grid& grdPod;
};

/// How the statements of a detail run: as they are, or each with its errors ignored, so that one
/// that fails leaves its line or field unset and the next goes on.
using StatementRunner = std::function<void(const std::function<void()>& statement)>;

/// Fills a detail window from a document and its row in the list. `afterLine` is called behind each
/// line of any kind.
void fillDocumentDetail(frmPODetail& detail, const VendorDocument& document, const Grid& list,
                        int bookmark, const StatementRunner& run,
                        const std::function<void()>& afterLine);

}  // namespace dg
