#pragma once

#include <string>

#include "platform/values/currency.h"
#include "records/open/vendor_orders.h"
#include "shell/view.h"

namespace dg {

/// "Returns": the pending returns to vendors, from the return files in the order of "RTTBI". The
/// sister of frmPo, without vendor totals and progress bar. Writes the recap's "Pending Returns".
class frmReturn final : public View {
 public:
  frmReturn();
  void Form_Load() override;

  Grid& grdReturn;
  Label& lblRetTotal;

 private:
  void GetReturn();
  void addReturn(const OpenDocument& open, Currency& total);
  void ShowReturnDetail(const std::string& name, int bookmark);
};

}  // namespace dg
