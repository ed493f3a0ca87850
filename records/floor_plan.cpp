#include "records/floor_plan.h"

namespace dg {

namespace {

namespace floor_plan {
using Self = clsFloorPlan;
constexpr Field<clsFloorPlan> kFields[] = {
    integer(3, 'C', DG_MEMBER(Line)),
    maskHead<clsFloorPlan>(kSlashHead),
    packedText(5, 12, DG_MEMBER(Part_Number)),
    // Stays in force afterwards: for all fields from here on, and for every later decode.
    maskHead<clsFloorPlan>(kDashHead),
    packedText(17, 12, DG_MEMBER(Serial_Number)),
    packedText(29, 6, DG_MEMBER(Reference_1)),
    packedText(35, 4, DG_MEMBER(Reference_2)),
    date(39, 'J', DG_MEMBER(Date_Received)),
    date(floor_plan_record::kDateSold.position, 'J', DG_MEMBER(Date_Sold)),
    date(43, 'J', DG_MEMBER(Date_Due)),
    date(45, 'J', DG_MEMBER(Date_Paid)),
    packedText(47, 4, DG_MEMBER(Payment_Reference)),
    scaled(51, 'K', 100, DG_MEMBER(Cost)),
    scaled(54, 'K', 100, DG_MEMBER(Sold_For_Price)),
    integer(57, 'D', DG_MEMBER(Account)),
    integer(floor_plan_record::kCustomerInvoice, DG_MEMBER(Customer_Invoice)),
    date(64, 'J', DG_MEMBER(pas_Date_Due)),
    date(66, 'J', DG_MEMBER(pas_Date_Paid)),
    packedText(68, 4, DG_MEMBER(pas_Payment_Ref)),
    packedText(72, 4, DG_MEMBER(pas_Status)),
    integer(76, 'C', DG_MEMBER(pas_Serv_Chg_Perc)),
    scaled(78, 'K', 100, DG_MEMBER(pas_Amount_Paid)),
    integer(floor_plan_record::kExtentChain, DG_MEMBER(ExtentChain)),
};
}  // namespace floor_plan

namespace extent {
using Self = clsFloorPlanExtent;
constexpr Field<clsFloorPlanExtent> kFields[] = {
    integer(1, 'C', DG_MEMBER(recordStatus)),
    packedText(3, 2, DG_MEMBER(Line)),
    packedText(5, 12, DG_MEMBER(PartNumber)),
    packedText(5, 24, DG_MEMBER(LongText)),
    integer(17, 'J', DG_MEMBER(Quantity)),
    scaled(19, 'D', 100, DG_MEMBER(Cost)),
    scaled(22, 'D', 100, DG_MEMBER(Net)),
    integer(floor_plan_extent::kNext, DG_MEMBER(ExtentNext)),
};
}  // namespace extent

}  // namespace

std::span<const Field<clsFloorPlan>> clsFloorPlan::fields() {
  return floor_plan::kFields;
}

std::span<const Field<clsFloorPlanExtent>> clsFloorPlanExtent::fields() {
  return extent::kFields;
}

}  // namespace dg
