#pragma once

#include <string>
#include <string_view>

namespace dg::sample {

class Random;

// Invented names, in capitals as the suite's terminals enter them. None belongs to anybody.

/// At most 35 characters.
std::string dealershipName(Random& random);
/// "LAST FIRST", as customer and counterman files have it.
std::string personName(Random& random);
std::string_view firstName(Random& random);
std::string_view lastName(Random& random);
/// A company: a customer with several machines, or a vendor.
std::string companyName(Random& random);
/// "1234 MILL RD".
std::string streetAddress(Random& random);
std::string_view townName(Random& random);
std::string_view stateCode(Random& random);
std::string zipCode(Random& random);
/// Ten digits with an exchange that no telephone has.
std::string phoneNumber(Random& random);

/// "HYDRAULIC FILTER".
std::string partDescription(Random& random);
/// Letters and digits, `length` of them, as a part number without dashes.
std::string partNumber(Random& random, int length);
/// A make of whole goods: mowers, boats, trailers, saws.
std::string_view makeName(Random& random);
/// "ROTARY MOWER".
std::string_view machineName(Random& random);
/// A product line: what a supplier's parts are called in the catalogue.
std::string productLineName(Random& random);
/// A piece of work in the shop.
std::string_view laborDescription(Random& random);

}  // namespace dg::sample
