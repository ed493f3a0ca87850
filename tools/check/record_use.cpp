#include "tools/check/record_use.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "engine/record_zero.h"
#include "tools/check/text.h"

namespace dg::check {

namespace {

constexpr std::int64_t kChunk = 65'536;
constexpr std::size_t kLinkBegin = within(kNextFreeRecord);
constexpr std::size_t kLinkEnd = kLinkBegin + kNextFreeRecord.width();

bool isNul(std::string_view bytes) {
  return bytes.find_first_not_of('\0') == std::string_view::npos;
}

RecordState stateOf(std::string_view record) {
  if (numberOf(kRecordInUse, record) > 0) return RecordState::kInUse;
  const bool restIsNul = isNul(record.substr(0, kLinkBegin)) &&
                         (record.size() <= kLinkEnd || isNul(record.substr(kLinkEnd)));
  if (!restIsNul) return RecordState::kOther;
  return isNul(record) ? RecordState::kBlank : RecordState::kCleared;
}

}  // namespace

RecordUse::RecordUse(const LogicalView& file, InUse inUse) : file_(&file), inUse_(inUse) {
  const std::int64_t last = std::max<std::int64_t>(file.lastStored(), 0);
  const std::int64_t length = file.entry.RecordLength;
  states_.assign(static_cast<std::size_t>(last + 1), RecordState::kBlank);
  if (length <= 0) return;
  const std::int64_t perChunk = std::max<std::int64_t>(1, kChunk / length);
  for (std::int64_t first = 1; first <= last; first += perChunk) {
    const std::int64_t count = std::min(perChunk, last - first + 1);
    const std::string bytes =
        file.data->bytes(file.recordOffset(first), static_cast<std::size_t>(count * length));
    for (std::int64_t i = 0; i < count; ++i) {
      states_[static_cast<std::size_t>(first + i)] = stateOf(std::string_view(bytes).substr(
          static_cast<std::size_t>(i * length), static_cast<std::size_t>(length)));
    }
  }
}

RecordState RecordUse::state(std::int64_t record) const {
  if (record < 1 || record > last()) return RecordState::kBlank;
  return states_[static_cast<std::size_t>(record)];
}

bool RecordUse::isUsed(std::int64_t record) const {
  const RecordState seen = state(record);
  return seen == RecordState::kInUse || (seen == RecordState::kOther && inUse_ == InUse::kContent);
}

}  // namespace dg::check
