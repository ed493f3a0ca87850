#pragma once

#include <memory>
#include <span>
#include <string_view>

#include "records/record.h"

namespace dg {

/// Logical names of the suite's files. "I" ends the name of a keyed index, "L" that of a main
/// record file; "E" in front makes the extension, whose record continues the main record of the
/// same number. Nothing on disk ties an index to a record file: the views pair them.
namespace files {
inline constexpr const char* kPartIndex = "PARTI";
inline constexpr const char* kParts = "PARTL";
inline constexpr const char* kPartExtension = "EPARTL";
inline constexpr const char* kCustomerIndex = "CUSTI";
inline constexpr const char* kCustomers = "CUSTL";
inline constexpr const char* kCustomerExtension = "ECUSTL";
inline constexpr const char* kLineIndex = "LINEI";
inline constexpr const char* kLines = "LINEL";
inline constexpr const char* kLineExtension = "ELINEL";
inline constexpr const char* kCommodityIndex = "COMODI";
inline constexpr const char* kFloorPlanIndex = "FPLNI";
inline constexpr const char* kFloorPlan = "FPLNL";
inline constexpr const char* kFloorPlanExtents = "FPEXL";
inline constexpr const char* kUnitIndex = "UNITI";
inline constexpr const char* kUnits = "UNITL";
inline constexpr const char* kUnitsByLineIndex = "LUNITI";
inline constexpr const char* kUnitLedger = "LUNITL";
inline constexpr const char* kCountermanIndex = "MANI";
inline constexpr const char* kCountermen = "MANL";
inline constexpr const char* kCountermanExtension = "EMANL";
inline constexpr const char* kInvoices = "INVOL";
inline constexpr const char* kTicketIndex = "TICKI";
inline constexpr const char* kReturnIndex = "RTTBI";
inline constexpr const char* kVendorIndex = "VNDRI";
inline constexpr const char* kVendors = "VNDRL";
inline constexpr const char* kPurchaseOrderIndex = "PUTBI";
inline constexpr const char* kWarrantyIndex = "WARRI";
inline constexpr const char* kWarranties = "WARRL";
inline constexpr const char* kChartIndex = "CHRTI";
inline constexpr const char* kChart = "CHRTL";
inline constexpr const char* kLedgerDetailIndex = "GLDTI";
inline constexpr const char* kLedgerDetails = "GLDTL";
/// The control file: a plain file of 512-byte blocks in the store directory, no logical file.
inline constexpr const char* kControlFile = "FILE0";
/// What the end-of-day run leaves in the store directory: balances by age, as lines of text.
inline constexpr const char* kReceivablesSummary = "DARR.TRVN";
}  // namespace files

/// A record class as the tools offer it: its name, the files it is read from, how to make one.
struct RecordClass {
  std::string_view name;
  std::string_view mainFile;       ///< empty: a class that no file of the catalogue holds
  std::string_view extensionFile;  ///< empty: none
  std::unique_ptr<Record> (*make)();
};

/// All record classes, in alphabetical order.
std::span<const RecordClass> recordClasses();
/// The class of a name, without regard to case, or null.
const RecordClass* findRecordClass(std::string_view name);

}  // namespace dg
