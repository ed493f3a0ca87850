#include <array>
#include <cstring>
#include <memory>

#include "platform/file.h"
#include "platform/values/run_time_error.h"

namespace dg {

namespace {

/// The run-time's numbers go from 1 to this one.
constexpr std::int32_t kLastNumber = 511;

/// A text of the run-time holds no more bytes; a damaged length must not ask for more.
constexpr std::size_t kLongestText = 0x7fffffff;

/// By number; empty where none is open.
std::array<std::unique_ptr<File>, kLastNumber + 1>& openNumbers() {
  static std::array<std::unique_ptr<File>, kLastNumber + 1> files;
  return files;
}

bool canBeOpen(std::int32_t number) {
  return number >= 1 && number <= kLastNumber;
}

/// The place of a number that can be open.
std::unique_ptr<File>& placeOf(std::int32_t number) {
  return openNumbers()[static_cast<std::size_t>(number)];
}

File& numbered(std::int32_t number) {
  if (!canBeOpen(number) || !placeOf(number)) throw RunTimeError(kBadFileNumber);
  return *placeOf(number);
}

}  // namespace

std::int32_t FreeFile() {
  std::int32_t number = 1;
  while (number <= kLastNumber && placeOf(number))
    ++number;
  if (number > kLastNumber) throw RunTimeError(kTooManyFiles);
  return number;
}

void openNumbered(std::int32_t number, const std::string& path, FileAccess access) {
  if (!canBeOpen(number)) throw RunTimeError(kBadFileNumber);
  if (placeOf(number)) throw RunTimeError(kFileAlreadyOpen);
  placeOf(number) = fileSystem().open(path, access);
}

std::string readNumbered(std::int32_t number, std::int64_t offset, std::size_t count) {
  numbered(number);
  if (count > kLongestText) throw RunTimeError(kOutOfMemory);
  std::string bytes(count, '\0');
  readNumbered(number, offset, bytes.data(), count);
  return bytes;
}

void readNumbered(std::int32_t number, std::int64_t offset, char* buffer, std::size_t count) {
  File& file = numbered(number);
  if (offset < 0) throw RunTimeError(kBadRecordNumber);
  const std::size_t there = file.read(offset, buffer, count);
  if (there < count) std::memset(buffer + there, 0, count - there);
}

void writeNumbered(std::int32_t number, std::int64_t offset, std::string_view data) {
  File& file = numbered(number);
  if (offset < 0) throw RunTimeError(kBadRecordNumber);
  file.write(offset, data);
}

std::int64_t fileLength(std::int32_t number) {
  return numbered(number).size();
}

void closeNumbered(std::int32_t number) {
  if (canBeOpen(number)) placeOf(number).reset();
}

}  // namespace dg
