#pragma once

#include <cstdint>
#include <string>

#include "platform/values/currency.h"
#include "records/units.h"
#include "shell/view.h"

namespace dg {

/// "Unit Information": everything known of one unit, as rows of caption and value.
class frmUnitInfo final : public Form {
 public:
  explicit frmUnitInfo(const std::string& unit);
  /// Appends a row.
  void AddUnitRow(const Variant& value, const std::string& caption);

  Grid& grdUnitinfo;
};

/// Opens "Unit Information" for a unit by its number. Raises what the engine raises.
void showUnit(const std::string& number);

/// "Unit Detail": a product line's unsold units with the cost of each.
class frmUnitDtl final : public Form {
 public:
  frmUnitDtl();

  Label& Label1;
  Grid& grdUnitDtl;

 private:
  void grdUnitDtl_BtnClick(int row);
};

/// "Units": the unsold units' cost by product line of type "U", summed from their ledger chains.
/// Writes the recap's "Units".
class frmUnits final : public View {
 public:
  frmUnits();
  void Form_Load() override;

  Grid& grdUnits;
  Label& lblFpTot;

 private:
  void GetUnitData();
  void addLine(std::int32_t line, const std::string& name, Currency total);
  void grdUnits_BtnClick(int row);
};

}  // namespace dg
