// Every head of every grid, clicked over a whole example store.
#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <vector>

#include "shell/main.h"
#include "shell/sort_grid.h"
#include "tests/support/view_run.h"
#include "tools/sample/sample_store.h"
#include "views/view_catalogue.h"

namespace dg::test {
namespace {

/// A grid, and for each head the column whose cells decide: "~" before it where they are texts, ""
/// where the head has no sort or all cells count the same, as rates below 100 % do, "!" where a
/// cell is no number, "?" where example stores tell nothing. Some heads are out of step with their
/// grid.
struct SortedGrid {
  const char* window;
  const char* grid;
  std::vector<std::string> keys;
};
const SortedGrid kGrids[] = {
    {"frmInv",
     "grdInvest",
     {"Line", "~Alpha", "Merchandise", "Ytd", "Mtd", "Est. Turns", "Ord/I", "Shp/I", "Fill %/I",
      "Ord/D", "Shp/D", "Fill %/D", "Ord/P", "Shp/P", "Fill %/P"}},
    {"frmProfit",
     "grdProfit",
     {"Line", "~Alpha", "", "mtdsales", "mtdcost", "", "ytdsales", "ytdcost", "", "pyrsales",
      "pyrcost", ""}},
    {"frmSales", "grdSales", {"Man", "~Name", "Invoices", "Items", "mdse", "Labor", "Disc"}},
    {"frmSales", "grdCash", {"Man", "~Name", "Cash", "Refunds", "ROA", "Deposits", "Net"}},
    {"frmPo", "grdPO", {"~PO Number", "Vendor #", "~Vendor Name", "ndate", "Total", ""}},
    {"frmReturn", "grdReturn", {"~Return Number", "Vendor #", "~Vendor Name", "!", "Total"}},
    {"frmUnits", "grdUnits", {"Line", "~Name", "Total"}},
    {"frmFp", "grdFp", {"Line", "~Name", "Cost", "", ""}},
    {"frmFpdtl",
     "grdFpdtl",
     {"~Model", "?", "?", "?", "", "", "", "~Date In", "~Date Due", "?", "?", "?", "?", "Cost",
      ""}},
    {"frmShop",
     "grdShop",
     {"Job #", "~Status", "Shop Ref #", "Account", "~Name", "CM", "ndateIn", "?", "Sub-Total",
      "~Warranty", "~Brand", ""}},
    {"frmOpenSales",
     "grdTickets",
     {"?", "Ticket No.", "!", "Account", "~Name", "?", "?", "?", "Sub-Total", ""}},
    {"frmOpenSales", "grdSaved", {"?", "", "~Date", "Account", "?", "?", "?", "~PO Number"}},
    {"frmWarranty",
     "grdWarr",
     {"Shop Ref", "Invoice #", "Cust #", "~Name", "~Brand/Type", "ndate", "Distributor", "Parts",
      "Labor"}},
    {"frmWarSeg",
     "grdWarr",
     {"Shop Ref", "Invoice #", "Cust #", "~Name", "?", "?", "Distributor", "Parts", "Labor", "?",
      ""}},
};

/// A cell as the whole number that it sorts by, worked out without the program's conversions.
double wholeNumber(const std::string& cell) {
  std::string digits;
  for (const char c : cell) {
    if (c == '(') digits += '-';
    if (std::string_view("-.0123456789").find(c) != std::string_view::npos) digits += c;
  }
  const double value = std::stod(digits);
  return std::nearbyint(cell.ends_with('%') ? value / 100 : value);
}

template <class T>
bool isOrdered(const std::vector<T>& values, bool descending) {
  return descending ? std::is_sorted(values.rbegin(), values.rend())
                    : std::is_sorted(values.begin(), values.end());
}

bool isOrdered(const Cells& cells, bool asTexts, bool descending) {
  if (asTexts) return isOrdered(cells, descending);
  std::vector<double> numbers;
  std::ranges::transform(cells, std::back_inserter(numbers), wholeNumber);
  return isOrdered(numbers, descending);
}

Rows inOrder(Rows rows) {
  std::ranges::sort(rows);
  return rows;
}

/// Clicks a head twice and expects the rows by its key one way and the other. A column whose cells
/// are all equal is no test and fails.
void clickHead(Grid& grid, int head, std::string key, const std::vector<MessageBox>& messages) {
  SCOPED_TRACE(testing::Message() << grid.name() << " head " << head);
  const Rows before = grid.rows();
  const std::size_t told = messages.size();
  const bool sorts = !key.empty() && key != "!";
  const bool asTexts = key.starts_with('~');
  if (asTexts) key.erase(0, 1);
  gSortDirection = 0;
  for (const bool descending : {true, false}) {
    grid.headClick(head);
    if (!sorts) {
      EXPECT_EQ(grid.rows(), before);
      continue;
    }
    const Cells cells = column(grid, key);
    EXPECT_TRUE(isOrdered(cells, asTexts, descending)) << testing::PrintToString(cells);
    EXPECT_FALSE(isOrdered(cells, asTexts, !descending)) << "all equal";
    EXPECT_EQ(grid.Bookmark(), 0);
  }
  EXPECT_EQ(messages.size() - told, key == "!" ? 2U : 0U);
  EXPECT_EQ(inOrder(grid.rows()), inOrder(before)) << "rows were torn apart";
}

void clickHeads(const Form& window, const std::vector<MessageBox>& messages) {
  for (const auto& [name, grid, keys] : kGrids) {
    if (name != window.name()) continue;
    SCOPED_TRACE(name);
    for (std::size_t head = 0; head < keys.size(); ++head) {
      if (keys[head] == "?") continue;
      clickHead(window.get<Grid>(grid), static_cast<int>(head), keys[head], messages);
    }
  }
}

TEST(ViewSorting, EveryHeadSortsByItsTable) {
  for (const bool segments : {false, true}) {
    ProgramRun run;
    run.openStore(composeSampleStore({.seed = 9, .warrantySegments = segments}));
    run.onModal = [&run](Form& form) { clickHeads(form, run.messages); };
    const auto main = startProgram(viewCatalogue());
    for (const View* view : main->loadedViews())
      clickHeads(*view, run.messages);
    main->view("frmFp")->get<Grid>("grdFp").rowClick(0);
  }
}

}  // namespace
}  // namespace dg::test
