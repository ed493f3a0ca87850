#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string_view>
#include <utility>

namespace dg::sample {

/// A stream of random numbers that is the same on every machine: splitmix64, and helpers that use
/// integers only. The library's own distributions differ from one library to the next.
///
/// Draw once in an expression: the order in which a call's arguments are worked out is the
/// compiler's choice.
class Random {
 public:
  /// The stream of a seed and a name. Streams of different names have nothing to do with each
  /// other, so that what one draws does not change what another gets.
  Random(std::uint64_t seed, std::string_view name) : state_(mix(seed)) {
    std::uint64_t hash = 0xcbf29ce484222325U;  // FNV-1a of the name
    for (const char c : name)
      hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3U;
    state_ ^= mix(hash);
  }

  std::uint64_t next() { return mix(state_ += 0x9e3779b97f4a7c15U); }

  /// A number from 0 to count - 1; count must not be 0.
  std::uint64_t below(std::uint64_t count) {
    const std::uint64_t unfair = (0 - count) % count;  // 2^64 mod count
    std::uint64_t value = next();
    while (value < unfair)
      value = next();
    return value % count;
  }
  /// A number from `low` to `high`, both included.
  std::int32_t between(std::int32_t low, std::int32_t high) {
    const auto count = static_cast<std::uint64_t>(std::int64_t{high} - low) + 1;
    return static_cast<std::int32_t>(low + static_cast<std::int64_t>(below(count)));
  }
  /// True in `percent` of all cases.
  bool chance(int percent) { return between(1, 100) <= percent; }

  /// One of the items of an array or vector that is not empty.
  template <class Range>
  const auto& pick(const Range& items) {
    return items[static_cast<std::size_t>(below(std::size(items)))];
  }

  template <class Range>
  void shuffle(Range& items) {
    for (std::size_t left = std::size(items); left > 1; --left) {
      using std::swap;
      swap(items[left - 1], items[static_cast<std::size_t>(below(left))]);
    }
  }

 private:
  static constexpr std::uint64_t mix(std::uint64_t value) {
    value = (value ^ (value >> 30)) * 0xbf58476d1ce4e5b9U;
    value = (value ^ (value >> 27)) * 0x94d049bb133111ebU;
    return value ^ (value >> 31);
  }

  std::uint64_t state_;
};

}  // namespace dg::sample
