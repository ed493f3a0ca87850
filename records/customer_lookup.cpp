#include "records/customer_lookup.h"

#include "engine/codec.h"
#include "platform/text.h"
#include "records/file_names.h"
#include "records/index_walk.h"
#include "records/read.h"

namespace dg {

namespace {

constexpr std::size_t kNamePosition = 6;
constexpr std::size_t kNameWidth = 20;

}  // namespace

std::string customerName(std::int32_t account) {
  const std::int32_t found = findExact(files::kCustomerIndex, integerKey('L', account));
  if (found == 0) return {};
  const std::string record = readRecord(files::kCustomers, found);
  return unpackText(middle(record, kNamePosition, kNameWidth));
}

std::optional<clsCustomers> findCustomer(std::int32_t account) {
  const std::int32_t found = findExact(files::kCustomerIndex, integerKey('L', account));
  if (found == 0) return std::nullopt;
  const std::string record = readRecord(files::kCustomers, files::kCustomerExtension, found);
  clsCustomers customer;
  customer.Unpack(record);
  return customer;
}

}  // namespace dg
