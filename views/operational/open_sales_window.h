#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "forms/form.h"
#include "records/page_record.h"

namespace dg {

/// "Open Sales Detail": an order's customer, ship-to, header data and lines.
class frmPTSDetail final : public Form {
 public:
  frmPTSDetail();

  /// Shows an order's header and customer; `document` begins the caption. Raises what the engine
  /// raises.
  void showOrder(const std::string& document, const PageRecord& page);
  /// Shows the lines of the order that starts at a record of "INVOL". Raises 91 when the record
  /// cannot be read.
  void showLines(std::int32_t record);

  std::array<Label*, 6> lblDtl;  ///< available credit, date, CM, SM, PO, DEL
  Label& lblCust;
  Label& lblShipto;
  Grid& grdPTS;
};

/// Opens the window for a ticket by number. Raises 91 for one that the index does not hold, and
/// whose lines there are none of; no window opens then.
void ShowPickTicket(std::int32_t ticket);
/// Opens the window for a saved invoice by its record of "INVOL".
void ShowSavedInvoice(std::int32_t record);

}  // namespace dg
