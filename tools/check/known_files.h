#pragma once

#include <string_view>

#include "platform/text.h"
#include "records/file_names.h"

namespace dg::check {

/// How a record tells that it is in use.
enum class InUse {
  kField,    ///< its first field, J, is above 0
  kContent,  ///< there is no such field: a record that holds anything is in use
};

/// A record file of the suite.
struct RecordFileTraits {
  std::string_view name;
  InUse inUse = InUse::kContent;
  std::string_view mainFile;  ///< of an extension file: the file whose records it continues
};

/// An index of the suite and the file that it leads to.
struct IndexTraits {
  std::string_view name;
  std::string_view recordFile;  ///< empty: its record numbers lead nowhere
  int keyLength = 0;            ///< as far as it is known
  bool complete = false;        ///< whether it leads to every record in use
};

// clang-format off
inline constexpr RecordFileTraits kRecordFiles[] = {
    {files::kParts,               InUse::kField,   ""},
    {files::kPartExtension,       InUse::kContent, files::kParts},
    {files::kCustomers,           InUse::kField,   ""},
    {files::kCustomerExtension,   InUse::kContent, files::kCustomers},
    {files::kLines,               InUse::kField,   ""},
    {files::kLineExtension,       InUse::kContent, files::kLines},
    {files::kCountermen,          InUse::kField,   ""},
    {files::kCountermanExtension, InUse::kContent, files::kCountermen},
    {files::kFloorPlan,           InUse::kField,   ""},
    {files::kFloorPlanExtents,    InUse::kField,   ""},
    {files::kUnits,               InUse::kField,   ""},
    {files::kUnitLedger,          InUse::kField,   ""},
    {files::kInvoices,            InUse::kField,   ""},
    {files::kVendors,             InUse::kContent, ""},
    // A claim begins with its status, and 0 is one.
    {files::kWarranties,          InUse::kContent, ""},
    {files::kChart,               InUse::kField,   ""},
    {files::kLedgerDetails,       InUse::kField,   ""},
};

inline constexpr IndexTraits kIndexes[] = {
    {files::kPartIndex,          files::kParts,         14, true},
    {files::kCustomerIndex,      files::kCustomers,     4,  true},
    {files::kLineIndex,          files::kLines,         2,  true},
    {files::kCommodityIndex,     files::kLines,         4,  false},
    {files::kFloorPlanIndex,     files::kFloorPlan,     6,  true},
    {files::kUnitIndex,          files::kUnits,         8,  true},
    {files::kUnitsByLineIndex,   files::kUnits,         10, true},
    {files::kCountermanIndex,    files::kCountermen,    2,  true},
    {files::kVendorIndex,        files::kVendors,       4,  true},
    {files::kChartIndex,         files::kChart,         6,  true},
    {files::kLedgerDetailIndex,  files::kLedgerDetails, 10, true},
    // Invoices and claims are chains of records, and an index leads to one of each.
    {files::kTicketIndex,        files::kInvoices,      4,  false},
    {files::kWarrantyIndex,      files::kWarranties,    4,  false},
    {files::kPurchaseOrderIndex, "",                    16, false},
    {files::kReturnIndex,        "",                    16, false},
};
// clang-format on

/// A name as the catalogue spells it: links are found without regard to case.
inline std::string_view catalogueSpelling(std::string_view name) {
  for (const RecordFileTraits& traits : kRecordFiles) {
    if (equalIgnoringCase(traits.name, name)) return traits.name;
  }
  for (const IndexTraits& traits : kIndexes) {
    if (equalIgnoringCase(traits.name, name)) return traits.name;
  }
  return name;
}

/// The traits of a name; a file that is not the suite's counts as one without an in-use field.
constexpr RecordFileTraits recordFileTraits(std::string_view name) {
  for (const RecordFileTraits& traits : kRecordFiles) {
    if (traits.name == name) return traits;
  }
  return {.name = name, .inUse = InUse::kContent, .mainFile = ""};
}

/// The traits of a name, or null.
constexpr const IndexTraits* indexTraits(std::string_view name) {
  for (const IndexTraits& traits : kIndexes) {
    if (traits.name == name) return &traits;
  }
  return nullptr;
}

/// The type that a file of the suite has in its directory, "L" or "I"; empty for another's name.
constexpr std::string_view typeOf(std::string_view name) {
  for (const RecordFileTraits& traits : kRecordFiles) {
    if (traits.name == name) return "L";
  }
  return indexTraits(name) == nullptr ? "" : "I";
}

}  // namespace dg::check
