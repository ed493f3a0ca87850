#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "platform/values/currency.h"
#include "records/open/vendor_orders.h"
#include "shell/view.h"

namespace dg {

/// "Vendor Totals": the sum of the open purchase orders of each vendor.
class frmVtotal final : public Form {
 public:
  frmVtotal();

  Grid& grdVtot;
  Label& Label1;  ///< grand total
};

/// "Purchase Orders": the open orders with their vendors, dates and totals, from the order files in
/// the order of "PUTBI". Writes the recap's "Open Purchase Orders".
class frmPo final : public View {
 public:
  frmPo();
  void Form_Load() override;

  Grid& grdPO;
  Label& lblPoTotal;
  Button& cmdVtot;
  ProgressBar& pb1;
  Label& lblLoading;

 private:
  /// A vendor's running sum in dollars.
  struct VendorTotal {
    std::string name;
    Currency sum;
  };
  static constexpr std::size_t kMaxVendor = 999;

  void GetPO();
  void addOrder(const OpenDocument& open, Currency& total);
  VendorTotal& vendorTotal(std::int32_t vendor);
  void ShowPODetail(const std::string& name, int bookmark);
  void cmdVtot_Click();

  std::array<VendorTotal, kMaxVendor> VendorTotals_;  ///< entry 0 is vendor 1
};

}  // namespace dg
