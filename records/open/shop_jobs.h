#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "records/shop.h"

namespace dg {

/// A job that the job table of the control file names and that is not billed.
struct OpenJob {
  const clsShop& job;
  const std::string& record;  ///< the job's bytes
};

/// Calls `visit` for each open job, block by block and slot by slot. One instance serves them all:
/// what it keeps from one record shows in the next. Raises what the engine and `visit` raise.
void forEachOpenJob(const std::function<void(const OpenJob&)>& visit);

/// The "INVOL" record of a job, from its slot in the job table. Raises what the engine raises.
std::int32_t GetJob(std::int32_t job);

}  // namespace dg
