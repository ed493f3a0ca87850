#include "tests/support/zip_reader.h"

#include <cstdint>
#include <string_view>
#include <zlib.h>

namespace dg {

namespace {

constexpr std::string_view kDirectoryEntry = "PK\x01\x02";
constexpr std::size_t kDirectoryEntrySize = 46;
constexpr std::size_t kLocalHeaderSize = 30;
constexpr std::uint32_t kStored = 0;
constexpr std::uint32_t kDeflated = 8;

std::uint32_t number(std::string_view bytes, std::size_t offset, std::size_t width) {
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < width && offset + i < bytes.size(); ++i) {
    value |= std::uint32_t{static_cast<unsigned char>(bytes[offset + i])} << (8 * i);
  }
  return value;
}

std::string inflated(std::string_view packed, std::size_t length) {
  std::string content(length, '\0');
  std::string input(packed);
  z_stream stream{};
  if (inflateInit2(&stream, -MAX_WBITS) != Z_OK) return {};
  stream.next_in = reinterpret_cast<Bytef*>(input.data());
  stream.avail_in = static_cast<uInt>(input.size());
  stream.next_out = reinterpret_cast<Bytef*>(content.data());
  stream.avail_out = static_cast<uInt>(content.size());
  const int result = inflate(&stream, Z_FINISH);
  inflateEnd(&stream);
  return result == Z_STREAM_END ? content : std::string();
}

}  // namespace

std::string zipMember(const std::string& archive, const std::string& name) {
  const std::string_view bytes = archive;
  for (std::size_t at = bytes.find(kDirectoryEntry); at != std::string_view::npos;
       at = bytes.find(kDirectoryEntry, at + 1)) {
    const std::size_t nameLength = number(bytes, at + 28, 2);
    if (at + kDirectoryEntrySize > bytes.size()) break;
    if (bytes.substr(at + kDirectoryEntrySize, nameLength) != name) continue;
    const std::size_t local = number(bytes, at + 42, 4);
    const std::size_t start =
        local + kLocalHeaderSize + number(bytes, local + 26, 2) + number(bytes, local + 28, 2);
    if (start > bytes.size()) break;
    const std::string_view packed = bytes.substr(start, number(bytes, at + 20, 4));
    const std::uint32_t method = number(bytes, at + 10, 2);
    std::string content;
    if (method == kStored) content = packed;
    if (method == kDeflated) content = inflated(packed, number(bytes, at + 24, 4));
    const uLong sum =
        crc32(0, reinterpret_cast<const Bytef*>(content.data()), static_cast<uInt>(content.size()));
    return sum == number(bytes, at + 16, 4) ? content : std::string();
  }
  return {};
}

}  // namespace dg
