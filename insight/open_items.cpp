#include "insight/open_items.h"

#include <utility>

#include "insight/quiet_scope.h"
#include "platform/read_ahead.h"
#include "platform/values/trap.h"
#include "records/control_file.h"
#include "records/open/floor_plan_entries.h"
#include "records/open/orders.h"
#include "records/open/shop_jobs.h"
#include "records/open/unsold_units.h"
#include "records/open/vendor_orders.h"
#include "records/open/warranty_claims.h"

namespace dg {

namespace {

/// As the load of the shop jobs answers it: what cannot be asked is no.
bool claimsBySegment() {
  bool bySegments = false;
  suppressErrors([&bySegments] { bySegments = companyOption(kWarrantyOption); });
  return bySegments;
}

void walk(OpenFamily family) {
  switch (family) {
    case OpenFamily::kOrders:
      return forEachOpenOrder([](const OpenOrder&) {}, [] {}, [](const OpenOrder&) {});
    case OpenFamily::kShop:
      return forEachOpenJob([](const OpenJob&) {});
    case OpenFamily::kWarranties:
      return forEachBilledClaim(claimsBySegment(), [](const BilledClaim&) {});
    case OpenFamily::kFloorPlan:
      return forEachFloorPlanLine([](std::int32_t, const std::string&, Currency) {});
    case OpenFamily::kUnits:
      return forEachUnitLine([](std::int32_t, const std::string&, Currency) {});
    case OpenFamily::kPurchaseOrders:
      return forEachPurchaseOrder([](const OpenDocument&) {});
    case OpenFamily::kReturns:
      return forEachReturn([](const OpenDocument&) {});
  }
}

}  // namespace

void OpenItems::begin(OpenFamily family) {
  at(family) = {};
}

void OpenItems::add(OpenFamily family, OpenWork item) {
  at(family).items.push_back(std::move(item));
}

void OpenItems::end(OpenFamily family) {
  at(family).isRead = true;
}

void OpenItems::fail(OpenFamily family, const RunTimeError& error) {
  at(family) = {.isRead = false, .error = error.description(), .items = {}};
}

void OpenItems::readMissing() {
  const ReadAheadScope keeping;
  const QuietScope quiet;
  const ObservingScope observing(*this);
  for (std::size_t i = 0; i < kOpenFamilies; ++i) {
    const auto family = static_cast<OpenFamily>(i);
    if (at(family).isRead) continue;
    trapErrors([family] { walk(family); }, [&](const RunTimeError& error) { fail(family, error); });
  }
}

void OpenItems::clear() {
  families_ = {};
}

const OpenItems::Family& OpenItems::family(OpenFamily family) const {
  return families_[static_cast<std::size_t>(family)];
}

}  // namespace dg
