#include "tools/sample/data_file.h"

#include "engine/logical_file.h"
#include "engine/open_file.h"
#include "platform/values/run_time_error.h"
#include "tools/sample/record_writer.h"

namespace dg::sample {

namespace {

constexpr std::size_t kFirstBlock = 2;  // the suite keeps the first blocks for itself

/// A directory entry; `flags` lie in the last bytes of the name.
std::string directoryEntry(std::string_view name, std::int32_t flags, std::size_t block,
                           const LogicalImage& image) {
  RecordWriter entry(DirectoryEntry::kSize);
  entry.raw(1, static_cast<int>(name.size()), name);
  if (flags != 0) entry.integer(7, 'C', flags);
  return entry.integer(11, 'D', static_cast<std::int64_t>(block))
      .integer(14, 'C', image.recordLength)
      .raw(16, 1, std::string_view(&image.fileType, 1))
      .integer(17, 'L', image.lastRecord)
      .bytes();
}

}  // namespace

DataFile::DataFile() : data_(kFirstBlock * kBlockSize, '\0') {}

void DataFile::add(std::string_view name, const LogicalImage& image) {
  // A flagged entry of the same name comes first: its flags make it another name to a reader.
  if (directory_.empty()) directory_ = directoryEntry(name, 0x4F4C, 0, LogicalImage());
  directory_ += directoryEntry(name, 0, data_.size() / kBlockSize, image);
  const std::size_t size = data_.size() + image.bytes.size();
  const std::size_t blocks = (size + kBlockSize - 1) / kBlockSize;
  // Readers compute byte offsets in 32 bits.
  if (blocks >= (std::size_t{1} << 31) / kBlockSize) throw RunTimeError(kOverflow);
  data_.reserve(blocks * kBlockSize);
  data_ += image.bytes;
  data_.resize(blocks * kBlockSize, '\0');
}

}  // namespace dg::sample
