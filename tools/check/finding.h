#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace dg::check {

/// Damage makes readers fail or show wrong figures. A note is odd, and legal.
enum class Severity { kDamage, kNote };

/// What a place is numbered by.
enum class Unit {
  kNone,    ///< a file as a whole
  kEntry,   ///< entry of a link table or directory file, from 0
  kBlock,   ///< block of an index or of the control file, from 0
  kRecord,  ///< record of a record file, 0 for its record zero
};

/// Where something was found.
struct Place {
  std::string file;      ///< logical file, or plain file, by its name in the store
  std::string physical;  ///< the file on the share that holds it, by its path below the link share
  Unit unit = Unit::kNone;
  std::int64_t number = 0;                            ///< of the block, record or entry
  std::optional<std::int64_t> offset = std::nullopt;  ///< byte in the physical file
};

/// One thing that is wrong or odd.
struct Finding {
  Severity severity = Severity::kDamage;
  std::string_view kind;  ///< one of the names below
  Place place;
  std::string text;  ///< one sentence, bytes of the suite's code page
};

/// What can be found, as JSON names it. Scripts may rely on these.
namespace kind {
inline constexpr std::string_view kUnreadable = "unreadable";

inline constexpr std::string_view kLinkTable = "link-table";
inline constexpr std::string_view kLinkShort = "link-short-entry";
inline constexpr std::string_view kLinkRepeated = "link-repeated";
inline constexpr std::string_view kLinkNowhere = "link-nowhere";
inline constexpr std::string_view kLinkOutside = "link-outside-share";
inline constexpr std::string_view kLinkMissing = "link-missing";
inline constexpr std::string_view kLinkName = "link-name";
inline constexpr std::string_view kTerminalTable = "terminal-table";

inline constexpr std::string_view kDirectoryLength = "directory-length";
inline constexpr std::string_view kDirectoryRepeated = "directory-repeated";
inline constexpr std::string_view kDirectoryFlagged = "directory-flagged";
inline constexpr std::string_view kDirectoryType = "directory-type";
inline constexpr std::string_view kDirectoryCapacity = "directory-capacity";
inline constexpr std::string_view kDirectoryOverlap = "directory-overlap";
inline constexpr std::string_view kDirectoryPastEnd = "directory-past-end";
inline constexpr std::string_view kDirectoryReserved = "directory-reserved-blocks";
inline constexpr std::string_view kDataFile = "data-file";
inline constexpr std::string_view kRecordLength = "record-length";

inline constexpr std::string_view kMarker = "record-zero-marker";
inline constexpr std::string_view kFreeHead = "free-head";
inline constexpr std::string_view kHighUsed = "high-used";
inline constexpr std::string_view kActiveCount = "active-count";
inline constexpr std::string_view kFreeRange = "free-chain-range";
inline constexpr std::string_view kFreeLoop = "free-chain-loop";
inline constexpr std::string_view kFreeUsed = "free-chain-used-record";
inline constexpr std::string_view kFreeContent = "free-record-content";
inline constexpr std::string_view kFreeLost = "free-records-lost";
inline constexpr std::string_view kBlankRecords = "blank-records";
inline constexpr std::string_view kNotMarked = "records-not-marked";
inline constexpr std::string_view kExtensionShort = "extension-short";

inline constexpr std::string_view kIndexHeader = "index-header";
inline constexpr std::string_view kIndexEntryLength = "index-entry-length";
inline constexpr std::string_view kIndexNodeRange = "index-node-range";
inline constexpr std::string_view kIndexNodeTwice = "index-node-twice";
inline constexpr std::string_view kIndexEntryCount = "index-entry-count";
inline constexpr std::string_view kIndexKeyOrder = "index-key-order";
inline constexpr std::string_view kIndexRepeatedKey = "index-repeated-key";
inline constexpr std::string_view kIndexSeparator = "index-separator";
inline constexpr std::string_view kIndexDepth = "index-depth";
inline constexpr std::string_view kIndexLeafChain = "index-leaf-chain";
inline constexpr std::string_view kIndexSentinel = "index-sentinel";
inline constexpr std::string_view kIndexPointer = "index-pointer";
inline constexpr std::string_view kIndexFreeRecord = "index-free-record";
inline constexpr std::string_view kIndexRecordTwice = "index-record-twice";
inline constexpr std::string_view kUnreached = "record-unreached";

inline constexpr std::string_view kPageNumber = "page-number";
inline constexpr std::string_view kPageLink = "page-link";
inline constexpr std::string_view kPageLoop = "page-loop";
inline constexpr std::string_view kPageGap = "page-gap";
inline constexpr std::string_view kPageLines = "page-lines";
inline constexpr std::string_view kPageShared = "page-shared";
inline constexpr std::string_view kPagesUnreached = "pages-unreached";
inline constexpr std::string_view kChainLink = "chain-link";
inline constexpr std::string_view kChainLoop = "chain-loop";
inline constexpr std::string_view kChainShared = "chain-shared";
inline constexpr std::string_view kJobSlot = "job-slot";
inline constexpr std::string_view kSavedSlot = "saved-invoice-slot";
inline constexpr std::string_view kControlFile = "control-file";
inline constexpr std::string_view kDocumentName = "document-name";
inline constexpr std::string_view kDocumentMissing = "document-missing";
inline constexpr std::string_view kDocumentLength = "document-length";
}  // namespace kind

}  // namespace dg::check
