#include "insight/whole_files.h"

#include <algorithm>
#include <initializer_list>
#include <span>

#include "engine/business_basic.h"
#include "engine/state.h"
#include "insight/quiet_scope.h"
#include "platform/read_ahead.h"
#include "platform/text.h"
#include "platform/values/trap.h"
#include "records/customers.h"
#include "records/file_names.h"
#include "records/index_walk.h"
#include "records/parts.h"
#include "records/read.h"

namespace dg {

namespace {

/// How many records lie between two calls of the progress function.
constexpr std::int64_t kStride = 256;

/// Those fields of a record class that are wanted, out of its own table.
template <class R>
class FieldsOf {
 public:
  FieldsOf(std::initializer_list<std::string_view> numbers,
           std::initializer_list<std::string_view> texts) {
    for (const Field<R>& field : R::fields()) {
      const bool isNumber = std::ranges::find(numbers, field.member.name) != numbers.end();
      const bool isText = std::ranges::find(texts, field.member.name) != texts.end();
      if (!isNumber && !isText) continue;
      fields_.push_back(field);
      if (isNumber) needed_ = std::max(needed_, field.position + field.width - 1);
    }
  }
  /// Fills the members; false when the record is too short for one of the numbers.
  bool read(const std::string& record, R& self) const {
    if (record.size() < static_cast<std::size_t>(needed_)) return false;
    unpackFields<R>(fields_, self, record);
    return true;
  }

 private:
  std::vector<Field<R>> fields_;
  int needed_ = 0;
};

/// Walks an index from its first entry; `visit` gets each record number. False when it was ended.
bool walkAll(const char* index, std::int64_t most, const ReadProgress& progress,
             const std::function<void(std::int32_t record)>& visit) {
  std::int64_t done = 0;
  for (IndexWalk walk(index, std::string()); !walk.atEnd(); walk.next()) {
    if (done++ % kStride == 0 && progress && !progress(done - 1, most)) return false;
    visit(walk.record());
  }
  return true;
}

OpenWork customerWork(const clsCustomers& customer, Currency amount) {
  return {.what = std::to_string(customer.Account), .who = customer.Name, .amount = amount};
}

/// Tenths times hundredths: exact in ten-thousandths.
Currency value(Currency quantity, Currency cost) {
  return Currency::fromTenThousandths(quantity.tenThousandths() / 1000 *
                                      (cost.tenThousandths() / 100) * 10);
}

}  // namespace

std::optional<std::array<WholeFileItems, 2>> readCustomers(const ReadProgress& progress) {
  const ReadAheadScope keeping;
  const QuietScope quiet;
  setMaskHead(kDefaultMaskTable.substr(0, 4));
  const FieldsOf<clsCustomers> fields(
      {"Account", "Credit_Limit", "MTD_Tot_Bal", "Statement_60_days", "Statement_90_days",
       "Statement_Tot_Due"},
      {"Name"});
  std::array<WholeFileItems, 2> found;
  WholeFileItems& pastDue = found[0];
  WholeFileItems& overLimit = found[1];
  bool whole = true;
  trapErrors(
      [&] {
        const auto file = LogicalFileArgument(files::kCustomers).resolve();
        clsCustomers customer;
        whole =
            walkAll(files::kCustomerIndex, file->LastRecord, progress, [&](std::int32_t record) {
              if (!fields.read(readRecord(file, record), customer)) return;
              const Currency due = customer.Statement_60_days + customer.Statement_90_days;
              if (due > Currency()) pastDue.items.push_back(customerWork(customer, due));
              const Currency balance = customer.MTD_Tot_Bal + customer.Statement_Tot_Due;
              const Currency limit(customer.Credit_Limit);
              if (limit > Currency() && balance > limit)
                overLimit.items.push_back(customerWork(customer, balance - limit));
            });
      },
      [&](const RunTimeError& error) {
        for (WholeFileItems& kind : found)
          kind = {.items = {}, .error = error.description()};
      });
  if (!whole) return std::nullopt;
  return found;
}

std::optional<WholeFileItems> readIdleParts(Date today, int days, const ReadProgress& progress) {
  const ReadAheadScope keeping;
  const QuietScope quiet;
  setMaskHead(kDefaultMaskTable.substr(0, 4));
  const FieldsOf<clsParts> fields(
      {"Line", "Quantity_On_Hand", "Cost", "Date_Last_Demand", "Average_Cost", "Date_Last_Recvd"},
      {"Part_Number", "Description"});
  WholeFileItems found;
  bool whole = true;
  trapErrors(
      [&] {
        const auto file = LogicalFileArgument(files::kParts).resolve();
        const auto extension = LogicalFileArgument(files::kPartExtension).resolve();
        clsParts part;
        whole = walkAll(files::kPartIndex, file->LastRecord, progress, [&](std::int32_t record) {
          if (!fields.read(readRecord(file, record) + readRecord(extension, record), part)) return;
          if (part.Quantity_On_Hand <= Currency()) return;
          const Date moved = std::max(part.Date_Last_Demand, part.Date_Last_Recvd);
          if (moved != kEmptyDate && today.days() - moved.days() <= days) return;
          const Currency cost = part.Average_Cost != Currency() ? part.Average_Cost : part.Cost;
          found.items.push_back({.what = std::to_string(part.Line) + " " +
                                         std::string(shown(part.Part_Number)) + "  " +
                                         std::string(shown(part.Description)),
                                 .who = {},
                                 .amount = value(part.Quantity_On_Hand, cost),
                                 .date = moved});
        });
      },
      [&](const RunTimeError& error) { found = {.items = {}, .error = error.description()}; });
  if (!whole) return std::nullopt;
  return found;
}

}  // namespace dg
