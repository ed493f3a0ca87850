#pragma once

#include <cstdint>
#include <string>

namespace dg {

class cBusinessBasic;

/// Tells that a load of the store begins: its control file, directories and data files will be
/// asked for, and can be fetched meanwhile.
void expectStore();

/// Whether claims are billed by segment: the option that the shop jobs' load asks has the last
/// word.
inline constexpr std::int32_t kWarrantyOption = 317;

/// A block of the control file. Raises what the engine raises.
std::string readControlBlock(std::int32_t block);

/// The store's name, 35 characters as they stand, from the control file. Raises what the engine
/// raises.
std::string readStoreName(const cBusinessBasic& engine);

/// The same of any store directory, such as "\\server\VLMRLNK\LNK001", without an engine. Raises 53
/// when the control file is not there, 62 when it ends before the name, and what reading raises.
std::string readStoreName(const std::string& directory);

/// Whether the company option at a 1-based position is "Y". Raises 5 for a position below 1, and
/// what the engine raises.
bool companyOption(std::int32_t position);

}  // namespace dg
