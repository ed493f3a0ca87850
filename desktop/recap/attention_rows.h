#pragma once

#include <memory>
#include <vector>

#include "forms/grid.h"
#include "insight/attention.h"

namespace dg {

class frmTRVN;

/// The rows of a kind as a grid. A click on a row opens its document's own window.
std::unique_ptr<Grid> attentionGrid(const KindResult& result, const frmTRVN& main);

/// The ages of all families as a grid.
std::unique_ptr<Grid> ageingGrid(const std::vector<Ageing>& ageing);

/// Opens the window of an item by a click on its row in its view; false when the view does not have
/// it, or no view shows it.
bool openDocument(const OpenRow& row, const frmTRVN& main);

}  // namespace dg
