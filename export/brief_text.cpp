#include <algorithm>
#include <sstream>

#include "export/brief.h"
#include "export/printable.h"
#include "platform/text.h"

namespace dg {

namespace {

constexpr std::size_t kNameWidth = 22;
constexpr std::size_t kAmountWidth = 17;

void writeGroup(std::ostream& out, const Brief& brief) {
  std::vector<StoreRecap> stores;
  for (const BriefStore& store : brief.stores)
    stores.push_back(store.recap);
  const GroupRecap totals = groupRecap(stores);
  out << "\nTOTALS over " << readableStores(stores) << " of " << stores.size() << "\n\n";
  for (const RecapFigure& figure : recapFigures()) {
    const GroupFigure& total = totals[static_cast<std::size_t>(figure.index())];
    out << padRight(std::string(figure.name), kNameWidth)
        << padLeft(total.amount ? amountText(*total.amount, figure.kind) : "-", kAmountWidth)
        << "  " << total.stores << " of " << stores.size() << '\n';
  }
}

void writeRecap(std::ostream& out, const BriefStore& store) {
  out << "\nRECAP\n\n";
  for (const RecapFigure& figure : recapFigures()) {
    out << padRight(std::string(figure.name), kNameWidth)
        << padLeft(terminalText(store.recap.of(figure).caption), kAmountWidth);
    const auto change = std::ranges::find(store.changes, figure.figure, &RecapChange::figure);
    if (change != store.changes.end()) {
      out << "  " << changeLabel(*change) << " since " << change->change.from.day.shortDateText();
    }
    out << '\n';
  }
}

void writeAttention(std::ostream& out, const BriefStore& store) {
  out << "\nWHAT NEEDS ATTENTION\n\n";
  bool anything = false;
  for (const KindResult& kind : store.kinds) {
    if (kind.rows.empty() && kind.isWhole()) continue;
    anything = true;
    out << padRight(std::string(entryOf(kind.kind).caption), kNameWidth + 8);
    if (!kind.error.empty()) {
      out << "  could not be read: " << terminalText(kind.error) << '\n';
      continue;
    }
    out << padLeft(std::to_string(kind.rows.size()), 6)
        << padLeft(moneyText(kind.amount), kAmountWidth) << (kind.isWhole() ? "" : "  incomplete")
        << '\n';
  }
  if (!anything) out << "Nothing.\n";
}

void writeAgeing(std::ostream& out, const BriefStore& store) {
  out << "\nOPEN WORK, AND WHAT OF IT IS OVER 90 DAYS OLD\n\n";
  constexpr std::size_t kOldest = 3;
  for (const Ageing& age : store.ageing) {
    out << padRight(std::string(openFamilies()[static_cast<std::size_t>(age.family)].caption),
                    kNameWidth);
    if (!age.error.empty()) {
      out << "  could not be read: " << terminalText(age.error) << '\n';
      continue;
    }
    out << padLeft(moneyText(age.total), kAmountWidth)
        << padLeft(moneyText(age.buckets[kOldest].amount), kAmountWidth)
        << (age.isWhole() ? "" : "  incomplete") << '\n';
  }
}

void writeStore(std::ostream& out, const BriefStore& store, bool isGroup) {
  if (isGroup) {
    out << "\n\n"
        << terminalText(store.recap.directory) << "  " << terminalText(store.recap.name) << '\n';
  }
  if (!store.recap.error.empty()) {
    out << "\nCould not be read: " << terminalText(store.recap.error) << '\n';
    return;
  }
  if (!store.troubles.empty()) out << "\nNOT ALL FIGURES CAN BE RELIED ON\n\n";
  for (const std::string& trouble : store.troubles)
    out << terminalText(trouble) << '\n';
  writeRecap(out, store);
  writeAttention(out, store);
  writeAgeing(out, store);
}

}  // namespace

std::string briefText(const Brief& brief) {
  std::ostringstream out;
  out << briefTitle(brief) << "\nFigures as of " << brief.moment.shortDateText() << ' '
      << brief.moment.longTimeText() << '\n';
  if (brief.isGroup) writeGroup(out, brief);
  for (const BriefStore& store : brief.stores)
    writeStore(out, store, brief.isGroup);
  return out.str();
}

}  // namespace dg
