#include "records/customer_lookup.h"

#include "engine/business_basic.h"
#include "engine/codec.h"
#include "engine/state.h"
#include "platform/text.h"
#include "records/file_names.h"
#include "records/index_walk.h"

namespace dg {

namespace {

constexpr std::size_t kNamePosition = 6;
constexpr std::size_t kNameWidth = 20;

}  // namespace

std::string customerName(std::int32_t account) {
  const std::int32_t found = findExact(files::kCustomerIndex, integerKey('L', account));
  if (found == 0) return {};
  bool orb = true;
  const std::string record = sharedEngine().LreadFile(files::kCustomers, found, orb);
  return unpackText(middle(record, kNamePosition, kNameWidth));
}

std::optional<clsCustomers> findCustomer(std::int32_t account) {
  const std::int32_t found = findExact(files::kCustomerIndex, integerKey('L', account));
  if (found == 0) return std::nullopt;
  bool orb = true;
  std::string record = sharedEngine().LreadFile(files::kCustomers, found, orb);
  record += sharedEngine().LreadFile(files::kCustomerExtension, found, orb);
  clsCustomers customer;
  customer.Unpack(record);
  return customer;
}

}  // namespace dg
