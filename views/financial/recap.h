#pragma once

#include <array>

#include "shell/recap_sheet.h"
#include "shell/view.h"

namespace dg {

/// "System Recap": the dashboard, a sheet of totals that the other views write as they load. Always
/// loaded first.
class frmRecap final : public View, public RecapSheet {
 public:
  frmRecap();
  ~frmRecap() override;
  void Form_Load() override;
  Label& lblRecap(int index) override;

  Label& lblcompiledate;  ///< when the load or refresh began

 private:
  void lblRecap_Click(int index);

  std::array<Label*, kRecapLabels> recap_;
};

}  // namespace dg
