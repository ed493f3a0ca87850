#include "records/page_record.h"

#include "records/read.h"

namespace dg {

PageRecord PageRecord::read(const char* file, std::int32_t record) {
  return PageRecord(readRecord(file, record));
}

std::int32_t PageRecord::requestNumber() const {
  return Unpack(page_record::kRequest, bytes_);
}

std::int32_t PageRecord::pageNumber() const {
  return Unpack(page_record::kNumber, bytes_);
}

std::int32_t PageRecord::lineCount() const {
  return Unpack(page_record::kLineCount, bytes_);
}

std::int32_t PageRecord::link() const {
  return Unpack(page_record::kLink, bytes_);
}

std::string_view PageRecord::line(std::int32_t number) const {
  using namespace page_record;
  return bytesOf({.position = kLines + kLineWidth * (number - 1), .width = kLineWidth}, bytes_);
}

}  // namespace dg
