#include "tools/check/logical_view.h"

#include <algorithm>
#include <limits>

#include "engine/open_file.h"

namespace dg::check {

std::int64_t LogicalView::begin() const {
  return std::int64_t{entry.Position} * kBlockSize;
}

std::int64_t LogicalView::end() const {
  return recordOffset(std::int64_t{entry.LastRecord} + 1);
}

std::int64_t LogicalView::recordOffset(std::int64_t record) const {
  return begin() + record * entry.RecordLength;
}

std::int64_t LogicalView::blockOffset(std::int64_t block) const {
  return begin() + block * kBlockSize;
}

std::int64_t LogicalView::lastStored() const {
  const std::int64_t bytes =
      std::min<std::int64_t>(data->size(), std::numeric_limits<std::int32_t>::max()) - begin();
  if (bytes <= 0 || entry.RecordLength <= 0) return -1;
  return std::min<std::int64_t>(entry.LastRecord, (bytes - 1) / entry.RecordLength);
}

std::string LogicalView::record(std::int64_t number) const {
  return data->bytes(recordOffset(number), static_cast<std::size_t>(entry.RecordLength));
}

std::string LogicalView::block(std::int64_t number) const {
  return data->bytes(blockOffset(number), kBlockSize);
}

Place LogicalView::whole() const {
  return {.file = name, .physical = data->name()};
}

Place LogicalView::atRecord(std::int64_t number, std::int64_t within) const {
  return {.file = name,
          .physical = data->name(),
          .unit = Unit::kRecord,
          .number = number,
          .offset = recordOffset(number) + within};
}

Place LogicalView::atBlock(std::int64_t number, std::int64_t within) const {
  return {.file = name,
          .physical = data->name(),
          .unit = Unit::kBlock,
          .number = number,
          .offset = blockOffset(number) + within};
}

}  // namespace dg::check
