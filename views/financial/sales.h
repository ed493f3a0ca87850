#pragma once

#include "shell/view.h"

namespace dg {

/// "Todays Sales" and "Cash": today's figures per counterman from "MANL" and "EMANL", in the order
/// of "MANI". Writes the recap's "Todays Sales" and "Todays Cash".
class frmSales final : public View {
 public:
  frmSales();
  void Form_Load() override;

  Grid& grdSales;
  Grid& grdCash;
  Label& lblSaleTot;
  Label& lblCashTot;

 private:
  void GetSales();
};

}  // namespace dg
