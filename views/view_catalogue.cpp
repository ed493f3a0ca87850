#include "views/view_catalogue.h"

#include <memory>

#include "views/financial/inventory.h"
#include "views/financial/ledger_accounts.h"
#include "views/financial/profit.h"
#include "views/financial/purchase_orders.h"
#include "views/financial/recap.h"
#include "views/financial/receivables.h"
#include "views/financial/returns.h"
#include "views/financial/sales.h"

namespace dg {

namespace {

template <class V>
std::unique_ptr<View> make() {
  return std::make_unique<V>();
}

}  // namespace

const ViewCatalogue& viewCatalogue() {
  static const ViewCatalogue catalogue = [] {
    ViewCatalogue views;
    views.add("frmAR", &make<frmAR>);
    views.add("frmGLA", &make<frmGLA>);
    views.add("frmGLL", &make<frmGLL>);
    views.add("frmInv", &make<frmInv>);
    views.add("frmPo", &make<frmPo>);
    views.add("frmProfit", &make<frmProfit>);
    views.add("frmRecap", &make<frmRecap>);
    views.add("frmReturn", &make<frmReturn>);
    views.add("frmSales", &make<frmSales>);
    return views;
  }();
  return catalogue;
}

}  // namespace dg
