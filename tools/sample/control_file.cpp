#include "tools/sample/control_file.h"

#include "engine/open_file.h"
#include "platform/values/run_time_error.h"
#include "tools/sample/record_writer.h"

namespace dg::sample {

namespace {

constexpr int kBlocks = 580;
constexpr std::size_t kSlotSize = 4;
constexpr std::int32_t kJobsPerBlock = 128;
constexpr std::size_t kGroupSize = 128;
constexpr std::size_t kGroupsPerBlock = 4;
constexpr std::size_t kGroupHeader = 4;
constexpr std::size_t kInvoicesPerGroup = 31;

struct BlockRange {
  int first;
  int last;
};
constexpr int kFirstJobBlock = 451;
constexpr int kSecondJobRange = 501;
constexpr std::int32_t kFirstJobOfSecondRange = 1000;
constexpr BlockRange kSavedInvoiceBlocks = {301, 325};

std::size_t blockOffset(int number) {
  return static_cast<std::size_t>(number) * kBlockSize;
}

}  // namespace

ControlFile::ControlFile() : bytes_(blockOffset(kBlocks), '\0') {
  for (int number = kSavedInvoiceBlocks.first; number <= kSavedInvoiceBlocks.last; ++number) {
    for (std::size_t group = 0; group < kGroupsPerBlock; ++group) {
      const std::size_t first = blockOffset(number) + group * kGroupSize + kGroupHeader;
      for (std::size_t slot = 0; slot < kInvoicesPerGroup; ++slot)
        savedInvoiceSlots_.push_back(first + slot * kSlotSize);
    }
  }
}

std::string ControlFile::block(int number) const {
  if (number < 0 || number >= kBlocks) throw RunTimeError(kBadRecordNumber);
  return bytes_.substr(blockOffset(number), kBlockSize);
}

void ControlFile::setBlock(int number, const std::string& bytes) {
  if (number < 0 || number >= kBlocks || bytes.size() != kBlockSize)
    throw RunTimeError(kBadRecordNumber);
  bytes_.replace(blockOffset(number), kBlockSize, bytes);
}

/// The second range counts its blocks from job 999 and its slots from 0.
void ControlFile::setJob(std::int32_t job, std::int32_t record) {
  if (job < 1 || job > kHighestJob) throw RunTimeError(kSubscriptOutOfRange);
  const int block = job < kFirstJobOfSecondRange
                        ? kFirstJobBlock + job / kJobsPerBlock
                        : kSecondJobRange + (job - (kFirstJobOfSecondRange - 1)) / kJobsPerBlock;
  const std::size_t offset =
      blockOffset(block) + static_cast<std::size_t>(job % kJobsPerBlock) * kSlotSize;
  bytes_.replace(offset, kSlotSize, integerKey('L', record, kSlotSize));
}

bool ControlFile::addSavedInvoice(Random& random, std::int32_t record) {
  std::vector<std::size_t>& slots = savedInvoiceSlots_;
  if (slots.empty()) return false;
  const auto chosen = static_cast<std::size_t>(random.below(slots.size()));
  bytes_.replace(slots[chosen], kSlotSize, integerKey('L', record, kSlotSize));
  slots[chosen] = slots.back();
  slots.pop_back();
  return true;
}

}  // namespace dg::sample
