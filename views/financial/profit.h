#pragma once

#include "shell/view.h"

namespace dg {

/// "Profit by Line": sales, cost and gross profit rate of each product line for the month, the year
/// and the previous year. Writes the recap's "Sales && Profit" block.
///
/// The one view that File/Refresh leaves loaded, so its data are read once a run.
class frmProfit final : public View {
 public:
  frmProfit();
  void Form_Load() override;

  Grid& grdProfit;

 private:
  void GetProfit();
};

}  // namespace dg
