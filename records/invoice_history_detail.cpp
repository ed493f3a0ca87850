#include "records/invoice_history_detail.h"

#include "engine/text_utilities.h"
#include "platform/values/convert.h"
#include "records/record_table.h"

namespace dg {

namespace {

using Self = clsInvoiceHistoryDetail;

constexpr const char* kRemark = "REM";
/// In front of the dash mask.
constexpr int kPartCharacters = 18;

void readSerialLine(clsInvoiceHistoryDetail& line, const std::string& record, TextField field) {
  line.snLine = CLng(std::string_view(unpackText(bytesOf(field, record))));
}
void writeSerialLine(const clsInvoiceHistoryDetail& line, std::string& record, TextField field) {
  putTextField(record, field.position, field.width, packText(std::to_string(line.snLine)), '\0');
}

constexpr Field<clsInvoiceHistoryDetail> kHeadFields[] = {
    integer(3, 'L', DG_MEMBER(DetailField3)),
    integer(7, 'C', DG_MEMBER(DetailField7)),
    packedText(9, 2, DG_MEMBER(LineType)),
};

constexpr Field<clsInvoiceHistoryDetail> kTextFields[] = {
    maskHead<clsInvoiceHistoryDetail>(kSlashHead),
    packedText(11, 12, DG_MEMBER(Part_Number)),
    // Stays in force afterwards: for the texts from here on, and for every later decode.
    maskHead<clsInvoiceHistoryDetail>(kDashHead),
    readOnly(dashedText(11, 14, DG_MEMBER(Part_w_Dash), kPartCharacters)),
    packedText(25, 14, DG_MEMBER(Description)),
    packedText(11, 24, DG_MEMBER(Comment)),
};

constexpr Field<clsInvoiceHistoryDetail> kPartFields[] = {
    writeOnly(dashedText(11, 14, DG_MEMBER(Part_w_Dash), kPartCharacters)),
    packedText(25, 14, DG_MEMBER(Description)),
};

constexpr Field<clsInvoiceHistoryDetail> kRemarkFields[] = {
    packedText(11, 24, DG_MEMBER(Comment)),
};

constexpr Field<clsInvoiceHistoryDetail> kSerialFields[] = {
    rule<clsInvoiceHistoryDetail>(35, 2, &readSerialLine, &writeSerialLine, DG_MEMBER(snLine)),
    packedText(37, 12, DG_MEMBER(snPartNumber)),
    integer(49, 'J', DG_MEMBER(snQtyOrdered)),
    integer(51, 'B', DG_MEMBER(snFactory_Warranty)),
};

constexpr Field<clsInvoiceHistoryDetail> kBackOrderFields[] = {
    integer(35, 'C', DG_MEMBER(boRecNumber)),
    date(37, 'J', DG_MEMBER(boDate)),
};

constexpr Field<clsInvoiceHistoryDetail> kUnitFields[] = {
    scaled(48, 'L', 100, DG_MEMBER(UnitNet)),
};

constexpr Field<clsInvoiceHistoryDetail> kEveryLineFields[] = {
    wholeCurrency(39, 'J', DG_MEMBER(Quantity)),
    scaled(41, 'D', 100, DG_MEMBER(Net_Each)),
    scaled(44, 'D', 100, DG_MEMBER(Cost_Each)),
    wholeCurrency(47, 'J', DG_MEMBER(Back_Ordered_Qty)),
    rawText(49, 1, DG_MEMBER(Commodity)),
    integer(50, 'B', DG_MEMBER(Mechanic_No)),
    bit(51, 'C', 15, DG_MEMBER(Flag51Bit15)),
    bit(51, 'C', 14, DG_MEMBER(Flag51Bit14)),
    bit(51, 'C', 13, DG_MEMBER(Flag51Bit13)),
    bit(51, 'C', 12, DG_MEMBER(Flag51Bit12)),
    bit(51, 'C', 11, DG_MEMBER(Flag51Bit11)),
    bit(51, 'C', 10, DG_MEMBER(Flag51Bit10)),
    bit(51, 'C', 9, DG_MEMBER(Flag51Bit9)),
    bit(51, 'C', 8, DG_MEMBER(Flag51Bit8)),
    bit(51, 'C', 7, DG_MEMBER(Flag51Bit7)),
    bit(51, 'C', 6, DG_MEMBER(Flag51Bit6)),
    bit(51, 'C', 5, DG_MEMBER(Flag51Bit5)),
    bit(51, 'C', 4, DG_MEMBER(Flag51Bit4)),
    bit(51, 'C', 3, DG_MEMBER(Flag51Bit3)),
    bit(51, 'C', 2, DG_MEMBER(Flag51Bit2)),
    bit(51, 'C', 1, DG_MEMBER(Flag51Bit1)),
    bit(51, 'C', 0, DG_MEMBER(Flag51Bit0)),
};

/// What a remark holds beside its text goes by how the text begins.
struct RemarkKind {
  std::string_view beginning;
  std::span<const Field<clsInvoiceHistoryDetail>> fields;
};
constexpr RemarkKind kRemarkKinds[] = {
    {"SN-", kSerialFields},
    {"B.O. INV", kBackOrderFields},
    {"...UNIT NUMBER...", kUnitFields},
};

std::span<const Field<clsInvoiceHistoryDetail>> remarkFields(std::string_view comment) {
  for (const RemarkKind& kind : kRemarkKinds) {
    if (comment.starts_with(kind.beginning)) return kind.fields;
  }
  return {};
}

}  // namespace

void clsInvoiceHistoryDetail::Unpack(const std::string& record) {
  snLine = 0;
  snPartNumber.clear();
  snQtyOrdered = 0;
  snFactory_Warranty = 0;
  boRecNumber = 0;
  boDate = kDayZero;
  unpackFields<Self>(kHeadFields, *this, record);
  unpackFields<Self>(kTextFields, *this, record);
  if (LineType == kRemark) {
    Part_Number.clear();
    Part_w_Dash.clear();
    Description = Comment;
    Quantity = Net_Each = Cost_Each = Back_Ordered_Qty = Currency();
    unpackFields<Self>(remarkFields(Comment), *this, record);
  }
  // For a remark these positions hold text, and the zeros of above do not stay.
  unpackFields<Self>(kEveryLineFields, *this, record);
}

void clsInvoiceHistoryDetail::Pack(std::string& record) const {
  packFields<Self>(kHeadFields, *this, record);
  setMaskHead(kDashHead);
  if (LineType == kRemark) {
    packFields<Self>(kEveryLineFields, *this, record);
    packFields<Self>(kRemarkFields, *this, record);
    packFields<Self>(remarkFields(Comment), *this, record);
  } else {
    packFields<Self>(kPartFields, *this, record);
    packFields<Self>(kEveryLineFields, *this, record);
  }
}

std::vector<MemberValue> clsInvoiceHistoryDetail::members() const {
  std::vector<MemberValue> result;
  appendMembers<Self>(kHeadFields, *this, result);
  appendMembers<Self>(kTextFields, *this, result);
  appendMembers<Self>(kSerialFields, *this, result);
  appendMembers<Self>(kBackOrderFields, *this, result);
  appendMembers<Self>(kUnitFields, *this, result);
  appendMembers<Self>(kEveryLineFields, *this, result);
  return result;
}

std::vector<FieldPlace> clsInvoiceHistoryDetail::places() const {
  std::vector<FieldPlace> result;
  appendPlaces<Self>(kHeadFields, "all", result);
  appendPlaces<Self>(kTextFields, "all", result);
  appendPlaces<Self>(kEveryLineFields, "all", result);
  for (const RemarkKind& kind : kRemarkKinds)
    appendPlaces<Self>(kind.fields, kind.beginning, result);
  return result;
}

}  // namespace dg
