#include "records/file_names.h"

#include "platform/text.h"
#include "records/clock.h"
#include "records/countermen.h"
#include "records/customers.h"
#include "records/floor_plan.h"
#include "records/invoice_history.h"
#include "records/invoice_history_detail.h"
#include "records/lines.h"
#include "records/parts.h"
#include "records/shop.h"
#include "records/units.h"
#include "records/warranty.h"

namespace dg {

namespace {

template <class R>
std::unique_ptr<Record> make() {
  return std::make_unique<R>();
}

constexpr RecordClass kRecordClasses[] = {
    {"clsClock", "", "", &make<clsClock>},
    {"clsCounterman", files::kCountermen, files::kCountermanExtension, &make<clsCounterman>},
    {"clsCustomers", files::kCustomers, files::kCustomerExtension, &make<clsCustomers>},
    {"clsFloorPlan", files::kFloorPlan, "", &make<clsFloorPlan>},
    {"clsFloorPlanExtent", files::kFloorPlanExtents, "", &make<clsFloorPlanExtent>},
    {"clsInvoiceHistory", files::kInvoices, "", &make<clsInvoiceHistory>},
    {"clsInvoiceHistoryDetail", files::kInvoices, "", &make<clsInvoiceHistoryDetail>},
    {"clsLines", files::kLines, files::kLineExtension, &make<clsLines>},
    {"clsParts", files::kParts, files::kPartExtension, &make<clsParts>},
    {"clsShop", files::kInvoices, "", &make<clsShop>},
    {"clsUnitnotes", "", "", &make<clsUnitnotes>},
    {"clsUnits", files::kUnits, "", &make<clsUnits>},
    {"clsUnitsHistory", "", "", &make<clsUnitsHistory>},
    {"clsUnitsLedger", files::kUnitLedger, "", &make<clsUnitsLedger>},
    {"clsWarranty", files::kWarranties, "", &make<clsWarranty>},
};

}  // namespace

std::span<const RecordClass> recordClasses() {
  return kRecordClasses;
}

const RecordClass* findRecordClass(std::string_view name) {
  for (const RecordClass& known : kRecordClasses) {
    if (equalIgnoringCase(known.name, name)) return &known;
  }
  return nullptr;
}

}  // namespace dg
