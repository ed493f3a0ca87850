#pragma once

#include "shell/view.h"

namespace dg {

/// All views of the program, for the main window.
const ViewCatalogue& viewCatalogue();

}  // namespace dg
