#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace dg::fuzz {

/// The bytes of one run, taken from the front.
class FuzzInput {
 public:
  FuzzInput(const std::uint8_t* data, std::size_t size)
      : rest_(reinterpret_cast<const char*>(data), size) {}

  bool empty() const { return rest_.empty(); }

  /// A big-endian number of `width` bytes, at most four; missing bytes count as 0.
  std::uint32_t number(std::size_t width) {
    std::uint32_t value = 0;
    for (const char byte : std::string(bytes(width))) {
      value = value << 8 | static_cast<unsigned char>(byte);
    }
    return value;
  }
  std::int32_t signedNumber() { return static_cast<std::int32_t>(number(4)); }

  /// Up to `count` bytes.
  std::string_view bytes(std::size_t count) {
    const std::string_view taken = rest_.substr(0, count);
    rest_.remove_prefix(taken.size());
    return taken;
  }
  /// Bytes behind a two-byte length.
  std::string_view block() { return bytes(number(2)); }
  std::string_view rest() { return bytes(rest_.size()); }

 private:
  std::string_view rest_;
};

}  // namespace dg::fuzz
