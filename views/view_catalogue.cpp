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
#include "views/operational/floor_plan.h"
#include "views/operational/open_sales.h"
#include "views/operational/shop.h"
#include "views/operational/units.h"
#include "views/operational/warranty.h"

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
    views.add("frmFp", &make<frmFp>);
    views.add("frmGLA", &make<frmGLA>);
    views.add("frmGLL", &make<frmGLL>);
    views.add("frmInv", &make<frmInv>);
    views.add("frmOpenSales", &make<frmOpenSales>);
    views.add("frmPo", &make<frmPo>);
    views.add("frmProfit", &make<frmProfit>);
    views.add("frmRecap", &make<frmRecap>);
    views.add("frmReturn", &make<frmReturn>);
    views.add("frmSales", &make<frmSales>);
    views.add("frmShop", &make<frmShop>);
    views.add("frmUnits", &make<frmUnits>);
    views.add("frmWarSeg", &make<frmWarSeg>);
    views.add("frmWarranty", &make<frmWarranty>);
    return views;
  }();
  return catalogue;
}

}  // namespace dg
