#include "records/shop.h"

namespace dg {

namespace {

using Self = clsShop;

/// The sub-total tested here is the one of the record that this instance unpacked before, since
/// this record's own is read behind it: a new instance never maps its first record. The views see
/// what has always come of that.
void normaliseTransactionType(clsShop& job) {
  job.Transaction_Type %= 10;
  if (job.Sub_Total < Currency()) {
    if (job.Transaction_Type == 3) {
      job.Transaction_Type = 1;
    } else if (job.Transaction_Type == 4) {
      job.Transaction_Type = 2;
    }
  }
}

/// A record that ends before this field keeps what position 7 gave; 0 is the account there too.
void readShipTo(clsShop& job, const std::string& record, TextField field) {
  if (const auto stored = tryUnpack('K', record, field.position)) {
    job.ShipTo = *stored == -1 ? -1 : Unpack('D', record, field.position);
  }
  if (job.ShipTo == 0) job.ShipTo = job.Account;
}

void writeShipTo(const clsShop& job, std::string& record, TextField field) {
  Pack('K', record, job.ShipTo, field.position);
}

/// Elements that a short record does not reach are those of new arrays.
void renewArrays(clsShop& job) {
  job.CallDates = {};
  job.WarrVend = {};
  job.CallStatus = {};
}

constexpr Field<clsShop> kFields[] = {
    step<&renewArrays>(),
    integer(1, 'J', DG_MEMBER(Record_Status)),
    integer(3, 'L', DG_MEMBER(Account)),
    integer(7, 'D', DG_MEMBER(ShipTo)),
    wholeCurrency(10, 'C', DG_MEMBER(ReplacementEstimate)),
    member(DG_MEMBER(Field72)),
    integer(12, 'C', DG_MEMBER(AlternateTaxCode)),
    scaled(14, 'D', 10, DG_MEMBER(Meter)),
    date(17, 'J', DG_MEMBER(ScheduleDate)),
    date(19, 'J', DG_MEMBER(PostCardDate)),
    date(shop_days::kCalls[0].position, 'J', DG_ELEMENT(CallDates, 0)),
    date(shop_days::kCalls[1].position, 'J', DG_ELEMENT(CallDates, 1)),
    date(shop_days::kCalls[2].position, 'J', DG_ELEMENT(CallDates, 2)),
    packedText(27, 10, DG_MEMBER(RepairBrand)),
    packedText(37, 14, DG_MEMBER(RepairBrandDescription)),
    packedText(51, 12, DG_MEMBER(SerialNumber1)),
    packedText(63, 12, DG_MEMBER(SerialNumber2)),
    integer(75, 'L', DG_MEMBER(ShopReference)),
    integer(79, 'B', DG_MEMBER(Mechanic)),
    integer(80, 'B', DG_MEMBER(PostCardCount)),
    wholeCurrency(81, 'C', DG_MEMBER(EstimateAmount)),
    date(83, 'J', DG_MEMBER(PromiseDate)),
    date(85, 'J', DG_MEMBER(DeliveryDate)),
    packedText(87, 6, DG_MEMBER(POReference)),
    date(shop_days::kCompleted.position, 'J', DG_MEMBER(DateCompleted)),
    date(shop_days::kCheckedIn.position, 'J', DG_MEMBER(DateCheckedIn)),
    integer(97, 'B', DG_MEMBER(LastRequest)),
    rawText(99, 1, DG_MEMBER(Status)),
    integer(100, 'B', DG_MEMBER(DeliveryCode)),
    integer(101, 'C', DG_MEMBER(JobNumber)),
    integer(103, 'C', DG_MEMBER(TimeIn)),
    packedText(105, 8, DG_MEMBER(PhoneNumber2)),
    integer(113, 'B', DG_MEMBER(Counterman)),
    integer(114, 'B', DG_MEMBER(Salesman_Number)),
    integer(115, 'B', DG_MEMBER(Page)),
    bit(116, 'B', 6, DG_MEMBER(Rental)),
    bit(116, 'B', 7, DG_MEMBER(Shop)),
    member(DG_MEMBER(Field232)),
    integer(117, 'C', DG_ELEMENT(WarrVend, 0)),
    integer(97, 'C', DG_ELEMENT(WarrVend, 1)),
    rawText(119, 1, DG_MEMBER(Warranty)),
    integer(120, 'B', DG_ELEMENT(CallStatus, 0)),
    integer(121, 'B', DG_ELEMENT(CallStatus, 1)),
    integer(122, 'B', DG_ELEMENT(CallStatus, 2)),
    integer(123, 'B', DG_MEMBER(Transaction_Type)),
    step<&normaliseTransactionType>(),
    integer(124, 'B', DG_MEMBER(Delivery_Code)),
    scaled(125, 'L', 100, DG_MEMBER(Sub_Total)),
    integer(129, 'J', DG_MEMBER(Disc_Percentage)),
    scaled(131, 'L', 100, DG_MEMBER(Discount_Amount)),
    integer(135, 'C', DG_MEMBER(Tax_Rate)),
    scaled(137, 'L', 100, DG_MEMBER(Tax_Amount)),
    rule<clsShop>(141, 3, &readShipTo, &writeShipTo, DG_MEMBER(ShipTo)),
    integer(145, 'B', DG_MEMBER(Department)),
    rawText(147, 1, DG_MEMBER(Sales_Code)),
    rawText(148, 1, DG_MEMBER(TaxCode)),
    integer(149, 'B', DG_MEMBER(Tax_Rate_Code)),
    member(DG_MEMBER(Field328)),
    integer(151, 'L', DG_MEMBER(Field151)),
    integer(156, 'B', DG_MEMBER(Terms_Code)),
    integer(157, 'B', DG_MEMBER(Field157)),
    member(DG_MEMBER(RecordText)),
};

}  // namespace

std::span<const Field<clsShop>> clsShop::fields() {
  return kFields;
}

}  // namespace dg
