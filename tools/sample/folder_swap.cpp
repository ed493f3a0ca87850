#include "tools/sample/folder_swap.h"

#include <cerrno>
#include <fstream>
#include <system_error>

#include "platform/values/run_time_error.h"

namespace dg::sample {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void raise(const std::error_code& error) {
  if (error == std::errc::permission_denied || error == std::errc::operation_not_permitted ||
      error == std::errc::read_only_file_system) {
    throw RunTimeError(kPermissionDenied);
  }
  if (error == std::errc::no_such_file_or_directory) throw RunTimeError(kPathNotFound);
  if (error == std::errc::no_space_on_device) throw RunTimeError(kDiskFull);
  if (error == std::errc::io_error) throw RunTimeError(kDeviceIoError);
  throw RunTimeError(kPathFileAccess);
}

void requireNone(const std::error_code& error) {
  if (error) raise(error);
}

std::error_code lastError() {
  return {errno != 0 ? errno : EIO, std::generic_category()};
}

/// Whether a folder holds an example store and nothing else. Only such a folder may be replaced: a
/// mistyped name must not cost anybody's files.
bool isExampleStore(const fs::path& folder) {
  std::error_code error;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder, error)) {
    const fs::path name = entry.path().filename();
    if (name != "share" && name != "temp" && name != "config") return false;
  }
  return !error && fs::exists(folder / "temp" / "cQTCatalog.ini", error) &&
         fs::is_directory(folder / "share", error);
}

/// A name beside `target` that nothing has.
fs::path unusedSibling(const fs::path& target, const char* ending) {
  std::error_code error;
  fs::path candidate = target;
  candidate += ending;
  for (int number = 2; fs::exists(fs::symlink_status(candidate, error)); ++number) {
    candidate = target;
    candidate += ending + std::to_string(number);
  }
  return candidate;
}

}  // namespace

FolderSwap::FolderSwap(const std::string& folder) {
  std::error_code error;
  if (folder.empty()) throw RunTimeError(kPathNotFound);
  target_ = fs::weakly_canonical(fs::absolute(folder, error), error);
  requireNone(error);
  if (!target_.has_filename()) target_ = target_.parent_path();
  const fs::file_status status = fs::status(target_, error);
  if (fs::exists(status)) {
    const bool replaceable =
        fs::is_directory(status) && (fs::is_empty(target_, error) || isExampleStore(target_));
    if (!replaceable || !target_.has_relative_path()) throw RunTimeError(kPathFileAccess);
  }
  staging_ = unusedSibling(target_, ".part");
  fs::create_directories(staging_, error);
  if (error) {
    staging_.clear();
    raise(error);
  }
}

FolderSwap::~FolderSwap() {
  std::error_code ignored;
  if (!staging_.empty()) fs::remove_all(staging_, ignored);
}

void FolderSwap::write(std::string_view path, std::string_view content) {
  const fs::path file = staging_ / fs::path(path);
  std::error_code error;
  fs::create_directories(file.parent_path(), error);
  requireNone(error);
  errno = 0;
  std::ofstream stream(file, std::ios::binary | std::ios::trunc);
  if (!stream) raise(lastError());
  stream.write(content.data(), static_cast<std::streamsize>(content.size()));
  stream.close();
  if (!stream) raise(lastError());
}

void FolderSwap::commit() {
  std::error_code error;
  fs::path old;
  if (fs::exists(target_, error)) {
    old = unusedSibling(target_, ".old");
    fs::rename(target_, old, error);
    requireNone(error);
  }
  fs::rename(staging_, target_, error);
  if (error) {
    std::error_code ignored;
    if (!old.empty()) fs::rename(old, target_, ignored);
    raise(error);
  }
  staging_.clear();
  std::error_code ignored;
  if (!old.empty()) fs::remove_all(old, ignored);
}

}  // namespace dg::sample
