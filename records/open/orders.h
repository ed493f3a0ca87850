#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "records/invoice_history.h"
#include "records/page_record.h"

namespace dg {

/// An open sale: a pick ticket, or a saved invoice.
struct OpenOrder {
  clsInvoiceHistory& order;  ///< as page 1 filled it
  const PageRecord& named;   ///< the page that the index or slot names
  std::int32_t record;       ///< its number
  std::int32_t dateDigits;   ///< MMDDYY, from page 1; any number
};
using VisitOrder = std::function<void(const OpenOrder&)>;

/// Calls `ticket` for each pick ticket in the order of "TICKI", `between` behind the last, and
/// `saved` for each saved invoice in the order of the control file's slot table. Nothing selects:
/// whatever these name is open. One instance serves all orders: a member that a layout does not
/// fill keeps what an earlier order left there. Raises what the engine and the functions raise.
void forEachOpenOrder(const VisitOrder& ticket, const std::function<void()>& between,
                      const VisitOrder& saved);

}  // namespace dg
