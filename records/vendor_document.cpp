#include "records/vendor_document.h"

#include "engine/business_basic.h"
#include "engine/codec.h"
#include "engine/open_file.h"
#include "engine/state.h"
#include "platform/values/trap.h"
#include "records/digit_date.h"
#include "records/file_names.h"
#include "records/index_walk.h"
#include "records/read.h"

namespace dg {

namespace {

using namespace vendor_document;

/// A name comes out of a record. To the engine one with a backslash is a whole path, which could
/// lead anywhere on this workstation; documents lie in the store directory.
bool isDocumentName(const std::string& name) {
  return name.find('\\') == std::string::npos;
}

}  // namespace

void VendorDocument::expect(const std::string& name) {
  if (isDocumentName(name)) iExpectFile(name, FileAccess::kReadWrite, Expected::kSoon);
}

std::optional<VendorDocument> VendorDocument::open(const std::string& name) {
  if (!isDocumentName(name)) return std::nullopt;
  std::int32_t lastRecord = 0;
  auto file = sharedEngine().PhysLogicalOpen(name, "L", kRecordLength, lastRecord);
  if (!file) return std::nullopt;
  return VendorDocument(std::move(file));
}

VendorDocument::~VendorDocument() {
  if (!file_ || !SharedEngine) return;
  suppressErrors([this] { SharedEngine->CloseFile(file_->OpenFile); });
}

std::string VendorDocument::record(std::int32_t number) const {
  return readRecord(file_, number);
}

VendorDocumentKey VendorDocumentKey::decode(const std::string& key) {
  return {.kind = key.empty() ? '\0' : key.front(),
          .name = Trun(bytesOf(kKeyName, key), true),
          .status = Unpack(kKeyStatus, key)};
}

VendorDocumentHeader VendorDocumentHeader::decode(const std::string& record) {
  return {.number = Trun(bytesOf(kNumber, record), true),
          .vendor = Unpack(kVendor, record),
          .date = UnPackDate({&kDate.opcode, 1}, record, kDate.position),
          .dateDigits = Unpack(kDate, record),
          .dropShipInvoice = Unpack(kDropShipInvoice, record)};
}

std::int32_t VendorDocumentHeader::dayNumber() const {
  return digitDateDay(dateDigits);
}

Currency vendorDocumentTotal(const std::string& record) {
  return Currency::fromScaled(Unpack(kTotal, record), 100);
}

std::string vendorName(std::int32_t vendor) {
  const std::int32_t found = findExact(files::kVendorIndex, integerKey('L', vendor));
  if (found == 0) return "Vendor not found";
  const std::string record = readRecord(files::kVendors, found);
  return unpackText(bytesOf(vendor_record::kName, record));
}

}  // namespace dg
