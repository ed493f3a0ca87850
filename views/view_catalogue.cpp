#include "views/view_catalogue.h"

#include <memory>

#include "views/financial/inventory.h"
#include "views/financial/recap.h"
#include "views/financial/receivables.h"

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
    views.add("frmInv", &make<frmInv>);
    views.add("frmRecap", &make<frmRecap>);
    return views;
  }();
  return catalogue;
}

}  // namespace dg
