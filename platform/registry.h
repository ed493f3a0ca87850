#pragma once

#include <cstdint>
#include <string>

namespace dg {

/// A value of the machine's registry (below HKEY_LOCAL_MACHINE): its type number and up to 1024
/// bytes. False when there is no such value, and on systems without a registry.
bool readMachineRegistry(const std::string& key, const std::string& name, std::uint32_t& type,
                         std::string& bytes);

/// Starts a program in a window of its own and does not wait for it; false when that fails, and on
/// systems where the program starts no others.
bool startProgram(const std::string& path);

}  // namespace dg
