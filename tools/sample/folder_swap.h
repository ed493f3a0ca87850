#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace dg::sample {

/// Replaces an example store's folder by a new one in a single step. The new files go into a
/// sibling folder; commit() puts that in the place of the old one. Without commit() the sibling
/// goes away and the old store stands as it was.
class FolderSwap {
 public:
  /// Raises 75 when something stands at `folder` that is no example store and no empty folder, and
  /// 70, 75 or 76 when the sibling cannot be made.
  explicit FolderSwap(const std::string& folder);
  ~FolderSwap();
  FolderSwap(const FolderSwap&) = delete;
  FolderSwap& operator=(const FolderSwap&) = delete;

  /// Writes a file of the new folder; `path` is parted by "/". Raises 57, 61, 70, 75 or 76.
  void write(std::string_view path, std::string_view content);
  /// Puts the new folder in place and removes the old one. Raises 70 or 75.
  void commit();

 private:
  std::filesystem::path target_;
  std::filesystem::path staging_;  // empty once it is in place
};

}  // namespace dg::sample
