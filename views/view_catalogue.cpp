#include "views/view_catalogue.h"

namespace dg {

const ViewCatalogue& viewCatalogue() {
  static const ViewCatalogue catalogue = [] {
    ViewCatalogue views;
    return views;
  }();
  return catalogue;
}

}  // namespace dg
