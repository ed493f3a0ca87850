#include "tools/check/document_checker.h"

#include <algorithm>

#include "engine/text_utilities.h"
#include "records/vendor_document.h"
#include "tools/check/text.h"

namespace dg::check {

namespace {

constexpr std::int64_t kRecordLength = vendor_document::kRecordLength;
/// Up to the total; record 0 has its place.
constexpr std::int64_t kFewestRecords = VendorDocument::kTotalRecord + 1;

}  // namespace

void DocumentChecker::check(std::string_view index) {
  const IndexContents* contents = run_.contents(index);
  if (contents == nullptr) return;
  for (const IndexEntry& entry : contents->entries) {
    const std::string key = contents->file->data->bytes(
        entry.offset,
        static_cast<std::size_t>(std::min(vendor_document::kKeyName.width, contents->keyLength)));
    checkDocument(Trun(key, true), contents->placeOf(entry));
  }
}

void DocumentChecker::checkDocument(const std::string& name, const Place& place) {
  if (name.empty() || name.find('\\') != std::string::npos) {
    run_.findings.damage(kind::kDocumentName, place, "The key \"" + name + "\" names no file.");
    return;
  }
  std::shared_ptr<StoreFile> file;
  std::string error;
  switch (run_.store.open(run_.store.storePath(name), name, file, error)) {
    case Presence::kThere:
      break;
    case Presence::kOutside:
      run_.findings.damage(kind::kDocumentName, place, "The key \"" + name + "\" names no file.");
      return;
    case Presence::kMissing:
      // A purged document's entry can stay for a while.
      run_.findings.note(kind::kDocumentMissing, place, "The document " + name + " is not there.");
      return;
    case Presence::kUnreadable:
      run_.findings.damage(kind::kUnreadable, place,
                           "The document " + name + " cannot be read: " + error + ".");
      return;
  }
  const std::int64_t size = file->size();
  if (size % kRecordLength != 0) {
    run_.findings.damage(kind::kDocumentLength, place,
                         "The document " + name + " has " + text(size) +
                             " bytes, which is no whole number of records of 38 bytes.");
  } else if (size < kFewestRecords * kRecordLength) {
    run_.findings.damage(kind::kDocumentLength, place,
                         "The document " + name + " has " + text(size) +
                             " bytes; up to its total it needs " +
                             text(kFewestRecords * kRecordLength) + ".");
  }
}

}  // namespace dg::check
