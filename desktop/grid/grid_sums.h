#pragma once

#include <QString>

namespace dg {

class GridView;

/// "Sum $1,234.50   Average $617.25   Count 2" of the selected cells that show numbers; empty for
/// fewer than two of them.
QString selectionSummary(const GridView& view);

/// "Cost $1,234.50, Total $2,000.00": the sums of the money columns over the rows on show; empty
/// where there is none.
QString shownSums(const GridView& view);

}  // namespace dg
