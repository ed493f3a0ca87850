#include "records/open/floor_plan_entries.h"

#include "platform/text.h"
#include "records/customer_lookup.h"
#include "records/file_names.h"
#include "records/index_walk.h"
#include "records/open/open_work.h"
#include "records/open/own_lines.h"
#include "records/parts.h"
#include "records/read.h"

namespace dg {

namespace {

using VisitEntry = std::function<void(const clsFloorPlan& entry, const std::string& record)>;

/// The part cost of an entry's model, by the entry's own bytes as a key; 0 when there is none.
Currency GetPartCost(const std::string& entry) {
  const std::int32_t found =
      findExact(files::kPartIndex, std::string(bytesOf(floor_plan_record::kPartKey, entry)));
  if (found == 0) return Currency();
  return Currency::fromScaled(Unpack(part_record::kCost, readRecord(files::kParts, found)), 100);
}

Currency costOf(const clsFloorPlan& entry, const std::string& record) {
  return entry.Cost != Currency() ? entry.Cost : GetPartCost(record);
}

bool isOpen(const std::string& entry) {
  return Unpack(floor_plan_record::kDateSold, entry) == 0 &&
         Unpack(floor_plan_record::kCustomerInvoice, entry) == 0;
}

/// Visits all entries of a line: open ones as `open`, the others as `sold`.
void forEachEntry(std::int32_t line, const VisitEntry& open, const VisitEntry& sold) {
  clsFloorPlan entry;
  for (IndexWalk walk(files::kFloorPlanIndex, integerKey('C', line));
       !walk.atEnd() && walk.keyField('C', 1) == line; walk.next()) {
    const std::string record = readRecord(files::kFloorPlan, walk.record());
    entry.Unpack(record);
    (isOpen(record) ? open : sold)(entry, record);
  }
}

OpenWork workOf(std::int32_t line, const clsFloorPlan& entry, Currency cost, bool open) {
  const bool hasCustomer = !open && entry.Account != 0;
  OpenRow row;
  if (open) {
    row = {.view = "frmFp", .grid = "grdFp", .first = {"Line", std::to_string(line)}, .second = {}};
  }
  return {.what = std::string(shown(entry.Part_Number)) + " - " +
                  std::string(shown(entry.Serial_Number)),
          .who = hasCustomer ? customerName(entry.Account) : std::string(),
          .amount = cost,
          .date = entry.Date_Received,
          .due = entry.Date_Due,
          .sold = entry.Date_Sold,
          .paid = entry.Date_Paid,
          .isOpen = open,
          .row = std::move(row)};
}

}  // namespace

void forEachOpenEntry(std::int32_t line,
                      const std::function<void(const clsFloorPlan&, Currency cost)>& visit) {
  forEachEntry(
      line,
      [&visit](const clsFloorPlan& entry, const std::string& record) {
        visit(entry, costOf(entry, record));
      },
      [](const clsFloorPlan&, const std::string&) {});
}

void forEachFloorPlanLine(
    const std::function<void(std::int32_t line, const std::string& name, Currency cost)>& visit) {
  OpenWorkReport report(OpenFamily::kFloorPlan);
  forEachOwnLine([&](std::int32_t number, const clsLines& line) {
    Currency sum;
    forEachEntry(
        number,
        [&](const clsFloorPlan& entry, const std::string& record) {
          const Currency cost = costOf(entry, record);
          sum += cost;
          report.add([&] { return workOf(number, entry, cost, true); });
        },
        [&](const clsFloorPlan& entry, const std::string& record) {
          // What is sold costs the view nothing: only an observer pays for looking it up.
          report.add([&] { return workOf(number, entry, costOf(entry, record), false); });
        });
    visit(number, line.Line_Name, sum);
  });
  report.end();
}

}  // namespace dg
