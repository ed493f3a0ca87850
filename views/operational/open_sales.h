#pragma once

#include <array>

#include "shell/view.h"

namespace dg {

/// "Open Sales Orders": pick tickets in the order of "TICKI", and saved invoices from the slot
/// table of the control file. Whatever these name is open. Writes the recap's "Open Sales Orders".
class frmOpenSales final : public View {
 public:
  frmOpenSales();
  void Form_Load() override;

  Grid& grdTickets;
  Grid& grdSaved;
  std::array<Label*, 2> lblPTtot;  ///< totals of tickets and of saved invoices

 private:
  void GetPTSData();
};

}  // namespace dg
