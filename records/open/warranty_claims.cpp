#include "records/open/warranty_claims.h"

#include <cmath>

#include "records/customers.h"
#include "records/file_names.h"
#include "records/index_walk.h"
#include "records/open/open_work.h"
#include "records/read.h"

namespace dg {

namespace {

constexpr std::int32_t kOpenStatus = 1;
/// 1 January 1968 as MMDDYY digits, the empty date: a billed claim lies above it.
constexpr std::int32_t kEmptyBilledDigits = 10168;

constexpr std::size_t kSegmentDigits = 2;

/// A number of one digit has no room for a segment: cutting it fails as the run-time's text
/// routines do, and ends the walk.
ClaimReference referenceOf(const clsWarranty& claim, std::int32_t indexNumber, bool bySegments) {
  if (!bySegments) {
    return {
        .number = claim.Shop_Ref, .shopReference = std::to_string(claim.Shop_Ref), .segment = {}};
  }
  const std::string digits = std::to_string(indexNumber);
  if (digits.size() < kSegmentDigits) throw RunTimeError(kInvalidProcedureCall);
  const std::size_t cut = digits.size() - kSegmentDigits;
  return {
      .number = indexNumber, .shopReference = digits.substr(0, cut), .segment = digits.substr(cut)};
}

OpenWork workOf(const BilledClaim& billed, bool bySegments) {
  const ClaimReference& reference = billed.reference;
  OpenRow row{.view = "frmWarranty",
              .grid = "grdWarr",
              .first = {"Shop Ref", reference.shopReference},
              .second = {}};
  if (bySegments) {
    row.view = "frmWarSeg";
    row.second = {"Req", reference.segment};
  }
  const double cents = billed.detail.WarrPartTotal() + billed.detail.WarrLabTotal();
  return {.what = reference.shopReference,
          .who = claimCustomer(billed.claim, bySegments),
          .amount = Currency::fromDouble(cents / 100),
          .date = billed.claim.Date_Billed,
          .isWhole = !billed.detail.DetailError(),
          .row = std::move(row)};
}

}  // namespace

std::string claimCustomer(const clsWarranty& claim, bool bySegments) {
  return bySegments ? GetCustomerName(claim.Cust_No) : claim.Cust_Name;
}

void forEachBilledClaim(bool bySegments, const std::function<void(const BilledClaim&)>& visit) {
  OpenWorkReport report(OpenFamily::kWarranties);
  clsWarranty claim;
  for (IndexWalk walk(files::kWarrantyIndex, integerKey('L', 1)); !walk.atEnd(); walk.next()) {
    const std::string record = readRecord(files::kWarranties, walk.record());
    claim.Unpack(record);
    const std::int32_t settled = Unpack(warranty_record::kReconciled, record);
    const std::int32_t billed = Unpack(warranty_record::kBilled, record);
    if (claim.Status != kOpenStatus || billed <= kEmptyBilledDigits || settled != 0) continue;
    const ClaimReference reference = referenceOf(claim, walk.keyField('L', 1), bySegments);
    clsWarrDetail detail;
    detail.ShopRef(reference.number);
    detail.DDisplay(false);
    detail.GetDetail();
    const BilledClaim found{
        .claim = claim, .reference = reference, .billedDigits = billed, .detail = detail};
    visit(found);
    report.add([&] { return workOf(found, bySegments); });
  }
  report.end();
}

}  // namespace dg
