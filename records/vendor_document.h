#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "engine/layout.h"
#include "engine/logical_file.h"
#include "platform/values/currency.h"
#include "platform/values/date.h"

namespace dg {

/// Layout of a vendor, "VNDRL".
namespace vendor_record {
inline constexpr TextField kName{6, 20};  ///< packed
}  // namespace vendor_record

/// Layout of a purchase order or return: of its entry's key, its header, its comments, its total
/// and its lines.
namespace vendor_document {
inline constexpr std::int32_t kRecordLength = 38;

inline constexpr std::size_t kKeyLength = 16;
inline constexpr TextField kKeyName{1, 10};
inline constexpr NumberField kKeyStatus{'B', 16};

inline constexpr TextField kNumber{3, 8};
inline constexpr NumberField kVendor{'C', 11};
inline constexpr NumberField kDate{'D', 13};
inline constexpr NumberField kDropShipInvoice{'L', 17};

inline constexpr TextField kComment{3, 35};  ///< packed

inline constexpr NumberField kTotal{'L', 22};  ///< cents

inline constexpr NumberField kLineKind{'J', 1};  ///< 4 is an ordered part
inline constexpr NumberField kProductLine{'C', 3};
inline constexpr TextField kPart{5, 12};  ///< packed
inline constexpr NumberField kQuantity{'K', 18};
inline constexpr NumberField kUnitCost{'D', 33};  ///< cents; 0: the part's own cost

/// Product line and part number as they stand: the key into "PARTI".
inline constexpr TextField kPartKey{kProductLine.position, kProductLine.width() + kPart.width};
inline constexpr std::int32_t kOrderedPart = 4;
}  // namespace vendor_document

/// A purchase order or return: a small file of its own in the store directory, of 38-byte records.
/// Record 1 is the header, 2 to 5 are comments, 6 is the total, 7 and on are lines. Closed at the
/// object's end.
class VendorDocument {
 public:
  static constexpr std::int32_t kHeaderRecord = 1;
  static constexpr std::int32_t kFirstComment = 2;
  static constexpr std::int32_t kLastComment = 5;
  static constexpr std::int32_t kTotalRecord = 6;
  static constexpr std::int32_t kFirstLine = 7;

  /// Tells that the document will be opened soon.
  static void expect(const std::string& name);
  /// Nothing when the file is missing or cannot be opened, or when the name is a path.
  static std::optional<VendorDocument> open(const std::string& name);
  VendorDocument(VendorDocument&&) noexcept = default;
  VendorDocument& operator=(VendorDocument&&) noexcept = default;
  ~VendorDocument();

  /// Highest record number, from the file's length.
  std::int32_t lastRecord() const { return file_->LastRecord; }
  /// A record's bytes; raises 81 beyond the file's length.
  std::string record(std::int32_t number) const;

 private:
  explicit VendorDocument(std::shared_ptr<cLogicalFile> file) : file_(std::move(file)) {}

  std::shared_ptr<cLogicalFile> file_;
};

/// An entry of the index over all documents of a kind, decoded from its 16-byte key.
struct VendorDocumentKey {
  char kind = '\0';         ///< first letter of the name: "V" purchase order, "R" return
  std::string name;         ///< of the document's file
  std::int32_t status = 0;  ///< 0 to 255

  static VendorDocumentKey decode(const std::string& key);
};

/// The header of a document, decoded from its record 1.
struct VendorDocumentHeader {
  std::string number;  ///< order or return number
  std::int32_t vendor = 0;
  Date date;                         ///< the empty date when the digits are none
  std::int32_t dateDigits = 0;       ///< MMDDYY, as stored
  std::int32_t dropShipInvoice = 0;  ///< 0 for none

  static VendorDocumentHeader decode(const std::string& record);
  /// Days from the suite's day zero to the date that the digits show; raises 13 when they are none.
  std::int32_t dayNumber() const;
};

/// The total in a document's record 6.
Currency vendorDocumentTotal(const std::string& record);

/// A vendor's name from "VNDRL", or "Vendor not found". Raises what the engine raises.
std::string vendorName(std::int32_t vendor);

}  // namespace dg
