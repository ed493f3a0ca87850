#pragma once

#include <cstdint>
#include <string>

#include "views/operational/page_record.h"

namespace dg {

// Pick tickets and saved invoices as page chains of "INVOL". All raise what the engine raises, and
// 6 when a chain has more pages than the file has records.

/// Page 1 of an order, from any of its pages: its link field holds the order's date.
PageRecord firstPage(PageRecord page);

/// Number of lines on a page and all pages from there back to page 1.
std::int32_t ItemCount(PageRecord page);

/// An order's date number, MMDDYY, as text: "9/01/26", or "//" for 0.
std::string orderDateText(std::int32_t number);

}  // namespace dg
