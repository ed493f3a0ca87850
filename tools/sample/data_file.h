#pragma once

#include <string>
#include <string_view>

#include "tools/sample/logical_image.h"

namespace dg::sample {

/// A physical data file and its directory file: logical files one behind the other, each from a
/// block boundary on.
class DataFile {
 public:
  DataFile();

  /// Lays a logical file behind those already there. Raises 6 when the data file outgrows what a
  /// directory entry can tell.
  void add(std::string_view name, const LogicalImage& image);

  const std::string& directory() const { return directory_; }
  const std::string& data() const { return data_; }
  /// Gives the data's bytes away, which can be many.
  std::string takeData() { return std::move(data_); }

 private:
  std::string directory_;
  std::string data_;
};

}  // namespace dg::sample
