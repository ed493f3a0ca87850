#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>

#include "shell/main_window.h"
#include "shell/recap_figures.h"

namespace dg {

/// A figure of one store.
struct StoreFigure {
  std::string caption;             ///< as the recap shows it
  std::optional<Currency> amount;  ///< of a rate the fraction; nothing where there is no number
  bool error = false;              ///< its view failed
  bool incomplete = false;         ///< its view was not read to its end: a part, in no total
};

/// The recap of one store of several. Texts are bytes of the code page.
struct StoreRecap {
  std::string directory;
  std::string name;   ///< without the blanks around it
  std::string error;  ///< why the store could not be read; it has no figures then
  /// Files that could not be opened, in a sentence: the figures may be too small, and are in no
  /// total.
  std::string leftOut;
  std::array<StoreFigure, kRecapLabels> figures = {};  ///< by Figure

  const StoreFigure& of(const RecapFigure& figure) const {
    return figures[static_cast<std::size_t>(figure.index())];
  }
};

/// Takes over the figures and the name that a main window shows.
void takeRecap(StoreRecap& store, const frmTRVN& main);

/// A figure of all stores.
struct GroupFigure {
  std::optional<Currency> amount;  ///< nothing without a store that has it, or beyond all bounds
  int stores = 0;                  ///< how many stores it covers
};
using GroupRecap = std::array<GroupFigure, kRecapLabels>;

/// The sums over the stores that have a figure. A rate is worked out from the sums of sales and
/// cost of the stores that have both, as it would be of one store with all their lines.
GroupRecap groupRecap(std::span<const StoreRecap> stores);

/// How many stores could be read.
int readableStores(std::span<const StoreRecap> stores);

}  // namespace dg
