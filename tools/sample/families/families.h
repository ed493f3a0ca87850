#pragma once

namespace dg {
struct SampleOptions;
}

namespace dg::sample {

class Random;
class StoreBuilder;
struct SampleWorld;

// The record families of an example store. To add one:
//   1. Write families/<family>.cpp with one function of this form, which takes its files from the
//      builder by name, adds records and keys, and leaves in the world what later families need.
//   2. Declare it here and name it in the list of sample_store.cpp, behind the families it reads.
//   3. Check its files' record and key lengths in store_layout.h.
// Each family draws from a random stream of its own, seeded by its name: a new family leaves the
// records of all others as they are. Multiply counts by the scale, amounts not.
using FamilyFunction = void(StoreBuilder&, Random&, const SampleOptions&, SampleWorld&);

FamilyFunction addCompany;         ///< control file: options, store name, names and captions
FamilyFunction addReceivables;     ///< DARR.TRVN
FamilyFunction addLines;           ///< LINEL, ELINEL, LINEI, COMODI
FamilyFunction addParts;           ///< PARTL, EPARTL, PARTI
FamilyFunction addCountermen;      ///< MANL, EMANL, MANI
FamilyFunction addLedger;          ///< CHRTL, CHRTI, GLDTL, GLDTI and the saved account lists
FamilyFunction addVendors;         ///< VNDRL, VNDRI
FamilyFunction addPurchaseOrders;  ///< PUTBI and a file for each order
FamilyFunction addReturns;         ///< RTTBI and a file for each return
FamilyFunction addCustomers;       ///< CUSTL, ECUSTL, CUSTI
FamilyFunction addShopJobs;        ///< INVOL and the control file's job table
FamilyFunction addOrders;          ///< INVOL, TICKI and the control file's saved invoices
FamilyFunction addWarrantyClaims;  ///< WARRL, WARRI
FamilyFunction addUnits;           ///< UNITL, UNITI, LUNITI, LUNITL
FamilyFunction addFloorPlan;       ///< FPLNL, FPLNI, FPEXL

}  // namespace dg::sample
