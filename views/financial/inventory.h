#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "shell/view.h"

namespace dg {

/// "Current Inventory": every product line with its investment, sales, estimated turns and fill
/// rates, read from "LINEL" in the order of "LINEI". Writes the recap's "Inventory - Parts".
class frmInv final : public View {
 public:
  frmInv();
  void Form_Load() override;

  Grid& grdInvest;
  std::array<Label*, 3> lblinvtot;  ///< totals of investment, year's sales, month's sales

 private:
  void GetLineData();
};

/// How often a year a line's stock is sold, from the raw record of the line: the cost of the year
/// and the month, taken over 94 days, against the merchandise. 0 without merchandise.
/// Raises what the codec and the control file raise.
double EstimatedTurns(const std::string& record);

}  // namespace dg
