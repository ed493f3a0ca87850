#include "records/customer_lookup.h"

#include "engine/codec.h"
#include "records/file_names.h"
#include "records/index_walk.h"
#include "records/read.h"

namespace dg {

std::string customerName(std::int32_t account) {
  const std::int32_t found = findExact(files::kCustomerIndex, integerKey('L', account));
  if (found == 0) return {};
  const std::string record = readRecord(files::kCustomers, found);
  return unpackText(bytesOf(customer_record::kName, record));
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
