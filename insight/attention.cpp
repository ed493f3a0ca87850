#include "insight/attention.h"

#include <algorithm>
#include <utility>

#include "platform/text.h"
#include "platform/values/trap.h"

namespace dg {

namespace {

constexpr int kBucketDays = 30;
constexpr int kDatedBuckets = 4;

std::optional<Date> present(Date date) {
  return date == kEmptyDate ? std::nullopt : std::optional(date);
}

std::optional<int> ageOf(std::optional<Date> date, Date today) {
  if (!date) return std::nullopt;
  return today.days() - date->days();
}

KindResult emptyResult(AttentionKind kind, const AttentionLimits& limits) {
  KindResult result;
  result.kind = kind;
  if (entryOf(kind).days) result.days = limits[static_cast<std::size_t>(kind)];
  return result;
}

void addRow(KindResult& result, const OpenWork& item, Date date, Date today) {
  result.amount += item.amount;
  const std::optional<Date> there = present(date);
  result.rows.push_back({.what = std::string(shown(item.what)),
                         .who = std::string(shown(item.who)),
                         .date = there,
                         .days = ageOf(there, today),
                         .amount = item.amount,
                         .isWhole = item.isWhole,
                         .row = item.row});
}

bool isOlder(const AttentionRow& a, const AttentionRow& b) {
  if (a.date && b.date) return *a.date < *b.date;
  return a.date.has_value() && !b.date.has_value();
}

/// Fills a result; what goes wrong leaves nothing but the error.
void fill(KindResult& result, const std::function<void()>& body) {
  trapErrors(
      [&] {
        body();
        std::ranges::stable_sort(result.rows, isOlder);
      },
      [&](const RunTimeError& error) {
        result.rows.clear();
        result.amount = Currency();
        result.error = error.description();
      });
}

std::size_t bucketOf(std::optional<int> age) {
  if (!age) return kDatedBuckets;
  if (*age <= kBucketDays) return 0;
  return static_cast<std::size_t>(std::min((*age - 1) / kBucketDays, kDatedBuckets - 1));
}

}  // namespace

AttentionLimits defaultLimits() {
  AttentionLimits limits{};
  for (const KindEntry& entry : attentionKinds())
    limits[static_cast<std::size_t>(entry.kind)] = entry.days.value_or(0);
  return limits;
}

bool KindResult::isWhole() const {
  return error.empty() && std::ranges::all_of(rows, &AttentionRow::isWhole);
}

std::optional<Date> KindResult::oldest() const {
  return rows.empty() ? std::nullopt : rows.front().date;
}

KindResult attentionOf(AttentionKind kind, const OpenItems& items, Date today,
                       const AttentionLimits& limits) {
  const KindEntry& entry = entryOf(kind);
  KindResult result = emptyResult(kind, limits);
  const OpenItems::Family& family = items.family(entry.family);
  if (!family.isRead) {
    result.error = family.error.empty() ? "Not read" : family.error;
    return result;
  }
  fill(result, [&] {
    for (const OpenWork& item : family.items) {
      const Date date = item.*entry.date;
      if (entry.selects(item, ageOf(present(date), today), result.days.value_or(0)))
        addRow(result, item, date, today);
    }
  });
  return result;
}

std::vector<KindResult> attentionOf(const OpenItems& items, Date today) {
  std::vector<KindResult> results;
  for (const KindEntry& entry : attentionKinds()) {
    if (entry.file == WholeFile::kNone)
      results.push_back(attentionOf(entry.kind, items, today, defaultLimits()));
  }
  return results;
}

KindResult attentionOf(AttentionKind kind, const WholeFileItems& items, Date today,
                       const AttentionLimits& limits) {
  KindResult result = emptyResult(kind, limits);
  result.error = items.error;
  fill(result, [&] {
    for (const OpenWork& item : items.items)
      addRow(result, item, item.date, today);
  });
  return result;
}

Ageing ageingOf(OpenFamily family, const OpenItems& items, Date today) {
  Ageing ageing;
  ageing.family = family;
  const OpenItems::Family& read = items.family(family);
  if (!read.isRead) {
    ageing.error = read.error.empty() ? "Not read" : read.error;
    return ageing;
  }
  trapErrors(
      [&] {
        for (const OpenWork& item : read.items) {
          if (!item.isOpen) continue;
          Ageing::Bucket& bucket = ageing.buckets[bucketOf(ageOf(present(item.date), today))];
          ++bucket.count;
          bucket.amount += item.amount;
          ++ageing.count;
          ageing.total += item.amount;
          ageing.whole = ageing.whole && item.isWhole;
        }
      },
      [&](const RunTimeError& error) {
        ageing = {};
        ageing.family = family;
        ageing.error = error.description();
      });
  return ageing;
}

std::vector<Ageing> ageingOf(const OpenItems& items, Date today) {
  std::vector<Ageing> all;
  for (const FamilyEntry& family : openFamilies())
    all.push_back(ageingOf(family.family, items, today));
  return all;
}

std::string meaningOf(AttentionKind kind, int days) {
  std::string text(entryOf(kind).meaning);
  const std::size_t place = text.find('%');
  if (place != std::string::npos) text.replace(place, 1, std::to_string(days));
  return text;
}

std::string meaningOf(const KindResult& result) {
  return meaningOf(result.kind, result.days.value_or(0));
}

}  // namespace dg
