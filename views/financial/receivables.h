#pragma once

#include "shell/view.h"

namespace dg {

/// "Accounts Receivable" as of the last end-of-day run: presents the text file that the run leaves
/// in the store directory, and writes the recap's "Accounts Receivable".
class frmAR final : public View {
 public:
  frmAR();
  void Form_Load() override;

  Label& Label2;

  Grid& grdARCur;   ///< current balances
  Grid& grdFuture;  ///< "Futures": balances by period

 private:
  void GetAR();
};

}  // namespace dg
