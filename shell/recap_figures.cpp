#include "shell/recap_figures.h"

#include <algorithm>
#include <iterator>

#include "platform/values/convert.h"
#include "shell/trap.h"

namespace dg {

namespace {

using enum Figure;
using enum RecapBlock;
using enum FigureKind;
using enum FigureSpan;

// clang-format off
constexpr RecapFigure kFigures[] = {
    {kReceivables,       "Accounts Receivable",  "lblRecap(0)",  "Label1(1)",  "", kAssets, "frmAR"},
    {kWarranties,        "Billed Warranties",    "lblRecap(6)",  "Label1(7)",  "", kAssets, "frmWarranty"},  // or "frmWarSeg"
    {kLedgerAssets,      "G/L Asset Total",      "lblRecap(4)",  "Label1(5)",  "", kAssets, "frmGLA"},
    {kPartsInventory,    "Inventory - Parts",    "lblRecap(1)",  "Label1(2)",  "", kAssets, "frmInv"},
    {kFloorPlan,         "Floor Plan",           "lblRecap(11)", "Label1(12)", "", kAssets, "frmFp"},
    {kUnits,             "Units",                "lblRecap(12)", "Label1(13)", "", kAssets, "frmUnits"},
    {kOpenSales,         "Open Sales Orders",    "lblRecap(2)",  "Label1(3)",  "", kAssets, "frmOpenSales"},
    {kShopWork,          "Open Shop Work",       "lblRecap(3)",  "Label1(4)",  "", kAssets, "frmShop"},
    {kReturns,           "Pending Returns",      "lblRecap(5)",  "Label1(6)",  "", kAssets, "frmReturn"},
    {kTodaysSales,       "Todays Sales",         "lblRecap(7)",  "Label1(8)",  "", kAssets, "frmSales", kMoney, kToday, true},
    {kTodaysCash,        "Todays Cash",          "lblRecap(10)", "Label1(11)", "", kAssets, "frmSales", kMoney, kToday, true},
    {kPurchaseOrders,    "Open Purchase Orders", "lblRecap(8)",  "Label1(9)",  "", kLiabilities, "frmPo"},
    {kLedgerLiabilities, "G/L Liability Total",  "lblRecap(9)",  "Label1(10)", "", kLiabilities, "frmGLL"},
    {kMonthSales,    "MTD Sales", "lblRecap(13)", "Label1(17)", "Label1(14)", kProfit, "frmProfit", kMoney, kMonth, true},
    {kMonthCost,     "MTD Cost",  "lblRecap(14)", "Label1(17)", "Label1(15)", kProfit, "frmProfit", kMoney, kMonth},
    {kMonthRate,     "MTD GPR",   "lblRecap(15)", "Label1(17)", "Label1(16)", kProfit, "frmProfit", kRate, kMonth, true},
    {kYearSales,     "YTD Sales", "lblRecap(16)", "Label1(18)", "Label1(14)", kProfit, "frmProfit", kMoney, kYear, true},
    {kYearCost,      "YTD Cost",  "lblRecap(17)", "Label1(18)", "Label1(15)", kProfit, "frmProfit", kMoney, kYear},
    {kYearRate,      "YTD GPR",   "lblRecap(18)", "Label1(18)", "Label1(16)", kProfit, "frmProfit", kRate, kYear, true},
    {kLastYearSales, "LYR Sales", "lblRecap(19)", "Label1(19)", "Label1(14)", kProfit, "frmProfit", kMoney, kLastYear},
    {kLastYearCost,  "LYR Cost",  "lblRecap(20)", "Label1(19)", "Label1(15)", kProfit, "frmProfit", kMoney, kLastYear},
    {kLastYearRate,  "LYR GPR",   "lblRecap(21)", "Label1(19)", "Label1(16)", kProfit, "frmProfit", kRate, kLastYear},
};
// clang-format on

constexpr RecapHeading kHeadings[] = {
    {"Label2(0)", "Assets"},
    {"Label2(1)", "Liabilities"},
    {"Label2(2)", "Sales && Profit"},
};

/// Each figure stands once in the table, and the blocks stand one after the other.
constexpr bool isWhole(std::span<const RecapFigure> figures) {
  for (int index = 0; index < kRecapLabels; ++index) {
    const auto same = [index](const RecapFigure& row) { return row.index() == index; };
    if (std::ranges::count_if(figures, same) != 1) return false;
  }
  return std::ranges::is_sorted(figures, {}, &RecapFigure::block);
}
static_assert(std::size(kFigures) == kRecapLabels && isWhole(kFigures));

}  // namespace

std::span<const RecapFigure> recapFigures() {
  return kFigures;
}

std::span<const RecapFigure> recapFigures(RecapBlock block) {
  // Block by block, as isWhole has it.
  const auto first = std::ranges::find(kFigures, block, &RecapFigure::block);
  const auto count = std::ranges::count(kFigures, block, &RecapFigure::block);
  return std::span(kFigures).subspan(static_cast<std::size_t>(first - std::begin(kFigures)),
                                     static_cast<std::size_t>(count));
}

const RecapFigure& recapFigure(Figure figure) {
  return *std::ranges::find(kFigures, figure, &RecapFigure::figure);
}

double profitRate(Currency sales, Currency cost) {
  return sales == Currency() ? 0 : (sales - cost).toDouble() / sales.toDouble();
}

const RecapHeading& recapHeading(RecapBlock block) {
  return kHeadings[static_cast<std::size_t>(block)];
}

const Label* recapLabel(const Form* recap, Figure figure) {
  if (recap == nullptr) return nullptr;
  return dynamic_cast<const Label*>(recap->find(recapFigure(figure).label));
}

bool isFigureInError(const Form* recap, Figure figure) {
  const Label* label = recapLabel(recap, figure);
  return label != nullptr && label->inError();
}

std::optional<Currency> figureValue(const Form* recap, Figure figure) {
  const Label* label = recapLabel(recap, figure);
  if (label == nullptr || label->inError()) return std::nullopt;
  // Two decimals of dollars or of per cent are what the label shows, so that nothing is lost here.
  std::optional<Currency> value;
  suppressErrors([&] { value = Currency::fromDouble(CDbl(label->caption())); });
  return value;
}

}  // namespace dg
