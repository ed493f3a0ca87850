#include "records/invoice_history.h"

#include <algorithm>
#include <span>

#include "engine/business_basic.h"
#include "engine/state.h"
#include "records/record_table.h"

namespace dg {

namespace {

using Self = clsInvoiceHistory;

constexpr std::int16_t kTrue = -1;

/// What a record is, which says how it is laid out.
constexpr NumberField kType{'J', 1};

enum class Layout { kNone, kSales, kOrder };

Layout layoutOf(std::int32_t type) {
  constexpr std::int32_t kSalesTypes[] = {1, 2, 3, 13, 17, 19, 99};
  constexpr std::int32_t kOrderTypes[] = {80, 81};
  if (std::ranges::find(kSalesTypes, type) != std::end(kSalesTypes)) return Layout::kSales;
  if (std::ranges::find(kOrderTypes, type) != std::end(kOrderTypes)) return Layout::kOrder;
  return Layout::kNone;
}

/// -1 is no ship-to: the account itself. Any lower value is the upper half of an unsigned account.
void readShipTo(clsInvoiceHistory& header, const std::string& record, TextField field) {
  header.ShipTo = Unpack('K', record, field.position);
  if (header.ShipTo < -1) header.ShipTo = Unpack('D', record, field.position);
  if (header.ShipTo < 0) header.ShipTo = header.Account;
}
void writeShipTo(const clsInvoiceHistory& header, std::string& record, TextField field) {
  Pack('K', record, header.ShipTo, field.position);
}

constexpr std::int32_t kLastPlainTransaction = 20;

void readSaleFlag(clsInvoiceHistory& header, const std::string& record, TextField field) {
  header.SaleFlag = 0;
  if (Unpack('B', record, field.position) > kLastPlainTransaction) header.SaleFlag = kTrue;
}
void clearSaleFlag(clsInvoiceHistory& header) {
  header.SaleFlag = 0;
}

/// The width of this field goes by the type of the record that the instance unpacked before: this
/// record's own type is stored only behind it.
constexpr std::int32_t kTypeWithLongField = 2;

void readField151(clsInvoiceHistory& header, const std::string& record, TextField field) {
  if (header.Record_Status == kTypeWithLongField) {
    header.Field151Long = Unpack('L', record, field.position);
  } else {
    header.Field151 = Unpack('C', record, field.position);
  }
}
void writeField151(const clsInvoiceHistory& header, std::string& record, TextField field) {
  if (header.Record_Status == kTypeWithLongField) {
    Pack('L', record, header.Field151Long, field.position);
  } else {
    Pack('C', record, header.Field151, field.position);
  }
}

constexpr std::int32_t kRentalBit = 1 << 6;

void readRental(clsInvoiceHistory& header, const std::string& record, TextField field) {
  header.Rental = (Unpack('B', record, field.position) & kRentalBit) != 0 ? kTrue : std::int16_t{0};
}
void writeRental(const clsInvoiceHistory& header, std::string& record, TextField field) {
  std::int32_t flags = Unpack('B', record, field.position) & ~kRentalBit;
  if (header.Rental != 0) flags |= kRentalBit;
  Pack('B', record, flags, field.position);
}

/// The terminal that writes the record, in the place of its own layout.
void writeTerminalNumber(const clsInvoiceHistory&, std::string& record, TextField field) {
  Pack('B', record, sharedEngine().Sys(4), field.position);
}

/// Only the last digit of a sale's type counts; with a sub-total above zero the types 3 and 4 are
/// the types 1 and 2.
void normaliseTransactionType(clsInvoiceHistory& header) {
  if (header.IsOrderLayout == 0) header.Transaction_Type %= 10;
  if (header.Sub_Total > Currency()) {
    if (header.Transaction_Type == 3) {
      header.Transaction_Type = 1;
    } else if (header.Transaction_Type == 4) {
      header.Transaction_Type = 2;
    }
  }
}

constexpr Field<clsInvoiceHistory> kSalesFields[] = {
    writeOnly(integer(kType, DG_MEMBER(Record_Status))),
    integer(3, 'D', DG_MEMBER(Account)),
    rule<clsInvoiceHistory>(141, 3, &readShipTo, &writeShipTo, DG_MEMBER(ShipTo)),
    integer(50, 'C', DG_MEMBER(Invoice_Time)),
    date(48, 'J', DG_MEMBER(Invoice_Date)),
    integer(54, 'B', DG_MEMBER(Terminal)),
    date(55, 'J', DG_MEMBER(DateDue)),
    integer(57, 'B', DG_MEMBER(UPSBoxes)),
    scaled(58, 'K', 100, DG_MEMBER(Deposit)),
    readOnly(integer(61, 'C', DG_MEMBER(Future_Ship))),
    date(61, 'J', DG_MEMBER(Future_Ship_Date)),
    bit(63, 'C', 0, DG_MEMBER(Voided)),
    bit(63, 'C', 1, DG_MEMBER(Flag63Bit1)),
    bit(63, 'C', 2, DG_MEMBER(Flag63Bit2)),
    bit(63, 'C', 3, DG_MEMBER(Flag63Bit3)),
    bit(63, 'C', 4, DG_MEMBER(Flag63Bit4)),
    bit(63, 'C', 5, DG_MEMBER(Flag63Bit5)),
    bit(63, 'C', 6, DG_MEMBER(Flag63Bit6)),
    bit(63, 'C', 7, DG_MEMBER(Flag63Bit7)),
    bit(63, 'C', 8, DG_MEMBER(Flag63Bit8)),
    bit(63, 'C', 9, DG_MEMBER(WarrantyUpdated)),
    integer(65, 'B', DG_MEMBER(Pay_type_1)),
    scaled(66, 'K', 100, DG_MEMBER(Pay_Amount_1)),
    integer(69, 'B', DG_MEMBER(Pay_type_2)),
    scaled(70, 'K', 100, DG_MEMBER(Pay_Amount_2)),
    integer(73, 'B', DG_MEMBER(Pay_type_3)),
    scaled(74, 'K', 100, DG_MEMBER(Pay_Amount_3)),
    packedText(86, 20, DG_MEMBER(Attention_of)),
    integer(106, 'L', DG_MEMBER(Invoice_Number)),
    integer(115, 'B', DG_MEMBER(Number_of_Pages)),
    bit(116, 'B', 1, DG_MEMBER(Back_Orders)),
    bit(116, 'B', 2, DG_MEMBER(Drop_Ship)),
    bit(116, 'B', 4, DG_MEMBER(Dated)),
    bit(116, 'B', 5, DG_MEMBER(Flag116Bit5)),
    packedText(117, 6, DG_MEMBER(Purchase_Order_No)),
    rule<clsInvoiceHistory>(123, 1, &readSaleFlag, nullptr, DG_MEMBER(SaleFlag)),
    scaled(158, 'K', 100, DG_MEMBER(Down_Payment)),
    rule<clsInvoiceHistory>(151, 4, &readField151, &writeField151, DG_MEMBER(Field151)),
    member(DG_MEMBER(Field151Long)),
    integer(156, 'B', DG_MEMBER(Terms_Code)),
};

constexpr Field<clsInvoiceHistory> kOrderFields[] = {
    integer(3, 'L', DG_MEMBER(Account)),
    integer(7, 'D', DG_MEMBER(ShipTo)),
    wholeCurrency(10, 'C', DG_MEMBER(ReplacementEstimate)),
    scaled(14, 'D', 10, DG_MEMBER(Meter)),
    date(17, 'J', DG_MEMBER(ScheduleDate)),
    date(19, 'J', DG_MEMBER(PostCardDate)),
    date(21, 'J', DG_ELEMENT(CallDates, 0)),
    date(23, 'J', DG_ELEMENT(CallDates, 1)),
    date(25, 'J', DG_ELEMENT(CallDates, 2)),
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
    packedText(87, 6, DG_MEMBER(Purchase_Order_No)),
    date(93, 'J', DG_MEMBER(DateCompleted)),
    date(95, 'J', DG_MEMBER(DateCheckedIn)),
    rawText(99, 1, DG_MEMBER(Status)),
    integer(100, 'B', DG_MEMBER(Delivery_Code)),
    integer(101, 'C', DG_MEMBER(JobNumber)),
    integer(103, 'C', DG_MEMBER(TimeIn)),
    packedText(105, 8, DG_MEMBER(PhoneNumber2)),
    integer(115, 'B', DG_MEMBER(Page)),
    rule<clsInvoiceHistory>(116, 1, &readRental, &writeRental, DG_MEMBER(Rental)),
    integer(117, 'C', DG_ELEMENT(WarrVend, 0)),
    integer(97, 'C', DG_ELEMENT(WarrVend, 1)),
    rawText(119, 1, DG_MEMBER(Warranty)),
    integer(120, 'B', DG_ELEMENT(CallStatus, 0)),
    integer(121, 'B', DG_ELEMENT(CallStatus, 1)),
    integer(122, 'B', DG_ELEMENT(CallStatus, 2)),
    step<&clearSaleFlag>(),
    integer(151, 'C', DG_MEMBER(Field151)),
    integer(156, 'B', DG_MEMBER(Terms_Code)),
    integer(157, 'B', DG_MEMBER(Terminal)),
};

constexpr Field<clsInvoiceHistory> kCommonFields[] = {
    readOnly(integer(1, 'J', DG_MEMBER(Record_Status))),
    integer(12, 'C', DG_MEMBER(AlternateTaxCode)),
    integer(113, 'B', DG_MEMBER(COUNTERMAN_Number)),
    integer(114, 'B', DG_MEMBER(Salesman_Number)),
    integer(123, 'B', DG_MEMBER(Transaction_Type)),
    integer(124, 'B', DG_MEMBER(Delivery_Code)),
    scaled(125, 'L', 100, DG_MEMBER(Sub_Total)),
    step<&normaliseTransactionType>(),
    integer(129, 'J', DG_MEMBER(Disc_Percentage)),
    scaled(131, 'L', 100, DG_MEMBER(Discount_Amount)),
    integer(135, 'C', DG_MEMBER(Tax_Rate)),
    scaled(137, 'L', 100, DG_MEMBER(Tax_Amount)),
    integer(145, 'B', DG_MEMBER(Department)),
    rawText(147, 1, DG_MEMBER(Sales_Code)),
    rawText(148, 1, DG_MEMBER(Tax_Code)),
    integer(149, 'B', DG_MEMBER(Tax_Rate_Code)),
    integer(157, 'B', DG_MEMBER(Field157)),
};

// Written last, over what the layouts and the common fields have put there.
constexpr Field<clsInvoiceHistory> kSalesTerminal[] = {
    rule<clsInvoiceHistory>(54, 1, nullptr, &writeTerminalNumber),
};
constexpr Field<clsInvoiceHistory> kOrderTerminal[] = {
    rule<clsInvoiceHistory>(157, 1, nullptr, &writeTerminalNumber),
};

constexpr Field<clsInvoiceHistory> kFlagMembers[] = {
    member(DG_MEMBER(IsOrderLayout)),
};

std::span<const Field<clsInvoiceHistory>> terminalOf(Layout layout) {
  switch (layout) {
    case Layout::kSales:
      return kSalesTerminal;
    case Layout::kOrder:
      return kOrderTerminal;
    case Layout::kNone:
      break;
  }
  return {};
}

std::span<const Field<clsInvoiceHistory>> fieldsOf(Layout layout) {
  switch (layout) {
    case Layout::kSales:
      return kSalesFields;
    case Layout::kOrder:
      return kOrderFields;
    case Layout::kNone:
      break;
  }
  return {};
}

}  // namespace

void clsInvoiceHistory::Unpack(const std::string& record) {
  // A record too short for its type has none of the layouts.
  const std::int32_t type = tryUnpack(kType.opcode, record, kType.position).value_or(0);
  const Layout layout = layoutOf(type);
  if (layout == Layout::kOrder) IsOrderLayout = kTrue;
  if (layout == Layout::kSales) IsOrderLayout = 0;
  unpackFields<clsInvoiceHistory>(fieldsOf(layout), *this, record);
  unpackFields<clsInvoiceHistory>(kCommonFields, *this, record);
}

void clsInvoiceHistory::Pack(std::string& record) const {
  const Layout layout = layoutOf(tryUnpack(kType.opcode, record, kType.position).value_or(0));
  packFields<clsInvoiceHistory>(fieldsOf(layout), *this, record);
  packFields<clsInvoiceHistory>(kCommonFields, *this, record);
  packFields<clsInvoiceHistory>(terminalOf(layout), *this, record);
}

std::vector<MemberValue> clsInvoiceHistory::members() const {
  std::vector<MemberValue> result;
  appendMembers<clsInvoiceHistory>(kCommonFields, *this, result);
  appendMembers<clsInvoiceHistory>(kSalesFields, *this, result);
  appendMembers<clsInvoiceHistory>(kOrderFields, *this, result);
  appendMembers<clsInvoiceHistory>(kFlagMembers, *this, result);
  return result;
}

std::vector<FieldPlace> clsInvoiceHistory::places() const {
  std::vector<FieldPlace> result;
  appendPlaces<clsInvoiceHistory>(kSalesFields, "sale", result);
  appendPlaces<clsInvoiceHistory>(kSalesTerminal, "sale", result);
  appendPlaces<clsInvoiceHistory>(kOrderFields, "order", result);
  appendPlaces<clsInvoiceHistory>(kOrderTerminal, "order", result);
  appendPlaces<clsInvoiceHistory>(kCommonFields, "all", result);
  return result;
}

}  // namespace dg
