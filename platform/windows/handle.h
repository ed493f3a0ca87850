#pragma once

#include <string_view>
#include <utility>
#include <windows.h>

namespace dg {

/// Owns a file handle.
class Handle {
 public:
  explicit Handle(HANDLE value = INVALID_HANDLE_VALUE) : value_(value) {}
  ~Handle() { close(); }
  Handle(Handle&& other) noexcept : value_(std::exchange(other.value_, INVALID_HANDLE_VALUE)) {}
  Handle& operator=(Handle&& other) noexcept {
    std::swap(value_, other.value_);
    return *this;
  }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;

  HANDLE get() const { return value_; }
  bool isOpen() const { return value_ != INVALID_HANDLE_VALUE; }
  void close() {
    if (isOpen()) ::CloseHandle(value_);
    value_ = INVALID_HANDLE_VALUE;
  }

 private:
  HANDLE value_;
};

/// Writes all of `data` where the handle stands. Raises 57, 61 or 70.
void writeFully(HANDLE file, std::string_view data);

}  // namespace dg
