#include "tools/check/store_file.h"

#include <algorithm>
#include <utility>

#include "platform/values/run_time_error.h"

namespace dg::check {

StoreFile::StoreFile(std::string name, std::unique_ptr<File> file)
    : name_(std::move(name)), file_(std::move(file)), size_(file_->size()) {}

std::string StoreFile::bytes(std::int64_t offset, std::size_t count) {
  if (offset < 0) throw RunTimeError(kBadRecordNumber);
  std::string result(count, '\0');
  const std::int64_t there = std::max<std::int64_t>(size_ - offset, 0);
  const auto wanted = std::min(static_cast<std::int64_t>(count), there);
  if (wanted > 0) file_->read(offset, result.data(), static_cast<std::size_t>(wanted));
  return result;
}

}  // namespace dg::check
