#include "insight/attention_kinds.h"

#include <algorithm>

#include "platform/text.h"

namespace dg {

namespace {

using Age = std::optional<int>;

bool isOlder(const OpenWork&, Age age, int days) {
  return age && *age > days;
}

/// A date in the future has a negative age.
bool isDue(const OpenWork& item, Age age, int days) {
  return item.isOpen && item.paid == kEmptyDate && age && *age >= -days;
}

bool isSoldUnpaid(const OpenWork& item, Age age, int) {
  return age && item.paid == kEmptyDate;
}

bool isComplete(const OpenWork& job, Age, int) {
  return job.status == "C";
}

/// Neither complete nor scratch: somebody has to do it yet.
bool isInWork(const OpenWork& job) {
  return job.status != "C" && job.status != "S";
}

bool isOldJob(const OpenWork& job, Age age, int days) {
  return isInWork(job) && isOlder(job, age, days);
}

bool isPromisePassed(const OpenWork& job, Age age, int) {
  return isInWork(job) && age && *age > 0;
}

// clang-format off
constexpr KindEntry kKinds[] = {
    {.kind = AttentionKind::kFloorPlanDue, .name = "floor-plan-due", .caption = "Floor plan due",
     .meaning = "Unpaid units that fall due at the lender within % days, or are past due",
     .days = 14, .family = OpenFamily::kFloorPlan, .date = &OpenWork::due, .selects = &isDue},
    {.kind = AttentionKind::kFloorPlanSoldUnpaid, .name = "floor-plan-sold-unpaid", .caption = "Sold and not paid off",
     .meaning = "Units that are sold and still financed by the lender",
     .days = {}, .family = OpenFamily::kFloorPlan, .date = &OpenWork::sold, .selects = &isSoldUnpaid},
    {.kind = AttentionKind::kShopComplete, .name = "shop-complete", .caption = "Complete and not billed",
     .meaning = "Shop jobs that are done and wait for their bill",
     .days = {}, .family = OpenFamily::kShop, .date = &OpenWork::completed, .selects = &isComplete},
    {.kind = AttentionKind::kShopOld, .name = "shop-old", .caption = "Old shop jobs",
     .meaning = "Jobs in work that came in more than % days ago",
     .days = 30, .family = OpenFamily::kShop, .date = &OpenWork::date, .selects = &isOldJob},
    {.kind = AttentionKind::kShopPromisePassed, .name = "shop-promise-passed", .caption = "Promises passed",
     .meaning = "Jobs in work that were promised for a day before today",
     .days = {}, .family = OpenFamily::kShop, .date = &OpenWork::promised, .selects = &isPromisePassed},
    {.kind = AttentionKind::kOrdersOld, .name = "orders-old", .caption = "Old sales orders",
     .meaning = "Pick tickets and saved invoices older than % days",
     .days = 30, .family = OpenFamily::kOrders, .date = &OpenWork::date, .selects = &isOlder},
    {.kind = AttentionKind::kWarrantiesOld, .name = "warranties-old", .caption = "Claims not settled",
     .meaning = "Warranty claims billed more than % days ago",
     .days = 60, .family = OpenFamily::kWarranties, .date = &OpenWork::date, .selects = &isOlder},
    {.kind = AttentionKind::kPurchaseOrdersOld, .name = "purchase-orders-old", .caption = "Old purchase orders",
     .meaning = "Open purchase orders older than % days",
     .days = 60, .family = OpenFamily::kPurchaseOrders, .date = &OpenWork::date, .selects = &isOlder},
    {.kind = AttentionKind::kReturnsOld, .name = "returns-old", .caption = "Old returns",
     .meaning = "Pending returns older than % days",
     .days = 30, .family = OpenFamily::kReturns, .date = &OpenWork::date, .selects = &isOlder},
    {.kind = AttentionKind::kUnitsOld, .name = "units-old", .caption = "Old units",
     .meaning = "Unsold units that came in more than % days ago",
     .days = 180, .family = OpenFamily::kUnits, .date = &OpenWork::date, .selects = &isOlder},
    {.kind = AttentionKind::kCustomersPastDue, .name = "customers-past-due", .caption = "Customers past due",
     .meaning = "Customers who owe for 60 days and longer, as of their last statement",
     .days = {}, .file = WholeFile::kCustomers},
    {.kind = AttentionKind::kCustomersOverLimit, .name = "customers-over-limit", .caption = "Customers over their limit",
     .meaning = "Customers whose balance exceeds their credit limit",
     .days = {}, .file = WholeFile::kCustomers},
    {.kind = AttentionKind::kPartsIdle, .name = "parts-idle", .caption = "Parts that do not move",
     .meaning = "Parts on hand, neither asked for nor received for more than % days",
     .days = 365, .file = WholeFile::kParts},
};

constexpr FamilyEntry kFamilies[] = {
    {OpenFamily::kOrders,         "orders",          "Open Sales Orders"},
    {OpenFamily::kShop,           "shop",            "Open Shop Work"},
    {OpenFamily::kWarranties,     "warranties",      "Billed Warranties"},
    {OpenFamily::kFloorPlan,      "floor-plan",      "Floor Plan"},
    {OpenFamily::kUnits,          "units",           "Units"},
    {OpenFamily::kPurchaseOrders, "purchase-orders", "Open Purchase Orders"},
    {OpenFamily::kReturns,        "returns",         "Pending Returns"},
};
// clang-format on

template <class Entries, class Member>
constexpr bool isInOrder(const Entries& entries, Member member) {
  for (std::size_t i = 0; i < std::size(entries); ++i) {
    if (static_cast<std::size_t>(entries[i].*member) != i) return false;
  }
  return true;
}
static_assert(std::size(kKinds) == kAttentionKinds && isInOrder(kKinds, &KindEntry::kind));
static_assert(std::size(kFamilies) == kOpenFamilies && isInOrder(kFamilies, &FamilyEntry::family));

}  // namespace

std::span<const KindEntry> attentionKinds() {
  return kKinds;
}

const KindEntry& entryOf(AttentionKind kind) {
  return kKinds[static_cast<std::size_t>(kind)];
}

const KindEntry* findKind(std::string_view name) {
  const auto found = std::ranges::find_if(
      kKinds, [name](const KindEntry& entry) { return equalIgnoringCase(entry.name, name); });
  return found == std::end(kKinds) ? nullptr : &*found;
}

std::span<const FamilyEntry> openFamilies() {
  return kFamilies;
}

}  // namespace dg
