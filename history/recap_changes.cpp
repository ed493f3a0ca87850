#include "history/recap_changes.h"

#include <cmath>

#include "history/figure_history.h"
#include "history/snapshot.h"
#include "platform/values/format.h"

namespace dg {

namespace {

bool isComparedByMonth(FigureSpan span) {
  return span == FigureSpan::kToday || span == FigureSpan::kMonth;
}

ChangeTone toneOf(const RecapFigure& figure, Currency amount) {
  if (!figure.moreIsBetter || amount == Currency()) return ChangeTone::kNeutral;
  return amount > Currency() ? ChangeTone::kGood : ChangeTone::kBad;
}

std::string sizeText(Currency size, FigureKind kind) {
  constexpr Currency kExact(100);
  if (kind == FigureKind::kRate) return Format(size.toDouble() * 100, "0.00") + " points";
  return Format(size, size < kExact ? "$0.00" : "$#,###,##0");
}

}  // namespace

std::vector<RecapChange> recapChanges(const History& history, const StoreKey& store,
                                      const frmTRVN& main, Date today) {
  std::vector<RecapChange> result;
  for (const KeptFigure& now : recapSnapshot(main)) {
    const RecapFigure& figure = *recapFigureOf(now.figure);
    const auto find = [&](Date notAfter, Date notBefore) {
      return history.last(store, now.figure, notAfter, notBefore);
    };
    const auto older = isComparedByMonth(figure.span) ? sameDayBefore(today, 1, find)
                                                      : find(Date(today.days() - 1), Date());
    const auto change = changeFrom(older, {Date(today.days()), now.amount, now.count});
    if (change) result.push_back({figure.figure, *change, toneOf(figure, change->amount)});
  }
  return result;
}

std::string changeLabel(const RecapChange& change) {
  const Currency amount = change.change.amount;
  if (amount == Currency()) return "no change";
  const RecapFigure& figure = recapFigure(change.figure);
  const bool grew = amount > Currency();
  std::string text = grew ? "▲ " : "▼ ";
  text += sizeText(grew ? amount : -amount, figure.kind);
  if (figure.kind == FigureKind::kMoney && change.change.percent) {
    const double percent = std::stod(*change.change.percent);
    text += " (" + std::string(percent > 0 ? "+" : "") +
            Format(percent, std::fabs(percent) < 1000 ? "0.0" : "#,##0") + "%)";
  }
  return text;
}

}  // namespace dg
