#pragma once

#include <cstdint>
#include <string>

#include "records/shop.h"
#include "shell/view.h"

namespace dg {

/// "Open Shop Jobs": every job that is not billed, from the job table of the control file. Writes
/// the recap's "Open Shop Work", and decides which of the two billed warranty views is loaded.
class frmShop final : public View {
 public:
  frmShop();
  void Form_Load() override;

  Grid& grdShop;

 private:
  void GetShopData();
  void addJob(const clsShop& job, const std::string& record, const std::string& statusNames);
  void grdShop_BtnClick(int row);
};

}  // namespace dg
