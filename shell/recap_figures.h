#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "forms/form.h"
#include "platform/values/currency.h"

namespace dg {

/// The figures of the recap; the value is the index of the label that shows it.
enum class Figure {
  kReceivables,
  kPartsInventory,
  kOpenSales,
  kShopWork,
  kLedgerAssets,
  kReturns,
  kWarranties,
  kTodaysSales,
  kPurchaseOrders,
  kLedgerLiabilities,
  kTodaysCash,
  kFloorPlan,
  kUnits,
  kMonthSales,
  kMonthCost,
  kMonthRate,
  kYearSales,
  kYearCost,
  kYearRate,
  kLastYearSales,
  kLastYearCost,
  kLastYearRate,
};

/// Number of figures, and of labels on the recap.
inline constexpr int kRecapLabels = 22;

enum class RecapBlock { kAssets, kLiabilities, kProfit };

/// What a figure's number is.
enum class FigureKind {
  kMoney,  ///< dollars
  kRate,   ///< a fraction, shown in per cent
};

/// The time that a figure covers.
enum class FigureSpan {
  kMoment,    ///< what stands open, or is there, when the files are read
  kToday,     ///< the day's takings so far
  kMonth,     ///< the month so far
  kYear,      ///< the year so far
  kLastYear,  ///< a whole year that is over
};

/// All that there is to know about a figure of the recap.
struct RecapFigure {
  Figure figure;
  std::string_view name;     ///< what reports, charts and the history call it
  std::string_view label;    ///< the label that shows it
  std::string_view caption;  ///< the label beside it
  std::string_view head;     ///< the label above its column; empty in the lists
  RecapBlock block;
  std::string_view view;  ///< the view that works it out
  FigureKind kind = FigureKind::kMoney;
  FigureSpan span = FigureSpan::kMoment;
  /// Whether more of it is plainly good and less plainly bad. Of most it depends: receivables are
  /// owed, stock is paid for, costs grow with sales.
  bool moreIsBetter = false;

  constexpr int index() const { return static_cast<int>(figure); }
};

/// All figures, block by block, in each from the top of the sheet (of sales and profit row by row).
std::span<const RecapFigure> recapFigures();
/// Those of a block.
std::span<const RecapFigure> recapFigures(RecapBlock block);
const RecapFigure& recapFigure(Figure figure);

/// Columns of the block of sales and profit: sales, cost and rate.
inline constexpr int kProfitColumns = 3;

/// How the recap shows a rate.
inline constexpr std::string_view kRecapRateMask = "00.00%";
/// Gross profit as a fraction of the sales; 0 without sales.
double profitRate(Currency sales, Currency cost);

/// The heading of a block: name of the label, and its text.
struct RecapHeading {
  std::string_view label;
  std::string_view text;
};
const RecapHeading& recapHeading(RecapBlock block);

/// The label of a figure on a recap; null where there is no recap.
const Label* recapLabel(const Form* recap, Figure figure);
/// Whether the view behind a figure failed.
bool isFigureInError(const Form* recap, Figure figure);
/// What a figure shows, as a number: dollars, of a rate the fraction. Nothing where its view failed
/// or found no data, where none wrote it, and without a recap.
std::optional<Currency> figureValue(const Form* recap, Figure figure);

}  // namespace dg
