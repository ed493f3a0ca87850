#pragma once

#include <cstdint>

#include "records/page_record.h"

namespace dg {

// Pick tickets and saved invoices as page chains of "INVOL". All raise what the engine raises, and
// 6 when a chain has more pages than the file has records.

/// Page 1 of an order, from any of its pages: its link field holds the order's date, MMDDYY.
PageRecord firstPage(PageRecord page);

/// Number of lines on a page and all pages from there back to page 1.
std::int32_t ItemCount(PageRecord page);

}  // namespace dg
