#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

#include "records/open/open_work.h"

namespace dg {

/// What an owner should look at. The order is that of all lists of kinds.
enum class AttentionKind {
  kFloorPlanDue,
  kFloorPlanSoldUnpaid,
  kShopComplete,
  kShopOld,
  kShopPromisePassed,
  kOrdersOld,
  kWarrantiesOld,
  kPurchaseOrdersOld,
  kReturnsOld,
  kUnitsOld,
  kCustomersPastDue,
  kCustomersOverLimit,
  kPartsIdle,
};
inline constexpr std::size_t kAttentionKinds = 13;

/// A file that a kind needs whole, read only where somebody asks for the kind.
enum class WholeFile { kNone, kCustomers, kParts };

/// A kind as data.
struct KindEntry {
  AttentionKind kind;
  std::string_view name;     ///< "shop-old": what the command line and JSON call it
  std::string_view caption;  ///< "Old shop jobs"
  std::string_view meaning;  ///< one line for the user; "%" stands for the limit
  std::optional<int> days;   ///< the limit it starts with; none: it has no limit
  WholeFile file = WholeFile::kNone;
  OpenFamily family = {};  ///< of kinds that need no whole file
  Date OpenWork::*date = nullptr;
  /// Whether an item of the family is one of the kind; age is that of the kind's own date.
  bool (*selects)(const OpenWork& item, std::optional<int> age, int days) = nullptr;
};

/// All kinds, entry n for kind n.
std::span<const KindEntry> attentionKinds();
const KindEntry& entryOf(AttentionKind kind);
/// The kind of a name, without regard to case; null when there is none.
const KindEntry* findKind(std::string_view name);

/// A family as its ageing names it.
struct FamilyEntry {
  OpenFamily family;
  std::string_view name;     ///< "purchase-orders"
  std::string_view caption;  ///< "Open Purchase Orders", as the recap has it
};
/// All families, entry n for family n.
std::span<const FamilyEntry> openFamilies();

}  // namespace dg
