#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "platform/file.h"

namespace dg::check {

/// A file of the share for reading bytes at any place.
class StoreFile {
 public:
  /// `name` is the path below the link share, for people.
  StoreFile(std::string name, std::unique_ptr<File> file);

  const std::string& name() const { return name_; }
  /// Length in bytes when it was opened.
  std::int64_t size() const { return size_; }
  /// `count` bytes from `offset` on; those beyond the file's end are NUL. Raises 57, and 63 for a
  /// negative offset.
  std::string bytes(std::int64_t offset, std::size_t count);

 private:
  std::string name_;
  std::unique_ptr<File> file_;
  std::int64_t size_;
};

}  // namespace dg::check
