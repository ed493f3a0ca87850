#pragma once

#include <string>

namespace dg {

/// The content of a member of a ZIP archive; empty when the bytes are no archive or have no such
/// member, or when its content does not unpack to the length and checksum that the archive tells.
std::string zipMember(const std::string& archive, const std::string& name);

}  // namespace dg
