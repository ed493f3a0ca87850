#include "shell/main_window.h"

namespace dg {

namespace {

// Misspellings in the captions have been on screen since the first release.
constexpr TreeEntry kTree[] = {
    {"A", "", "Assets", 1, 1, ""},
    {"A3", "A", "Accounts Receivable", 1, 2, "frmAR"},
    {"A7", "A", "Billed Warranties", 1, 2, "frmWarranty"},
    {"A5", "A", "G/L Asset Total", 1, 2, "frmGLA"},
    {"A1", "A", "Inventory Investment", 1, 2, ""},
    {"I1", "A1", "Parts", 1, 2, "frmInv"},
    {"I2", "A1", "Floor Plan", 1, 2, "frmFp"},
    {"I3", "A1", "Units", 1, 2, "frmUnits"},
    {"A4", "A", "Open Sales Orders", 1, 2, "frmOpenSales"},
    {"A2", "A", "Open Shop Work", 1, 2, "frmShop"},
    {"A6", "A", "Returns", 1, 2, "frmReturn"},
    {"L", "", "Liabilities", 1, 1, ""},
    {"L2", "L", "G/L Liabilites", 1, 2, "frmGLL"},
    {"L1", "L", "Open Purchase Orders", 1, 2, "frmPo"},
    {"S", "", "Sales and Profit", 1, 1, ""},
    {"S2", "S", "Profit", 1, 2, "frmProfit"},
    {"S1", "S", "Sales / Cash", 1, 2, "frmSales"},
    {"R", "", "Recap", 3, 3, "frmRecap"},
};

constexpr MenuHead kMenus[] = {
    {"mnuFile", "&File", "mfile"},
    {"mnuView", "&View", "mview"},
    {"mnuOpt", "&Options", "mopt"},
    {"mnuHelp", "&Help", "mhelp"},
};

// View/Recap has no node: the item has never done anything, and the tree's "R" is the way there.
constexpr MenuEntry kMenuItems[] = {
    {"mfile", 0, "&Refresh", "", ""},
    {"mfile", 1, "-", "", ""},
    {"mfile", 5, "E&xit", "", ""},
    {"mview", 0, "Accounts Receivable", "A3", ""},
    {"mview", 1, "Billed Warranties", "A7", ""},
    {"mview", 2, "G / L Assets", "A5", ""},
    {"mview", 3, "Inventory", "", "minv"},
    {"mview", 4, "Open Sales Orders", "A4", ""},
    {"mview", 5, "Open Shop Jobs", "A2", ""},
    {"mview", 6, "Returns", "A6", ""},
    {"mview", 7, "-", "", ""},
    {"mview", 8, "G / L Liabilities", "L2", ""},
    {"mview", 9, "Purchase Orders", "L1", ""},
    {"mview", 10, "-", "", ""},
    {"mview", 11, "Profit", "S2", ""},
    {"mview", 12, "Sales / Cash", "S1", ""},
    {"mview", 13, "-", "", ""},
    {"mview", 14, "Recap", "", ""},
    {"minv", 0, "Parts", "I1", ""},
    {"minv", 1, "Floor Plan", "I2", ""},
    {"minv", 2, "Units", "I3", ""},
    {"mopt", 0, "View &Log File", "", ""},
    {"mhelp", 0, "Dealer Gauge &Help", "", ""},
    {"mhelp", 1, "-", "", ""},
    {"mhelp", 2, "&About Dealer Gauge 2", "", ""},
};

}  // namespace

std::span<const TreeEntry> treeEntries() {
  return kTree;
}

std::span<const MenuHead> menuHeads() {
  return kMenus;
}

std::span<const MenuEntry> menuEntries() {
  return kMenuItems;
}

}  // namespace dg
