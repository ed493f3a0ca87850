#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "records/open/warranty_claims.h"
#include "shell/view.h"

namespace dg {

/// "Warranty Detail": one claim with customer, serial numbers, remarks and lines.
class frmWarrDetail final : public Form {
 public:
  explicit frmWarrDetail(const std::string& shopReference);

  /// Fills the lines of the claim of a number as the index has it.
  void showLines(std::int32_t number);

  Label& lblCust;
  Label& lblSn1;
  Label& lblSn2;
  Label& lblMisc;
  Grid& grdwd;
};

/// The view of billed warranty claims. Two forms of it exist, of which a store uses one: by shop
/// reference, and by segments of a shop reference. Writes the recap's "Billed Warranties".
class BilledWarranties : public View {
 public:
  void Form_Load() override;

  Grid& grdWarr;

 protected:
  BilledWarranties(const std::string& form, std::span<const ColumnSpec> columns);

  virtual std::int32_t numberOfRow(int row) const = 0;
  /// The customer's lines on the detail window.
  virtual std::string customerText(const clsWarranty& claim) const = 0;
  virtual bool showsSegments() const = 0;

 private:
  void loadClaims();
  void addClaim(const BilledClaim& billed);
  void grdWarr_BtnClick(int row);
};

/// "Billed Warranty Jobs", a claim a row.
class frmWarranty final : public BilledWarranties {
 public:
  frmWarranty();

 protected:
  std::int32_t numberOfRow(int row) const override;
  std::string customerText(const clsWarranty& claim) const override;
  bool showsSegments() const override { return false; }
};

/// "Billed Warranty Jobs", a segment of a claim a row: the index carries the shop reference with a
/// two-digit segment number behind it.
class frmWarSeg final : public BilledWarranties {
 public:
  frmWarSeg();

 protected:
  std::int32_t numberOfRow(int row) const override;
  std::string customerText(const clsWarranty& claim) const override;
  bool showsSegments() const override { return true; }
};

}  // namespace dg
