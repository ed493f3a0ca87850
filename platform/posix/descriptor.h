#pragma once

#include <string_view>
#include <unistd.h>
#include <utility>

namespace dg {

/// Owns a file descriptor.
class Descriptor {
 public:
  explicit Descriptor(int value = -1) : value_(value) {}
  ~Descriptor() {
    if (value_ >= 0) ::close(value_);
  }
  Descriptor(Descriptor&& other) noexcept : value_(std::exchange(other.value_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(value_, other.value_);
    return *this;
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  int get() const { return value_; }
  bool isOpen() const { return value_ >= 0; }
  /// Gives up the descriptor unclosed.
  int release() { return std::exchange(value_, -1); }

 private:
  int value_;
};

/// Opens with `flags` as open(2) does, closed in child processes, again after an interruption, and
/// never as one of the standard streams.
/// The descriptor is not open when that fails; errno tells why.
Descriptor openDescriptor(const char* path, int flags, unsigned mode = 0);

/// Writes all of `data` where the descriptor stands. Raises 57, 61 or 70.
void writeFully(int descriptor, std::string_view data);

}  // namespace dg
