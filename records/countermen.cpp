#include "records/countermen.h"

namespace dg {

namespace {

using Self = clsCounterman;

constexpr std::int32_t kFlagUnit = 10000;

/// One field holds a flag and a number. Reading never clears the flag, so that an instance that is
/// used again keeps it.
void readField198(clsCounterman& man, const std::string& record, TextField field) {
  const std::int32_t value = Unpack('C', record, field.position);
  if (value >= kFlagUnit) man.Field198Flag = -1;
  man.Field198 = value % kFlagUnit;
}

void writeField198(const clsCounterman& man, std::string& record, TextField field) {
  const std::int32_t value =
      man.Field198Flag != 0 ? man.Field198 % kFlagUnit + kFlagUnit : man.Field198;
  Pack('C', record, value, field.position);
}

constexpr Field<clsCounterman> kFields[] = {
    integer(counterman_record::kNumber, DG_MEMBER(COUNTERMAN_Number)),
    packedText(5, 2, DG_MEMBER(COUNTERMAN_Alpha)),
    packedText(7, 20, DG_MEMBER(Name)),
    date(27, 'D', DG_MEMBER(Date_Set_Up)),
    integer(30, 'L', DG_MEMBER(Todays_Invoices)),
    integer(34, 'L', DG_MEMBER(Todays_Line_Items)),
    scaled(38, 'L', 100, DG_MEMBER(Todays_Cash_Recvd)),
    scaled(42, 'L', 100, DG_MEMBER(Todays_Charges)),
    scaled(46, 'L', 100, DG_MEMBER(Todays_Refunds)),
    scaled(50, 'L', 100, DG_MEMBER(Todays_Cr_Memos)),
    scaled(54, 'L', 100, DG_MEMBER(Todays_Mdse_Sales)),
    scaled(58, 'L', 100, DG_MEMBER(Todays_Mdse_Cost)),
    scaled(62, 'L', 100, DG_MEMBER(Todays_Labor_Sales)),
    scaled(66, 'L', 100, DG_MEMBER(Todays_Labor_Cost)),
    scaled(70, 'L', 100, DG_MEMBER(Todays_Discounts)),
    scaled(74, 'L', 100, DG_MEMBER(Todays_Payments)),
    scaled(78, 'L', 100, DG_MEMBER(Todays_Taxes)),
    scaled(82, 'L', 100, DG_MEMBER(Todays_Paymnt_Disc)),
    scaled(86, 'L', 100, DG_MEMBER(Todays_AR_Adjust)),
    integer(190, 'C', DG_MEMBER(Todays_Lost_Sales)),
    scaled(90, 'L', 100, DG_MEMBER(SM_Todays_Net_Mdse_Sales)),
    scaled(94, 'L', 100, DG_MEMBER(SM_Todays_Net_Mdse_Cost)),
    scaled(98, 'L', 100, DG_MEMBER(SM_Todays_Labor_Sales)),
    scaled(102, 'L', 100, DG_MEMBER(SM_Todays_Labor_Cost)),
    scaled(106, 'L', 100, DG_MEMBER(SM_Todays_Discounts)),
    scaled(110, 'L', 100, DG_MEMBER(MTD_Mdse_Sales)),
    scaled(114, 'L', 100, DG_MEMBER(MTD_Mdse_Cost)),
    scaled(118, 'L', 100, DG_MEMBER(MTD_Labor_Sales)),
    scaled(122, 'L', 100, DG_MEMBER(MTD_Labor_Cost)),
    scaled(126, 'L', 100, DG_MEMBER(MTD_Discounts)),
    scaled(130, 'L', 100, DG_MEMBER(SM_MTD_Net_Mdse_Sales)),
    scaled(134, 'L', 100, DG_MEMBER(SM_MTD_Net_Mdse_Cost)),
    scaled(138, 'L', 100, DG_MEMBER(SM_MTD_Labor_Sales)),
    scaled(142, 'L', 100, DG_MEMBER(SM_MTD_Labor_Cost)),
    scaled(146, 'L', 100, DG_MEMBER(SM_MTD_Discounts)),
    integer(192, 'C', DG_MEMBER(MTD_Lost_Sales)),
    scaled(150, 'L', 100, DG_MEMBER(YTD_Mdse_Sales)),
    scaled(154, 'L', 100, DG_MEMBER(YTD_Mdse_Cost)),
    scaled(158, 'L', 100, DG_MEMBER(YTD_Labor_Sales)),
    scaled(162, 'L', 100, DG_MEMBER(YTD_Labor_Cost)),
    scaled(166, 'L', 100, DG_MEMBER(YTD_Discounts)),
    scaled(170, 'L', 100, DG_MEMBER(SM_YTD_Net_Mdse_Sales)),
    scaled(174, 'L', 100, DG_MEMBER(SM_YTD_Net_Mdse_Cost)),
    scaled(178, 'L', 100, DG_MEMBER(SM_YTD_Labor_Sales)),
    scaled(182, 'L', 100, DG_MEMBER(SM_YTD_Labor_Cost)),
    scaled(186, 'L', 100, DG_MEMBER(SM_YTD_Discounts)),
    integer(194, 'C', DG_MEMBER(YTD_Lost_Sales)),
    integer(196, 'B', DG_MEMBER(DrawerOpen_Today)),
    integer(197, 'B', DG_MEMBER(DrawerOpen_Yesterday)),
    rule<clsCounterman>(198, 2, &readField198, &writeField198, DG_MEMBER(Field198Flag)),
    member(DG_MEMBER(Field198)),
    scaled(205, 'L', 100, DG_MEMBER(MTD_ME_Bld)),
    scaled(209, 'L', 100, DG_MEMBER(MTD_ME_Act)),
    scaled(213, 'L', 100, DG_MEMBER(MTD_ME_Bld_1_back)),
    scaled(217, 'L', 100, DG_MEMBER(MTD_ME_Act_1_back)),
    scaled(221, 'L', 100, DG_MEMBER(MTD_ME_Bld_2_back)),
    scaled(225, 'L', 100, DG_MEMBER(MTD_ME_Act_2_back)),
    scaled(229, 'L', 100, DG_MEMBER(MTD_ME_Bld_3_back)),
    scaled(233, 'L', 100, DG_MEMBER(MTD_ME_Act_3_back)),
    scaled(237, 'L', 100, DG_MEMBER(MTD_ME_Bld_4_back)),
    scaled(241, 'L', 100, DG_MEMBER(MTD_ME_Act_4_back)),
    scaled(245, 'L', 100, DG_MEMBER(MTD_ME_Bld_5_back)),
    scaled(249, 'L', 100, DG_MEMBER(MTD_ME_Act_5_back)),
    scaled(253, 'L', 100, DG_MEMBER(MTD_ME_Bld_6_back)),
    scaled(257, 'L', 100, DG_MEMBER(MTD_ME_Act_6_back)),
    scaled(261, 'L', 100, DG_MEMBER(MTD_ME_Bld_7_back)),
    scaled(265, 'L', 100, DG_MEMBER(MTD_ME_Act_7_back)),
    scaled(269, 'L', 100, DG_MEMBER(MTD_ME_Bld_8_back)),
    scaled(273, 'L', 100, DG_MEMBER(MTD_ME_Act_8_back)),
    scaled(277, 'L', 100, DG_MEMBER(MTD_ME_Bld_9_back)),
    scaled(281, 'L', 100, DG_MEMBER(MTD_ME_Act_9_back)),
    scaled(285, 'L', 100, DG_MEMBER(MTD_ME_Bld_10_back)),
    scaled(289, 'L', 100, DG_MEMBER(MTD_ME_Act_10_back)),
    scaled(293, 'L', 100, DG_MEMBER(MTD_ME_Bld_11_back)),
    scaled(297, 'L', 100, DG_MEMBER(MTD_ME_Act_11_back)),
    scaled(301, 'L', 100, DG_MEMBER(MTD_ME_Bld_12_back)),
    scaled(305, 'L', 100, DG_MEMBER(MTD_ME_Act_12_back)),
    scaled(309, 'L', 100, DG_MEMBER(YTD_ME_Billed)),
    scaled(313, 'L', 100, DG_MEMBER(YTD_ME_Actual)),
    scaled(317, 'L', 100, DG_MEMBER(LY_ME_Billed)),
    scaled(321, 'L', 100, DG_MEMBER(LY_ME_Actual)),
    scaled(325, 'L', 100, DG_MEMBER(PY_ME_Billed)),
    scaled(329, 'L', 100, DG_MEMBER(PY_ME_Actual)),
    scaled(333, 'L', 100, DG_MEMBER(Deposits_In_Today)),
    scaled(337, 'L', 100, DG_MEMBER(Deposits_Out_Today)),
    scaled(341, 'L', 100, DG_MEMBER(Deposits_In_MTD)),
    scaled(345, 'L', 100, DG_MEMBER(Deposits_Out_MTD)),
    scaled(349, 'L', 100, DG_MEMBER(Deposits_In_YTD)),
    scaled(353, 'L', 100, DG_MEMBER(Deposits_Out_YTD)),
    scaled(357, 'L', 100, DG_MEMBER(Rentals_Today)),
    scaled(361, 'L', 100, DG_MEMBER(Rental_Parts_Today)),
    scaled(365, 'L', 100, DG_MEMBER(Rental_Labor_Today)),
    scaled(369, 'L', 100, DG_MEMBER(Rentals_MTD)),
    scaled(373, 'L', 100, DG_MEMBER(Rental_Parts_MTD)),
    scaled(377, 'L', 100, DG_MEMBER(Rental_Labor_MTD)),
    scaled(381, 'L', 100, DG_MEMBER(Rentals_YTD)),
    scaled(385, 'L', 100, DG_MEMBER(Rental_Parts_YTD)),
    scaled(389, 'L', 100, DG_MEMBER(Rental_Labor_YTD)),
    rawText(393, 8, DG_MEMBER(E_Mail_Password)),
};

}  // namespace

std::span<const Field<clsCounterman>> clsCounterman::fields() {
  return kFields;
}

}  // namespace dg
