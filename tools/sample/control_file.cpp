#include "tools/sample/control_file.h"

#include "engine/open_file.h"
#include "platform/run_time_error.h"
#include "tools/sample/record_writer.h"

namespace dg::sample {

namespace {

constexpr int kBlocks = 580;
constexpr std::size_t kSlotSize = 4;
constexpr std::size_t kJobsPerBlock = 128;
constexpr std::size_t kGroupSize = 128;
constexpr std::size_t kGroupsPerBlock = 4;
constexpr std::size_t kGroupHeader = 4;
constexpr std::size_t kInvoicesPerGroup = 31;

struct BlockRange {
  int first;
  int last;
};
constexpr BlockRange kJobBlocks[] = {{451, 458}, {501, 571}};
constexpr BlockRange kSavedInvoiceBlocks = {301, 325};

std::size_t blockOffset(int number) {
  return static_cast<std::size_t>(number) * kBlockSize;
}

}  // namespace

ControlFile::ControlFile() : bytes_(blockOffset(kBlocks), '\0') {
  for (const BlockRange& range : kJobBlocks) {
    for (int number = range.first; number <= range.last; ++number) {
      for (std::size_t slot = 0; slot < kJobsPerBlock; ++slot)
        jobSlots_.push_back(blockOffset(number) + slot * kSlotSize);
    }
  }
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

bool ControlFile::fillSlot(Random& random, std::vector<std::size_t>& slots, std::int32_t record) {
  if (slots.empty()) return false;
  const auto chosen = static_cast<std::size_t>(random.below(slots.size()));
  bytes_.replace(slots[chosen], kSlotSize, integerKey('L', record, kSlotSize));
  slots[chosen] = slots.back();
  slots.pop_back();
  return true;
}

}  // namespace dg::sample
