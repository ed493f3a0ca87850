#include "history/figure_history.h"

#include <algorithm>

#include "insight/attention_kinds.h"
#include "platform/values/format.h"

namespace dg {

namespace {

constexpr std::string_view kMoneyMask = "$#,###,##0.00";
constexpr std::string_view kRateMask = "0.00%";

std::string masked(Currency amount, FigureKind kind) {
  return kind == FigureKind::kRate ? Format(amount.toDouble(), kRateMask)
                                   : Format(amount, kMoneyMask);
}

/// Null for a figure of the recap, and for a kind that this version does not know.
const KindEntry* kindOf(const FigureName& figure) {
  return figure.source == FigureSource::kAttention ? findKind(figure.name) : nullptr;
}

}  // namespace

const RecapFigure* recapFigureOf(const FigureName& figure) {
  if (figure.source != FigureSource::kRecap) return nullptr;
  const std::span<const RecapFigure> figures = recapFigures();
  const auto found = std::ranges::find(figures, figure.name, &RecapFigure::name);
  return found == figures.end() ? nullptr : &*found;
}

std::string captionOf(const FigureName& figure) {
  const KindEntry* kind = kindOf(figure);
  return kind == nullptr ? figure.name : std::string(kind->caption);
}

std::vector<FigureName> keptFigures(const History& history, const StoreKey& store) {
  std::vector<FigureName> figures = history.figures(store);
  // A figure of the recap that this version does not know has no place there.
  std::erase_if(figures, [](const FigureName& figure) {
    return figure.source == FigureSource::kRecap && recapFigureOf(figure) == nullptr;
  });
  std::ranges::stable_sort(figures, {}, [](const FigureName& figure) {
    if (const RecapFigure* recap = recapFigureOf(figure)) return recap->index();
    const KindEntry* kind = kindOf(figure);
    return kRecapLabels + static_cast<int>(kind == nullptr ? kAttentionKinds
                                                           : static_cast<std::size_t>(kind->kind));
  });
  return figures;
}

FigureHistory readFigure(const History& history, const StoreKey& store, const FigureName& figure,
                         std::optional<Date> since) {
  FigureHistory result{.figure = figure,
                       .recap = recapFigureOf(figure),
                       .values = history.values(store, figure, since),
                       .changes = {}};
  result.changes = changesOf(result.values);
  return result;
}

std::string amountText(Currency amount, FigureKind kind) {
  return masked(amount, kind);
}

std::string changeText(Currency amount, FigureKind kind) {
  const std::string text = masked(amount, kind);
  const bool shrank = text.starts_with('-');
  return shrank || amount == Currency() ? text : "+" + text;
}

}  // namespace dg
