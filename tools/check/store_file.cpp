#include "tools/check/store_file.h"

#include <algorithm>
#include <utility>

#include "platform/run_time_error.h"

namespace dg::check {

namespace {

constexpr std::int64_t kPieceSize = 65'536;
constexpr std::size_t kMostPieces = 64;

}  // namespace

StoreFile::StoreFile(std::string name, std::unique_ptr<File> file)
    : name_(std::move(name)), file_(std::move(file)), size_(file_->size()) {}

std::string StoreFile::bytes(std::int64_t offset, std::size_t count) {
  if (offset < 0) throw RunTimeError(kBadRecordNumber);
  std::string result;
  result.reserve(count);
  while (result.size() < count && offset < size_) {
    const std::string& source = piece(offset / kPieceSize);
    const auto begin = static_cast<std::size_t>(offset % kPieceSize);
    if (begin >= source.size()) break;  // cut off since it was opened
    const std::size_t taken = std::min(count - result.size(), source.size() - begin);
    result.append(source, begin, taken);
    offset += static_cast<std::int64_t>(taken);
  }
  result.resize(count, '\0');
  return result;
}

const std::string& StoreFile::piece(std::int64_t number) {
  const auto known = pieces_.find(number);
  if (known != pieces_.end()) return known->second;
  if (pieces_.size() >= kMostPieces) pieces_.clear();
  std::string content(static_cast<std::size_t>(kPieceSize), '\0');
  content.resize(file_->read(number * kPieceSize, content.data(), content.size()));
  return pieces_.emplace(number, std::move(content)).first->second;
}

}  // namespace dg::check
