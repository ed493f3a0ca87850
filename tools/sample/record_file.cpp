#include "tools/sample/record_file.h"

#include <algorithm>

#include "engine/open_file.h"
#include "platform/values/run_time_error.h"
#include "tools/sample/record_writer.h"

namespace dg::sample {

namespace {

constexpr int kRecordZeroSize = 16;
constexpr std::int32_t kSpareRecords = 5;

}  // namespace

RecordFile::RecordFile(int recordLength)
    : recordLength_(recordLength), bytes_(static_cast<std::size_t>(recordLength), '\0') {
  if (recordLength < kRecordZeroSize) throw RunTimeError(kInvalidProcedureCall);
}

std::string RecordFile::padded(std::string_view record) const {
  std::string result(record);
  if (result.size() > static_cast<std::size_t>(recordLength_))
    throw RunTimeError(36, "RecordFile", "The record is longer than its file's records");
  result.resize(static_cast<std::size_t>(recordLength_), '\0');
  return result;
}

std::int32_t RecordFile::add(std::string_view record) {
  bytes_ += padded(record);
  ++active_;
  return ++highUsed_;
}

void RecordFile::free(std::int32_t number) {
  replace(number, RecordWriter(recordLength_).integer(3, 'L', freeHead_).bytes());
  freeHead_ = number;
  --active_;
}

void RecordFile::replace(std::int32_t number, std::string_view record) {
  if (number < 1 || number > highUsed_)
    throw RunTimeError(81, "RecordFile", "Illegal Record Number");
  const auto length = static_cast<std::size_t>(recordLength_);
  bytes_.replace(static_cast<std::size_t>(number) * length, length, padded(record));
}

void RecordFile::reserve(std::int32_t lastRecord) {
  capacity_ = std::max(capacity_, lastRecord);
}

LogicalImage RecordFile::image() const {
  LogicalImage image;
  image.fileType = 'L';
  image.recordLength = recordLength_;
  image.lastRecord = std::max(capacity_, highUsed_ + kSpareRecords);
  const auto size =
      (static_cast<std::size_t>(image.lastRecord) + 1) * static_cast<std::size_t>(recordLength_);
  image.bytes.reserve(size);
  image.bytes = bytes_;
  image.bytes.resize(size, '\0');
  const std::string recordZero = RecordWriter(kRecordZeroSize)
                                     .integer(1, 'J', -2)
                                     .integer(3, 'L', freeHead_)
                                     .integer(7, 'L', highUsed_)
                                     .integer(11, 'L', active_)
                                     .bytes();
  image.bytes.replace(0, recordZero.size(), recordZero);
  return image;
}

std::int32_t ExtendedRecordFile::add(std::string_view record) {
  const auto cut = std::min(record.size(), static_cast<std::size_t>(main_.recordLength()));
  extension_.add(record.substr(cut));
  return main_.add(record.substr(0, cut));
}

void ExtendedRecordFile::addFreed() {
  main_.addFreed();
  extension_.addFreed();
}

}  // namespace dg::sample
