#pragma once

#include <optional>
#include <string>
#include <vector>

#include "history/changes.h"
#include "history/history.h"
#include "shell/recap_figures.h"

namespace dg {

/// A figure with its kept days.
struct FigureHistory {
  FigureName figure;
  const RecapFigure* recap = nullptr;  ///< its row of the recap's table; null for attention
  std::vector<KeptValue> values;       ///< from the first day
  FigureChanges changes;               ///< of the last day

  FigureKind kind() const { return recap == nullptr ? FigureKind::kMoney : recap->kind; }
};

/// The row of the recap's table of this name; null when there is none.
const RecapFigure* recapFigureOf(const FigureName& figure);

/// What a figure is called, UTF-8: "Units", "Old shop jobs"; its bare name where nothing is known
/// of it.
std::string captionOf(const FigureName& figure);

/// The figures that a store has days of: those of the recap by their index, then those of
/// attention in the order of the kinds. Raises HistoryError.
std::vector<FigureName> keptFigures(const History& history, const StoreKey& store);
/// A figure with all its days, or those from `since` on alone. Raises HistoryError.
FigureHistory readFigure(const History& history, const StoreKey& store, const FigureName& figure,
                         std::optional<Date> since = std::nullopt);

/// An amount as the recap shows it: "$1,234.50", of a rate "25.30%".
std::string amountText(Currency amount, FigureKind kind);
/// An amount of money as amountText shows it.
inline std::string moneyText(Currency amount) {
  return amountText(amount, FigureKind::kMoney);
}
/// A change likewise, with its sign: "+$1,234.50", of a rate "-2.10%".
std::string changeText(Currency amount, FigureKind kind);

}  // namespace dg
