#pragma once

#include <cstdint>

#include "records/line_builder.h"
#include "records/shop.h"

namespace dg {

/// The lines and totals of a shop job. Totals are in hundredths of the money unit.
class clsShopDetail final : public LineBuilder {
 public:
  clsShopDetail();

  /// Record of "INVOL" where the job's chain starts.
  void ShopRec(std::int32_t record) { shopRec_ = record; }
  /// Reads the job and its pages. Failures are logged and set DetailError.
  void GetDetail();

  double ShopPartTotal() const { return total(LineTotal::kPart); }
  double ShopLabTotal() const { return total(LineTotal::kLabor); }
  double ShopMiscTotal() const { return total(LineTotal::kMisc); }
  double ShopFrtTotal() const { return total(LineTotal::kFreight); }
  // No line code adds to these three: they are 0 for every job.
  double ShopSupTotal() const { return 0; }
  double ShopTaxTotal() const { return 0; }
  double ShopDepTotal() const { return 0; }

 private:
  std::int32_t shopRec_ = 0;
  clsShop ShopJob_;
};

}  // namespace dg
