#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "engine/layout.h"
#include "engine/logical_file.h"

namespace dg {

/// The allocation state of a record file (type "L"): the first 16 bytes of the place where its
/// record 0 would stand.
namespace record_zero {
inline constexpr std::int32_t kSize = 16;
inline constexpr NumberField kMarker{'J', 1};          ///< -2 from the start; never tested
inline constexpr NumberField kFreeHead{'L', 3};        ///< first free record; below 1: none
inline constexpr NumberField kHighUsedRecord{'L', 7};  ///< highest number ever handed out
inline constexpr NumberField kActiveCount{'L', 11};    ///< records in use
}  // namespace record_zero

/// Where a data record says whether it is in use (above 0), and where a free one holds the next
/// free record.
inline constexpr NumberField kRecordInUse{'J', 1};
inline constexpr NumberField kNextFreeRecord{'L', 3};

/// The 16 bytes of record zero.
std::string readRecordZero(const cLogicalFile& LogicalFile, bool& Orb);

/// Hands out a record: the head of the free chain, else the one after the highest used. The caller
/// holds the lock on record zero. The capacity is not looked at.
std::int32_t allocateRecord(const cLogicalFile& LogicalFile, bool& Orb);

/// Puts a record on the free chain and clears it; takes no lock. Raises 81 "DelRec" for a record
/// that is free.
void releaseRecord(const std::shared_ptr<cLogicalFile>& LogicalFile, std::int32_t RecordNumber,
                   bool& Orb);

/// Writes an empty record file or index, by the file's type; other types are left alone. Raises -10
/// "iLwriteFile" for no file.
void initialiseFile(const std::shared_ptr<cLogicalFile>& LogicalFile, std::int32_t KeyLength,
                    bool DuplicateKeys, std::int32_t BlockingFactor, bool& Orb);

}  // namespace dg
