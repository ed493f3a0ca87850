#pragma once

#include <cstdint>
#include <string>

#include "platform/values/currency.h"
#include "shell/view.h"

namespace dg {

/// "Extents": the extent lines of one financed unit.
class frmFpx final : public Form {
 public:
  frmFpx();

  Grid& grdfpx;
};

/// A product line's financed units.
class frmFpdtl final : public Form {
 public:
  frmFpdtl();

  Label& Label1;
  Grid& grdFpdtl;

 private:
  void grdFpdtl_BtnClick(int row);
};

/// "Floor Plan": the financed stock that has not been sold, by product line. Writes the recap's
/// "Floor Plan".
class frmFp final : public View {
 public:
  frmFp();
  void Form_Load() override;

  Grid& grdFp;
  Label& lblFpTot;

 private:
  void GetFpData();
  void addLine(std::int32_t line, const std::string& name, Currency sum);
  void grdFp_BtnClick(int row);
};

}  // namespace dg
