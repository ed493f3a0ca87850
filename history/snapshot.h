#pragma once

#include <vector>

#include "forms/form.h"
#include "history/kept_figure.h"

namespace dg {

/// The store that the engine has found: server and directory by the catalog.
StoreKey currentStore();

/// The figures that a recap shows now, by the recap's table. What is empty or in error is missing.
std::vector<KeptFigure> recapSnapshot(const Form* recap);

}  // namespace dg
