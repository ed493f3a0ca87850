#pragma once

#include <string_view>
#include <vector>

#include "tools/check/check_run.h"

namespace dg::check {

/// A chain of records that a record of another file begins.
struct RecordChain {
  std::string_view headFile;  ///< whose records have chains
  char headOpcode = 0;
  std::int32_t headPosition = 0;  ///< of the first record's number; 0 there: no chain
  std::string_view linkFile;
  char linkOpcode = 0;
  std::int32_t linkPosition = 0;  ///< of the next record's number; 0 there: the end
  std::string_view noun;          ///< what is chained, for people
};

/// The ledger entries of units and the extents of floor-plan entries.
inline constexpr RecordChain kRecordChains[] = {
    {files::kUnits, 'L', 505, files::kUnitLedger, 'L', 61, "ledger"},
    {files::kFloorPlan, 'D', 94, files::kFloorPlanExtents, 'D', 29, "extent"},
};

/// Examines such chains: they must end, stay among records in use and apart from each other.
class RecordChainChecker {
 public:
  explicit RecordChainChecker(CheckRun& run) : run_(run) {}
  void check(const RecordChain& chain);

 private:
  void checkChain(const RecordChain& chain, const RecordUse& heads, const RecordUse& links,
                  std::int64_t head);
  bool hasRoom(const LogicalView& file, std::int32_t position, char opcode);

  CheckRun& run_;
  std::vector<std::int64_t> owner_;  // by linked record: the head whose chain has it; 0 for none
};

}  // namespace dg::check
