#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "records/customers.h"

namespace dg {

/// A customer's name from "CUSTL" alone, by account number met exactly; empty when there is none.
/// Decoded under the packed-text table in force. Raises what the engine raises.
std::string customerName(std::int32_t account);

/// A customer's whole record, main and extension, by account number met exactly.
std::optional<clsCustomers> findCustomer(std::int32_t account);

}  // namespace dg
