#pragma once

#include <cstdint>
#include <string>

#include "engine/layout.h"

namespace dg {

class cBusinessBasic;

/// Layout of the control file: what its blocks hold. A block that is not named here nobody reads.
namespace control_file {

/// A range of blocks, both ends included.
struct Blocks {
  std::int32_t first, last;
};

/// The block that the turns of a product line ask for; what stands there is not used.
inline constexpr std::int32_t kFirstBlock = 0;
inline constexpr NumberField kUnusedByte{'B', 11};

inline constexpr std::int32_t kCompanyBlock = 1;
inline constexpr TextField kStoreName{151, 35};

/// The captions of the four fields of a unit that the dealership may name.
inline constexpr std::int32_t kUnitCaptionBlock = 4;
inline constexpr TextField kUnitCaptions[] = {{433, 8}, {453, 8}, {473, 8}, {493, 8}};

/// The company options: a character each.
inline constexpr std::int32_t kOptionBlock = 401;

inline constexpr std::int32_t kCallResultBlock = 446;
/// The name of a call result, from 1.
constexpr TextField callResultName(std::int32_t number) {
  constexpr TextField kFirst{1, 12};
  return kFirst.behind((number - 1) * kFirst.width);
}

inline constexpr std::int32_t kJobStatusBlock = 450;
/// The name of an open job's status, from 1 to 5.
constexpr TextField jobStatusName(std::int32_t number) {
  constexpr TextField kFirst{432, 15};
  return kFirst.behind((number - 1) * kFirst.width);
}

// The saved invoices: in each block four groups of slots, in each slot the "INVOL" record of a page
// of the invoice, or four NULs.
inline constexpr Blocks kSavedInvoices{301, 325};
inline constexpr std::int32_t kSavedGroups = 4;
inline constexpr std::int32_t kSavedPerGroup = 31;
/// A slot of a group, both from 0.
constexpr NumberField savedSlot(std::int32_t group, std::int32_t slot) {
  constexpr NumberField kFirst{'L', 5};
  constexpr std::int32_t kGroupWidth = 128;
  return kFirst.behind(group * kGroupWidth + slot * kFirst.width());
}

// The job table: two ranges of blocks of slots, in each slot the "INVOL" record of a page of the
// job, below 1 when it is free.
inline constexpr Blocks kJobs[] = {{451, 458}, {501, 571}};
inline constexpr std::int32_t kJobsPerBlock = 128;
/// A slot of a block, from 0.
constexpr NumberField jobSlot(std::int32_t slot) {
  constexpr NumberField kFirst{'L', 1};
  return kFirst.behind(slot * kFirst.width());
}

}  // namespace control_file

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
