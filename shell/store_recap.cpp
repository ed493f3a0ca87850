#include "shell/store_recap.h"

#include <algorithm>

#include "platform/text.h"
#include "platform/unopened_files.h"
#include "shell/trap.h"

namespace dg {

namespace {

struct RateParts {
  Figure sales, cost, rate;
};
constexpr RateParts kRates[] = {
    {Figure::kMonthSales, Figure::kMonthCost, Figure::kMonthRate},
    {Figure::kYearSales, Figure::kYearCost, Figure::kYearRate},
    {Figure::kLastYearSales, Figure::kLastYearCost, Figure::kLastYearRate},
};

constexpr std::size_t place(Figure figure) {
  return static_cast<std::size_t>(figure);
}

/// Of the two views of billed warranties only one is loaded.
bool isIncomplete(const frmTRVN& main, const RecapFigure& figure) {
  const View* view = main.view(figure.view);
  if (view == nullptr && figure.figure == Figure::kWarranties) view = main.view("frmWarSeg");
  return view != nullptr && view->incomplete();
}

std::optional<Currency> countedAmount(const StoreRecap& store, Figure figure) {
  const StoreFigure& own = store.figures[place(figure)];
  const bool counts = store.error.empty() && store.leftOut.empty() && !own.incomplete;
  return counts ? own.amount : std::nullopt;
}

GroupFigure sumOf(std::span<const StoreRecap> stores, Figure figure) {
  GroupFigure sum;
  Currency amount;
  bool inBounds = true;
  for (const StoreRecap& store : stores) {
    const auto own = countedAmount(store, figure);
    if (!own) continue;
    ++sum.stores;
    try {
      amount += *own;
    } catch (const RunTimeError&) {
      inBounds = false;
    }
  }
  if (sum.stores > 0 && inBounds) sum.amount = amount;
  return sum;
}

GroupFigure rateOf(std::span<const StoreRecap> stores, const RateParts& parts) {
  GroupFigure rate;
  Currency sales;
  Currency cost;
  bool inBounds = true;
  for (const StoreRecap& store : stores) {
    const auto ownSales = countedAmount(store, parts.sales);
    const auto ownCost = countedAmount(store, parts.cost);
    if (!ownSales || !ownCost) continue;
    ++rate.stores;
    try {
      sales += *ownSales;
      cost += *ownCost;
    } catch (const RunTimeError&) {
      inBounds = false;
    }
  }
  if (rate.stores == 0 || !inBounds) return rate;
  suppressErrors([&] { rate.amount = Currency::fromDouble(profitRate(sales, cost)); });
  return rate;
}

}  // namespace

void takeRecap(StoreRecap& store, const frmTRVN& main) {
  store.name = trim(shown(main.lblStoreName.caption()));
  store.leftOut = unopenedWarning();
  const View* recap = main.view("frmRecap");
  for (const RecapFigure& figure : recapFigures()) {
    const Label* label = recapLabel(recap, figure.figure);
    store.figures[place(figure.figure)] = {.caption = label == nullptr ? "" : label->caption(),
                                           .amount = figureValue(recap, figure.figure),
                                           .error = isFigureInError(recap, figure.figure),
                                           .incomplete = isIncomplete(main, figure)};
  }
}

GroupRecap groupRecap(std::span<const StoreRecap> stores) {
  GroupRecap group;
  for (const RecapFigure& figure : recapFigures())
    group[place(figure.figure)] = sumOf(stores, figure.figure);
  for (const RateParts& parts : kRates)
    group[place(parts.rate)] = rateOf(stores, parts);
  return group;
}

int readableStores(std::span<const StoreRecap> stores) {
  return static_cast<int>(
      std::ranges::count_if(stores, [](const StoreRecap& store) { return store.error.empty(); }));
}

}  // namespace dg
