#pragma once

#include <array>
#include <cstdint>
#include <cstring>

namespace dg {

/// Four address bytes in network order as one little-endian integer, on any machine.
inline std::int32_t integerFromNetworkBytes(const void* address) {
  std::array<unsigned char, 4> bytes = {};
  std::memcpy(bytes.data(), address, bytes.size());
  std::uint32_t value = 0;
  for (std::size_t i = bytes.size(); i-- > 0;)
    value = value << 8 | bytes[i];
  return static_cast<std::int32_t>(value);
}

/// The reverse: the integer's four bytes, the lowest first.
inline std::array<unsigned char, 4> networkBytesFromInteger(std::int32_t integer) {
  const auto value = static_cast<std::uint32_t>(integer);
  return {static_cast<unsigned char>(value), static_cast<unsigned char>(value >> 8),
          static_cast<unsigned char>(value >> 16), static_cast<unsigned char>(value >> 24)};
}

}  // namespace dg
