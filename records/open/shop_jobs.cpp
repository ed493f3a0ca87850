#include "records/open/shop_jobs.h"

#include "records/control_file.h"
#include "records/customer_lookup.h"
#include "records/file_names.h"
#include "records/open/open_work.h"
#include "records/read.h"

namespace dg {

namespace {

using namespace control_file;

constexpr std::int32_t kFirstJobOfSecondRange = 1000;

constexpr std::string_view kBilled = "B";

OpenWork workOf(const clsShop& job) {
  const std::string number = std::to_string(job.JobNumber);
  return {.what = number,
          .who = customerName(job.Account),
          .amount = job.Sub_Total,
          .date = job.DateCheckedIn,
          .completed = job.DateCompleted,
          .promised = job.PromiseDate,
          .status = job.Status,
          .row = {.view = "frmShop", .grid = "grdShop", .first = {"Job #", number}, .second = {}}};
}

}  // namespace

void forEachOpenJob(const std::function<void(const OpenJob&)>& visit) {
  OpenWorkReport report(OpenFamily::kShop);
  clsShop job;
  const auto visitBlock = [&](const std::string& slots) {
    for (std::int32_t slot = 0; slot < kJobsPerBlock; ++slot) {
      const std::int32_t recordNumber = Unpack(jobSlot(slot), slots);
      if (recordNumber < 1) continue;
      const std::string record = readRecord(files::kInvoices, recordNumber);
      job.Unpack(record);
      job.RecordText = record;
      if (job.Status == kBilled) continue;
      visit({job, record});
      report.add([&job] { return workOf(job); });
    }
  };
  for (const Blocks& range : kJobs) {
    for (std::int32_t block = range.first; block <= range.last; ++block)
      visitBlock(readControlBlock(block));
  }
  report.end();
}

/// The second range counts its blocks from job 999 and its slots from 0: the table is addressed so.
std::int32_t GetJob(std::int32_t job) {
  const std::int32_t block = job < kFirstJobOfSecondRange
                                 ? kJobs[0].first + job / kJobsPerBlock
                                 : kJobs[1].first + (job - 999) / kJobsPerBlock;
  return Unpack(jobSlot(job % kJobsPerBlock), readControlBlock(block));
}

}  // namespace dg
