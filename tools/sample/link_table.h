#pragma once

#include <string>
#include <string_view>

namespace dg::sample {

/// The link table of a server: 160-byte entries, with the padding in all forms that occur.
class LinkTable {
 public:
  /// Adds the link ":directory:name", resolved by a directory file below the link share.
  void add(std::string_view directory, std::string_view name, std::string_view resolution);
  /// Adds an entry whose names are all padding.
  void addUnused();

  /// The table, its last entry cut short behind its names' text.
  std::string bytes() const;

 private:
  std::string bytes_;
  int entries_ = 0;
};

}  // namespace dg::sample
