#include "records/open/unsold_units.h"

#include "engine/business_basic.h"
#include "engine/walk_guard.h"
#include "platform/text.h"
#include "records/file_names.h"
#include "records/index_walk.h"
#include "records/open/open_work.h"
#include "records/open/own_lines.h"
#include "records/read.h"

namespace dg {

namespace {

constexpr std::string_view kUnitLine = "U";

Currency unitCost(const clsUnits& unit) {
  Currency cost;
  if (unit.SubLedgerChain == 0) return cost;
  const auto ledger = LogicalFileArgument(files::kUnitLedger).resolve();
  WalkGuard guard(*ledger);
  clsUnitsLedger entry;
  for (std::int32_t record = unit.SubLedgerChain; record != 0; record = entry.LedgerNext) {
    guard.step(record);
    entry.Unpack(readRecord(ledger, record));
    cost += entry.Amount;
  }
  return cost;
}

OpenWork workOf(const clsUnits& unit, Currency cost) {
  const std::string number(shown(unit.Unit_Number));
  return {
      .what = number,
      .who = {},
      .amount = cost,
      .date = unit.Date_Received_In,
      .row = {.view = "frmUnits", .grid = "grdUnitDtl", .first = {"Unit", number}, .second = {}}};
}

}  // namespace

void forEachUnsoldUnit(std::int32_t line,
                       const std::function<void(const clsUnits&, Currency cost)>& visit) {
  clsUnits unit;
  for (IndexWalk walk(files::kUnitsByLineIndex, integerKey('C', line));
       !walk.atEnd() && walk.keyField('C', 1) == line; walk.next()) {
    unit.Unpack(readRecord(files::kUnits, walk.record()));
    if (unit.Date_Sold == kEmptyDate) visit(unit, unitCost(unit));
  }
}

void forEachUnitLine(
    const std::function<void(std::int32_t line, const std::string& name, Currency cost)>& visit) {
  OpenWorkReport report(OpenFamily::kUnits);
  forEachOwnLine([&](std::int32_t, const clsLines& line) {
    if (line.Line_Type != kUnitLine) return;
    Currency total;
    forEachUnsoldUnit(line.Line, [&](const clsUnits& unit, Currency cost) {
      total += cost;
      report.add([&] { return workOf(unit, cost); });
    });
    visit(line.Line, line.Line_Name, total);
  });
  report.end();
}

}  // namespace dg
