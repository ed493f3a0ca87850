#include "views/financial/purchase_order_detail.h"

#include <string>

#include "engine/codec.h"
#include "platform/text.h"
#include "platform/values/format.h"
#include "records/file_names.h"
#include "records/index_walk.h"
#include "records/parts.h"
#include "records/read.h"

namespace dg {

namespace {

constexpr std::string_view kAmountMask = "#####.00";

constexpr std::string_view kDetailCaptions[frmPODetail::kDetails] = {
    "Vendor", "Date", "Total $", "# of Items", "Drop Ship Invoice"};

constexpr ColumnSpec kColumns[] = {
    {.name = "Line", .kind = ColumnKind::kNumber},
    {.name = "Part #"},
    {.name = "Description"},
    {.name = "Ordered", .kind = ColumnKind::kNumber},
    {.name = "Cost", .kind = ColumnKind::kMoney},
    {.name = "Extended", .kind = ColumnKind::kMoney},
};

constexpr Place kSheet[] = {
    {.control = "Label1(0)", .row = 0, .column = 0},
    {.control = "lblDetail(0)", .row = 0, .column = 1},
    {.control = "Label1(1)", .row = 1, .column = 0},
    {.control = "lblDetail(1)", .row = 1, .column = 1},
    {.control = "Label1(2)", .row = 2, .column = 0},
    {.control = "lblDetail(2)", .row = 2, .column = 1},
    {.control = "Label1(3)", .row = 3, .column = 0},
    {.control = "lblDetail(3)", .row = 3, .column = 1},
    {.control = "Label1(4)", .row = 4, .column = 0},
    {.control = "lblDetail(4)", .row = 4, .column = 1},
    {.control = "Frame3", .row = 0, .column = 2, .rowSpan = 5},
    {.control = "lblComments", .row = 0, .column = 0, .frame = "Frame3"},
    {.control = "grdPod", .row = 5, .column = 0, .columnSpan = 3},
};

/// The columns of the list that the window repeats.
constexpr int kListColumns[] = {2, 3, 4};
constexpr std::size_t kItemCount = 3;

/// What a line needs beside its own record. The members live through all lines: where a statement
/// fails and its errors are ignored, the value of the line before stands.
struct LineState {
  std::string record;
  std::int32_t kind = 0;
  std::int32_t cost = 0;
  std::int32_t part = 0;
  std::string partRecord;
  std::string description;
  std::int32_t count = 0;
};

void findPart(LineState& line, const StatementRunner& run) {
  run([&] {
    line.part =
        findExact(files::kPartIndex, std::string(bytesOf(vendor_document::kPartKey, line.record)));
  });
  if (line.part == 0) {
    line.description = "Part Not Found";
    return;
  }
  run([&] { line.partRecord = readRecord(files::kParts, line.part); });
  run([&] { line.description = unpackText(bytesOf(part_record::kDescription, line.partRecord)); });
  if (line.cost == 0) run([&] { line.cost = Unpack(part_record::kCost, line.partRecord); });
}

void addLine(Grid& grid, LineState& line, const StatementRunner& run) {
  findPart(line, run);
  grid.AddNew();
  run([&] { grid.set("Line", Unpack(vendor_document::kProductLine, line.record)); });
  run([&] { grid.set("Part #", unpackText(bytesOf(vendor_document::kPart, line.record))); });
  run([&] { grid.set("Description", line.description); });
  std::int32_t quantity = 0;
  run([&] { quantity = Unpack(vendor_document::kQuantity, line.record); });
  grid.set("Ordered", quantity);
  const double cost = line.cost / 100.0;
  grid.set("Cost", Format(cost, kAmountMask));
  grid.set("Extended", Format(cost * quantity, kAmountMask));
  grid.Update();
  ++line.count;
}

}  // namespace

frmPODetail::frmPODetail()
    : Form("frmPODetail", "Purchase Order Detail"),
      Label1(addLabels<kDetails>("Label1", LabelRole::kCaption)),
      lblDetail(addLabels<kDetails>("lblDetail")),
      Frame3(add<Frame>("Frame3", "PO Comments")),
      lblComments(add<Label>("lblComments")),
      grdPod(add<Grid>("grdPod", kColumns)) {
  for (std::size_t i = 0; i < kDetails; ++i) {
    Label1[i]->setCaption(std::string(kDetailCaptions[i]));
  }
  Label1[kDropShip]->setVisible(false);
  lblDetail[kDropShip]->setVisible(false);
  setSheet(kSheet);
}

void fillDocumentDetail(frmPODetail& detail, const VendorDocument& document, const Grid& list,
                        int bookmark, const StatementRunner& run,
                        const std::function<void()>& afterLine) {
  LineState line;
  std::int32_t dropShip = 0;
  run([&] { line.record = document.record(VendorDocument::kHeaderRecord); });
  run([&] { dropShip = VendorDocumentHeader::decode(line.record).dropShipInvoice; });
  run([&] { line.record = document.record(VendorDocument::kTotalRecord); });
  for (std::size_t i = 0; i < std::size(kListColumns); ++i) {
    run([&] { detail.lblDetail[i]->setCaption(list.CellValue(kListColumns[i], bookmark)); });
  }
  if (dropShip != 0) {
    detail.Label1[frmPODetail::kDropShip]->setVisible(true);
    detail.lblDetail[frmPODetail::kDropShip]->setVisible(true);
    detail.lblDetail[frmPODetail::kDropShip]->setCaption(std::to_string(dropShip));
  }
  for (std::int32_t number = VendorDocument::kFirstComment; number <= VendorDocument::kLastComment;
       ++number) {
    run([&] { line.record = document.record(number); });
    const std::string comment = unpackText(bytesOf(vendor_document::kComment, line.record));
    detail.lblComments.setCaption(detail.lblComments.caption() + std::string(shown(comment)) +
                                  "\n");
  }
  for (std::int32_t number = VendorDocument::kFirstLine; number <= document.lastRecord();
       ++number) {
    run([&] { line.record = document.record(number); });
    run([&] { line.kind = Unpack(vendor_document::kLineKind, line.record); });
    run([&] { line.cost = Unpack(vendor_document::kUnitCost, line.record); });
    if (line.kind == vendor_document::kOrderedPart) addLine(detail.grdPod, line, run);
    afterLine();
  }
  detail.grdPod.MoveFirst();
  detail.lblDetail[kItemCount]->setCaption(std::to_string(line.count));
}

}  // namespace dg
