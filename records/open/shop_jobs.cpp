#include "records/open/shop_jobs.h"

#include "records/control_file.h"
#include "records/customer_lookup.h"
#include "records/file_names.h"
#include "records/open/open_work.h"
#include "records/read.h"

namespace dg {

namespace {

// The job table: two ranges of blocks of the control file, 128 four-byte slots in each.
constexpr std::int32_t kFirstBlock = 451;
constexpr std::int32_t kEndOfFirstRange = 459;
constexpr std::int32_t kSecondRange = 501;
constexpr std::int32_t kLastBlock = 571;
constexpr std::int32_t kSlotsPerBlock = 128;
constexpr std::int32_t kSlotWidth = 4;
constexpr std::int32_t kFirstJobOfSecondRange = 1000;

constexpr std::string_view kBilled = "B";

std::int32_t slot(const std::string& block, std::int32_t index) {
  return Unpack('L', block, 1 + kSlotWidth * index);
}

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
  for (std::int32_t block = kFirstBlock; block <= kLastBlock; ++block) {
    if (block == kEndOfFirstRange) block = kSecondRange;
    const std::string slots = readControlBlock(block);
    for (std::int32_t index = 0; index < kSlotsPerBlock; ++index) {
      const std::int32_t recordNumber = slot(slots, index);
      if (recordNumber < 1) continue;
      const std::string record = readRecord(files::kInvoices, recordNumber);
      job.Unpack(record);
      job.RecordText = record;
      if (job.Status == kBilled) continue;
      visit({job, record});
      report.add([&job] { return workOf(job); });
    }
  }
  report.end();
}

/// The second range counts its blocks from job 999 and its slots from 0: the table is addressed so.
std::int32_t GetJob(std::int32_t job) {
  const std::int32_t block = job < kFirstJobOfSecondRange
                                 ? kFirstBlock + job / kSlotsPerBlock
                                 : kSecondRange + (job - 999) / kSlotsPerBlock;
  return slot(readControlBlock(block), job % kSlotsPerBlock);
}

}  // namespace dg
