#pragma once

#include <span>
#include <vector>

#include "history/kept_figure.h"
#include "insight/attention.h"
#include "shell/main_window.h"

namespace dg {

/// The store that the engine has found: server and directory by the catalog.
StoreKey currentStore();

/// Whether the figures of the last load or refresh can be trusted as a whole: the share was there
/// until its end, and no file was left out because it could not be opened. Others would be kept as
/// totals that are too small.
bool canBeKept(const frmTRVN& main);

/// The figures that the recap shows now. What is empty or in error is missing, and so is what comes
/// from a view that could not be read to its end.
std::vector<KeptFigure> recapSnapshot(const frmTRVN& main);

/// Counts and amounts of what needs attention. A kind that could not be read to its end is missing;
/// one with nothing in it is kept as 0.
std::vector<KeptFigure> attentionSnapshot(std::span<const KindResult> kinds);

}  // namespace dg
