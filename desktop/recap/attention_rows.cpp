#include "desktop/recap/attention_rows.h"

#include <algorithm>

#include "platform/message_box.h"
#include "platform/values/convert.h"
#include "platform/values/format.h"
#include "shell/main_window.h"
#include "shell/sort_grid.h"
#include "views/operational/units.h"

namespace dg {

namespace {

constexpr std::string_view kMoneyMask = "$###,###,##0.00";

constexpr ColumnSpec kColumns[] = {
    {.name = "What", .button = true},
    {.name = "Customer or Vendor"},
    {.name = "Date", .kind = ColumnKind::kDate},
    {.name = "Days", .kind = ColumnKind::kNumber},
    {.name = "Amount", .kind = ColumnKind::kMoney},
    {.name = "item", .kind = ColumnKind::kNumber, .hidden = true},
};
constexpr ColumnSpec kPlainColumns[] = {
    {.name = "What"},
    {.name = "Customer or Vendor"},
    {.name = "Date", .kind = ColumnKind::kDate},
    {.name = "Days", .kind = ColumnKind::kNumber},
    {.name = "Amount", .kind = ColumnKind::kMoney},
    {.name = "item", .kind = ColumnKind::kNumber, .hidden = true},
};
// "Days" is the date's own order, and can be compared where a row has none.
constexpr HeadSort kHeadSorts[] = {
    {"What", true}, {"Customer or Vendor", true}, {"Days"}, {"Days"}, {"Amount"},
};

constexpr ColumnSpec kAgeColumns[] = {
    {.name = "Family"},
    {.name = "0-30", .kind = ColumnKind::kMoney},
    {.name = "31-60", .kind = ColumnKind::kMoney},
    {.name = "61-90", .kind = ColumnKind::kMoney},
    {.name = "over 90", .kind = ColumnKind::kMoney},
    {.name = "undated", .kind = ColumnKind::kMoney},
    {.name = "Total", .kind = ColumnKind::kMoney},
    {.name = "Items", .kind = ColumnKind::kNumber},
};

bool hasCell(const Grid& grid, int row, const OpenRow::Cell& cell) {
  return cell.column.empty() || grid.CellValue(cell.column, row) == cell.text;
}

}  // namespace

bool openDocument(const OpenRow& row, const frmTRVN& main) {
  if (row.grid == "grdUnitDtl") {
    // Two windows lie between the view and the unit: its own is opened straight away.
    dispatchEvent([&row] { showUnit(row.first.text); });
    return true;
  }
  View* view = main.view(row.view);
  auto* grid = view == nullptr ? nullptr : dynamic_cast<Grid*>(view->find(row.grid));
  if (grid == nullptr) return false;
  for (int at = 0; at < grid->Rows(); ++at) {
    if (!hasCell(*grid, at, row.first) || !hasCell(*grid, at, row.second)) continue;
    grid->rowClick(at);
    return true;
  }
  return false;
}

std::unique_ptr<Grid> attentionGrid(const KindResult& result, const frmTRVN& main) {
  const KindEntry& entry = entryOf(result.kind);
  const bool opens = std::ranges::any_of(
      result.rows, [](const AttentionRow& row) { return !row.row.view.empty(); });
  auto grid = std::make_unique<Grid>(std::string(entry.name),
                                     opens ? std::span<const ColumnSpec>(kColumns) : kPlainColumns,
                                     std::string(entry.caption));
  grid->setRedraw(false);
  int item = 0;
  for (const AttentionRow& row : result.rows) {
    grid->AddNew();
    grid->set("What", row.what);
    grid->set("Customer or Vendor", row.who);
    grid->set("Date", row.date ? Variant(*row.date) : Variant(std::string()));
    grid->set("Days", row.days ? Variant(*row.days) : Variant(std::string()));
    grid->set("Amount", Format(row.amount, kMoneyMask));
    grid->set("item", item++);
    grid->Update();
  }
  grid->MoveFirst();
  grid->setRedraw(true);
  Grid* self = grid.get();
  grid->onHeadClick = [self](int column) { sortByHead(*self, column, kHeadSorts); };
  if (opens) {
    grid->onRowClick = [self, rows = result.rows, &main](int row) {
      const auto at = static_cast<std::size_t>(CLng(self->CellValue("item", row)));
      if (!openDocument(rows[at].row, main))
        MsgBox("No window shows " + rows[at].what +
               " any more. Refresh brings back what is there.");
    };
  }
  return grid;
}

std::unique_ptr<Grid> ageingGrid(const std::vector<Ageing>& ageing) {
  auto grid = std::make_unique<Grid>("ageing", kAgeColumns, "Age of what is open, in days");
  for (const Ageing& family : ageing) {
    grid->AddNew();
    grid->set("Family",
              std::string(openFamilies()[static_cast<std::size_t>(family.family)].caption));
    if (!family.error.empty()) {
      grid->set("Total", std::string("Data Error !"));
      continue;
    }
    for (std::size_t i = 0; i < kAgeBuckets.size(); ++i)
      grid->set(kAgeBuckets[i], Format(family.buckets[i].amount, kMoneyMask));
    grid->set("Total", Format(family.total, kMoneyMask));
    grid->set("Items", static_cast<std::int32_t>(family.count));
    grid->Update();
  }
  grid->MoveFirst();
  return grid;
}

}  // namespace dg
