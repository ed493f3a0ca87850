#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>

#include "platform/values/currency.h"
#include "platform/values/date.h"

namespace dg {

/// Whose days they are: a store directory on a server, both UTF-8. Upper and lower case are one.
struct StoreKey {
  std::string server;
  std::string directory;
};

/// Where a figure comes from.
enum class FigureSource {
  kRecap,      ///< named as in the recap's table
  kAttention,  ///< named by its kind, such as "shop-old"
};

/// What names a figure.
struct FigureName {
  FigureSource source = FigureSource::kRecap;
  std::string name;

  auto operator<=>(const FigureName&) const = default;
};

/// A figure of one day.
struct KeptFigure {
  FigureName figure;
  Currency amount;                    ///< dollars; of a rate the fraction
  std::optional<std::int64_t> count;  ///< of attention: how many there are
};

/// A day of one figure.
struct KeptValue {
  Date day;
  Currency amount;
  std::optional<std::int64_t> count;
};

}  // namespace dg
