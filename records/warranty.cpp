#include "records/warranty.h"

namespace dg {

namespace {

using Self = clsWarranty;

constexpr Field<clsWarranty> kFields[] = {
    integer(1, 'C', DG_MEMBER(Status)),
    integer(3, 'C', DG_MEMBER(Distributor)),
    integer(5, 'L', DG_MEMBER(Shop_Ref)),
    packedText(9, 40, DG_ELEMENT(Cause_Fail, 0)),
    packedText(49, 40, DG_ELEMENT(Cause_Fail, 1)),
    packedText(89, 40, DG_ELEMENT(Cause_Fail, 2)),
    packedText(129, 40, DG_ELEMENT(Work_Perform, 0)),
    packedText(169, 40, DG_ELEMENT(Work_Perform, 1)),
    packedText(209, 40, DG_ELEMENT(Work_Perform, 2)),
    integer(249, 'B', DG_MEMBER(Engine_received)),
    integer(250, 'B', DG_MEMBER(Parts_Have_Been)),
    packedText(251, 8, DG_MEMBER(Product_Model)),
    packedText(259, 10, DG_MEMBER(Engine_Model)),
    integer(269, 'D', DG_MEMBER(Hours_Used)),
    date(272, 'D', DG_MEMBER(Date_Fail)),
    integer(276, 'C', DG_MEMBER(Cust_AC)),
    integer(278, 'L', DG_MEMBER(Cust_Phone)),
    integer(282, 'C', DG_MEMBER(Total_Lab_Hrs)),
    date(284, 'D', DG_MEMBER(Date_Purch)),
    integer(287, 'B', DG_MEMBER(Bitswitch_1)),
    wholeCurrency(288, 'L', DG_MEMBER(Part_Amount)),
    wholeCurrency(292, 'L', DG_MEMBER(Labor_Amount)),
    wholeCurrency(296, 'L', DG_MEMBER(Part_Paid_Amount)),
    wholeCurrency(300, 'L', DG_MEMBER(Labor_Paid_Amount)),
    packedText(304, 20, DG_MEMBER(Soldby_Name)),
    packedText(324, 20, DG_MEMBER(Soldby_Address)),
    wholeCurrency(344, 'D', DG_MEMBER(PD_Charge)),
    wholeCurrency(347, 'D', DG_MEMBER(PD_Paid)),
    integer(350, 'L', DG_MEMBER(Reconciled_Inv_No)),
    packedText(354, 16, DG_MEMBER(Soldby_City)),
    packedText(370, 2, DG_MEMBER(Soldby_State)),
    packedText(372, 6, DG_MEMBER(Soldby_Zip)),
    integer(378, 'C', DG_MEMBER(Soldby_AC)),
    integer(380, 'L', DG_MEMBER(Soldby_Phone)),
    wholeCurrency(384, 'L', DG_MEMBER(Tax_Totals)),
    wholeCurrency(388, 'L', DG_MEMBER(B_Tax_Totals)),
    date(warranty_record::kReconciled.position, 'J', DG_MEMBER(Date_Reconciled)),
    date(warranty_record::kBilled.position, 'D', DG_MEMBER(Date_Billed)),
    date(406, 'D', DG_MEMBER(Date_Printed)),
    integer(409, 'L', DG_MEMBER(Cust_No)),
    packedText(413, 20, DG_MEMBER(Cust_Name)),
    packedText(433, 10, DG_MEMBER(Repair_Brand)),
    packedText(443, 14, DG_MEMBER(Repair_Equip_Desc)),
    packedText(457, 12, DG_MEMBER(Serial_1)),
    packedText(469, 12, DG_MEMBER(Serial_2)),
    integer(481, 'L', DG_MEMBER(Billed_Inv_No)),
    rawText(485, 27, DG_MEMBER(Misc_Shop_Job_Info)),
    integer(505, 'B', DG_MEMBER(Shop_Job_Type)),
    integer(507, 'C', DG_MEMBER(Job_No)),
    integer(509, 'L', DG_MEMBER(Inv_Ptr)),
};

}  // namespace

std::span<const Field<clsWarranty>> clsWarranty::fields() {
  return kFields;
}

}  // namespace dg
