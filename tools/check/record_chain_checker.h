#pragma once

#include <string_view>
#include <vector>

#include "records/floor_plan.h"
#include "records/units.h"
#include "tools/check/check_run.h"

namespace dg::check {

/// A chain of records that a record of another file begins.
struct RecordChain {
  std::string_view headFile;  ///< whose records have chains
  NumberField first;          ///< the first record's number; 0: no chain
  std::string_view linkFile;
  NumberField next;       ///< the next record's number; 0: the end
  std::string_view noun;  ///< what is chained, for people
};

/// The ledger entries of units and the extents of floor-plan entries.
inline constexpr RecordChain kRecordChains[] = {
    {files::kUnits, unit_record::kLedgerChain, files::kUnitLedger, unit_ledger::kNext, "ledger"},
    {files::kFloorPlan, floor_plan_record::kExtentChain, files::kFloorPlanExtents,
     floor_plan_extent::kNext, "extent"},
};

/// Examines such chains: they must end, stay among records in use and apart from each other.
class RecordChainChecker {
 public:
  explicit RecordChainChecker(CheckRun& run) : run_(run) {}
  void check(const RecordChain& chain);

 private:
  void checkChain(const RecordChain& chain, const RecordUse& heads, const RecordUse& links,
                  std::int64_t head);
  bool hasRoom(const LogicalView& file, NumberField field);

  CheckRun& run_;
  std::vector<std::int64_t> owner_;  // by linked record: the head whose chain has it; 0 for none
};

}  // namespace dg::check
