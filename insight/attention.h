#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "insight/attention_kinds.h"
#include "insight/open_items.h"
#include "insight/whole_files.h"

namespace dg {

/// The limits in days, by kind; kinds without one hold 0.
using AttentionLimits = std::array<int, kAttentionKinds>;
AttentionLimits defaultLimits();
inline constexpr int kMostDays = 9999;

/// An item of a kind, ready for a list.
struct AttentionRow {
  std::string what;
  std::string who;
  std::optional<Date> date;
  std::optional<int> days;  ///< its age; below zero for a date in the future
  Currency amount;
  bool isWhole = true;  ///< false: its lines ended early, and the amount with them
  OpenRow row;
};

/// What needs attention of one kind: the oldest date first, items without a date last, equal ones
/// in the order of reading.
struct KindResult {
  AttentionKind kind = {};
  std::optional<int> days;  ///< its limit
  Currency amount;
  std::vector<AttentionRow> rows;
  std::string error;  ///< why nothing could be read; empty when something was

  /// Whether all that the kind sums was read to its end.
  bool isWhole() const;
  /// The oldest date; none without rows or dates.
  std::optional<Date> oldest() const;
};

/// What the kind is, in one line, with a limit in it.
std::string meaningOf(AttentionKind kind, int days);
/// The same with the limit that the result was made with.
std::string meaningOf(const KindResult& result);

inline constexpr std::array<std::string_view, 5> kAgeBuckets = {"0-30", "31-60", "61-90", "over 90",
                                                                "undated"};

/// How old the open work of a family is.
struct Ageing {
  struct Bucket {
    std::size_t count = 0;
    Currency amount;
  };
  OpenFamily family = {};
  std::size_t count = 0;
  Currency total;  ///< equals the view's own
  std::array<Bucket, kAgeBuckets.size()> buckets;
  bool whole = true;  ///< false: the lines of an item ended early, and the total with them
  std::string error;

  bool isWhole() const { return whole && error.empty(); }
};

/// A kind that comes out of the open work. Never raises: an amount too large to add is an error of
/// the kind.
KindResult attentionOf(AttentionKind kind, const OpenItems& items, Date today,
                       const AttentionLimits& limits);

/// All kinds that come out of the open work, in their order, with the limits that they start with.
std::vector<KindResult> attentionOf(const OpenItems& items, Date today);

/// A kind of whole files out of what was read.
KindResult attentionOf(AttentionKind kind, const WholeFileItems& items, Date today,
                       const AttentionLimits& limits);

/// A family's five buckets; a date in the future counts as the youngest. Never raises.
Ageing ageingOf(OpenFamily family, const OpenItems& items, Date today);
/// That of all families, in their order.
std::vector<Ageing> ageingOf(const OpenItems& items, Date today);

}  // namespace dg
