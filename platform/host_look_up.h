#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace dg {

/// The integer of resolveHost for a dotted text, by the system's old reading of such texts: one to
/// four numbers, octal and hexadecimal too. Nothing for a name, and for "255.255.255.255", which
/// that reading cannot tell from a failure.
std::optional<std::int32_t> dottedAddress(const std::string& text);

/// The first IPv4 address of a host name's record; -1 when there is none. May take as long as the
/// system's resolver does, and is called from a thread of its own.
std::int32_t lookUpHost(const std::string& name);

using HostLookUp = std::int32_t (*)(const std::string& name);
/// Puts another look-up in lookUpHost's place, which nullptr brings back, and forgets what is
/// known; returns the former. For tests: how long a system's resolver takes is not theirs to try.
HostLookUp setHostLookUp(HostLookUp replacement);

}  // namespace dg
