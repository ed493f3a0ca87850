#pragma once

#include <algorithm>
#include <initializer_list>
#include <span>
#include <string_view>

namespace dg {

/// A view of the program: its form, and the page of the guide (docs/guide/) that tells of it.
struct ListedView {
  std::string_view form;
  std::string_view guidePage;
};

/// All views. A new one has its line here, one in views/view_catalogue.cpp, and its place in the
/// orders below; what is forgotten does not compile.
inline constexpr ListedView kViews[] = {
    {"frmAR", "accounts-receivable"},
    {"frmFp", "floor-plan"},
    {"frmGLA", "ledger-assets"},
    {"frmGLL", "ledger-liabilities"},
    {"frmInv", "parts-inventory"},
    {"frmOpenSales", "open-sales-orders"},
    {"frmPo", "purchase-orders"},
    {"frmProfit", "profit"},
    {"frmRecap", "recap"},
    {"frmReturn", "returns"},
    {"frmSales", "sales-and-cash"},
    {"frmShop", "open-shop-work"},
    {"frmUnits", "units"},
    {"frmWarSeg", "billed-warranties"},
    {"frmWarranty", "billed-warranties"},
};

/// The orders in which the main window loads its views, unloads them, and lets them go.
namespace view_orders {

using Order = std::span<const std::string_view>;

// In the load orders "frmWarranty" stands for the billed warranty view that WarrantySegments
// selects; it comes behind frmShop, whose load has the last word on that. The recap is loaded
// before all others.
inline constexpr std::string_view kStart[] = {
    "frmAR",     "frmFp",     "frmGLA",   "frmGLL",  "frmInv",   "frmOpenSales", "frmPo",
    "frmProfit", "frmReturn", "frmSales", "frmShop", "frmUnits", "frmWarranty",
};
inline constexpr std::string_view kRefresh[] = {
    "frmInv", "frmAR",  "frmShop",  "frmWarranty", "frmGLA", "frmOpenSales", "frmReturn",
    "frmPo",  "frmGLL", "frmSales", "frmProfit",   "frmFp",  "frmUnits",
};

// frmProfit is in neither of a refresh's lists. It stays loaded, so its figures are those of the
// start, and nothing writes its part of the new recap: owners know the empty block as the sign of a
// refreshed sheet.
inline constexpr std::string_view kRefreshUnloads[] = {
    "frmUnits", "frmFp",       "frmSales", "frmGLL", "frmPo",    "frmReturn", "frmOpenSales",
    "frmGLA",   "frmWarranty", "frmShop",  "frmAR",  "frmRecap", "frmInv",    "frmWarSeg",
};
inline constexpr std::string_view kRefreshReleases[] = {
    "frmRecap",  "frmInv", "frmAR",  "frmShop",  "frmWarranty", "frmGLA",   "frmOpenSales",
    "frmReturn", "frmPo",  "frmGLL", "frmSales", "frmFp",       "frmUnits", "frmWarSeg",
};

inline constexpr std::string_view kEndUnloads[] = {
    "frmUnits", "frmFp",     "frmProfit",    "frmSales", "frmGLL",
    "frmPo",    "frmReturn", "frmOpenSales", "frmGLA",   "frmWarranty",
    "frmShop",  "frmAR",     "frmRecap",     "frmInv",   "frmWarSeg",
};
inline constexpr std::string_view kEndReleases[] = {
    "frmRecap", "frmInv",       "frmAR",     "frmShop",  "frmWarranty",
    "frmGLA",   "frmOpenSales", "frmReturn", "frmPo",    "frmGLL",
    "frmSales", "frmProfit",    "frmFp",     "frmUnits", "frmWarSeg",
};

/// Whether an order has each view once, but for the exceptions, and nothing else.
constexpr bool isComplete(Order order, std::initializer_list<std::string_view> exceptions) {
  for (const ListedView& view : kViews) {
    const bool excepted = std::ranges::find(exceptions, view.form) != exceptions.end();
    if (std::ranges::count(order, view.form) != (excepted ? 0 : 1)) return false;
  }
  return order.size() + exceptions.size() == std::size(kViews);
}
static_assert(isComplete(kStart, {"frmRecap", "frmWarSeg"}));
static_assert(isComplete(kRefresh, {"frmRecap", "frmWarSeg"}));
static_assert(isComplete(kRefreshUnloads, {"frmProfit"}));
static_assert(isComplete(kRefreshReleases, {"frmProfit"}));
static_assert(isComplete(kEndUnloads, {}));
static_assert(isComplete(kEndReleases, {}));

}  // namespace view_orders

}  // namespace dg
