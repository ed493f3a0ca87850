#include "views/view_catalogue.h"

#include <algorithm>
#include <memory>

#include "shell/view_orders.h"
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

struct Entry {
  std::string_view form;
  std::unique_ptr<View> (*make)();
};
constexpr Entry kEntries[] = {
    {"frmAR", &make<frmAR>},
    {"frmFp", &make<frmFp>},
    {"frmGLA", &make<frmGLA>},
    {"frmGLL", &make<frmGLL>},
    {"frmInv", &make<frmInv>},
    {"frmOpenSales", &make<frmOpenSales>},
    {"frmPo", &make<frmPo>},
    {"frmProfit", &make<frmProfit>},
    {"frmRecap", &make<frmRecap>},
    {"frmReturn", &make<frmReturn>},
    {"frmSales", &make<frmSales>},
    {"frmShop", &make<frmShop>},
    {"frmUnits", &make<frmUnits>},
    {"frmWarSeg", &make<frmWarSeg>},
    {"frmWarranty", &make<frmWarranty>},
};
static_assert(std::ranges::equal(kEntries, kViews, {}, &Entry::form, &ListedView::form));

}  // namespace

const ViewCatalogue& viewCatalogue() {
  static const ViewCatalogue catalogue = [] {
    ViewCatalogue views;
    for (const Entry& entry : kEntries)
      views.add(std::string(entry.form), entry.make);
    return views;
  }();
  return catalogue;
}

}  // namespace dg
