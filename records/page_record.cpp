#include "records/page_record.h"

#include "engine/codec.h"
#include "platform/text.h"
#include "records/read.h"

namespace dg {

namespace {

constexpr std::int32_t kRequestPosition = 97;
constexpr std::int32_t kLinkPosition = 110;
constexpr std::int32_t kPagePosition = 115;
constexpr std::int32_t kLineCountPosition = 146;
constexpr std::int32_t kLinesPosition = 161;

}  // namespace

PageRecord PageRecord::read(const char* file, std::int32_t record) {
  return PageRecord(readRecord(file, record));
}

std::int32_t PageRecord::requestNumber() const {
  return Unpack('B', bytes_, kRequestPosition);
}

std::int32_t PageRecord::pageNumber() const {
  return Unpack('B', bytes_, kPagePosition);
}

std::int32_t PageRecord::lineCount() const {
  return Unpack('B', bytes_, kLineCountPosition);
}

std::int32_t PageRecord::link() const {
  return Unpack('K', bytes_, kLinkPosition);
}

std::string_view PageRecord::line(std::int32_t number) const {
  const std::int32_t position = kLinesPosition + kLineWidth * (number - 1);
  return middle(bytes_, static_cast<std::size_t>(position), kLineWidth);
}

}  // namespace dg
