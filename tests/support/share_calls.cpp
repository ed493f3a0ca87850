#include "tests/support/share_calls.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdarg>
#include <cstdlib>
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <mutex>
#include <optional>
#include <set>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace dg::test {
namespace {

struct Watch {
  std::string folder;
  std::optional<ShareFault> fault;
  std::array<std::uint64_t, kShareCalls> counts = {};
  std::set<int> descriptors;
  std::set<const DIR*> folders;
};
Watch* watch = nullptr;
/// A load reads with several threads, and a call that it has given up may outlive a scope.
std::recursive_mutex mutex;
using Lock = std::lock_guard<std::recursive_mutex>;

bool isWatched(const char* path) {
  const Lock lock(mutex);
  return watch != nullptr && std::string_view(path).starts_with(watch->folder);
}

bool isWatched(int descriptor) {
  const Lock lock(mutex);
  return watch != nullptr && watch->descriptors.contains(descriptor);
}

/// Changes what is watched, while anything is.
template <class Change>
void note(Change change) {
  const Lock lock(mutex);
  if (watch != nullptr) change(*watch);
}

/// Counts a call; what shall become of it, 0 for nothing.
int faultOf(ShareCall call) {
  const Lock lock(mutex);
  if (watch == nullptr) return 0;
  const std::uint64_t before = watch->counts[static_cast<std::size_t>(call)]++;
  if (!watch->fault || watch->fault->call != call) return 0;
  const ShareFault& fault = *watch->fault;
  return before == fault.after || (fault.forEver && before > fault.after) ? fault.error : 0;
}

/// Sets errno where a call shall fail.
bool fails(ShareCall call) {
  const int error = faultOf(call);
  if (error != 0) errno = error;
  return error != 0;
}

template <class Function>
Function next(const char* name) {
  return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

}  // namespace

ShareCallScope::ShareCallScope(const std::string& folder) {
  const Lock lock(mutex);
  watch = new Watch{.folder = folder, .fault = std::nullopt, .descriptors = {}, .folders = {}};
}

ShareCallScope::ShareCallScope(const std::string& folder, const ShareFault& fault)
    : ShareCallScope(folder) {
  const Lock lock(mutex);
  watch->fault = fault;
}

ShareCallScope::~ShareCallScope() {
  const Lock lock(mutex);
  delete watch;
  watch = nullptr;
}

std::uint64_t ShareCallScope::count(ShareCall call) const {
  const Lock lock(mutex);
  return watch->counts[static_cast<std::size_t>(call)];
}

}  // namespace dg::test

using namespace dg::test;

// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name)
extern "C" {

int open(const char* path, int flags, ...) {
  static const auto real = next<int (*)(const char*, int, ...)>("open");
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
  va_end(arguments);
  if (!isWatched(path)) return real(path, flags, mode);
  if (fails(ShareCall::kOpen)) return -1;
  const int descriptor = real(path, flags, mode);
  if (descriptor >= 0) note([&](Watch& to) { to.descriptors.insert(descriptor); });
  return descriptor;
}

ssize_t pread(int descriptor, void* buffer, size_t count, off_t offset) {
  static const auto real = next<ssize_t (*)(int, void*, size_t, off_t)>("pread");
  if (isWatched(descriptor)) {
    const int error = faultOf(ShareCall::kRead);
    if (error == ShareFault::kShortRead) {
      count = std::max<size_t>(1, count / 2);
    } else if (error == ShareFault::kNoBytes) {
      return 0;
    } else if (error != 0) {
      errno = error;
      return -1;
    }
  }
  return real(descriptor, buffer, count, offset);
}

int close(int descriptor) {
  static const auto real = next<int (*)(int)>("close");
  const bool watched = isWatched(descriptor);
  if (watched) note([&](Watch& to) { to.descriptors.erase(descriptor); });
  const int result = real(descriptor);
  // The descriptor is gone all the same.
  return watched && fails(ShareCall::kClose) ? -1 : result;
}

int stat(const char* path, struct stat* status) noexcept {
  static const auto real = next<int (*)(const char*, struct stat*)>("stat");
  return isWatched(path) && fails(ShareCall::kStatus) ? -1 : real(path, status);
}

int lstat(const char* path, struct stat* status) noexcept {
  static const auto real = next<int (*)(const char*, struct stat*)>("lstat");
  return isWatched(path) && fails(ShareCall::kStatus) ? -1 : real(path, status);
}

int fstat(int descriptor, struct stat* status) noexcept {
  static const auto real = next<int (*)(int, struct stat*)>("fstat");
  return isWatched(descriptor) && fails(ShareCall::kStatus) ? -1 : real(descriptor, status);
}

char* realpath(const char* path, char* resolved) noexcept {
  static const auto real = next<char* (*)(const char*, char*)>("realpath");
  return isWatched(path) && fails(ShareCall::kStatus) ? nullptr : real(path, resolved);
}

DIR* opendir(const char* path) {
  static const auto real = next<DIR* (*)(const char*)>("opendir");
  if (!isWatched(path)) return real(path);
  if (fails(ShareCall::kFolder)) return nullptr;
  DIR* const folder = real(path);
  if (folder != nullptr) note([&](Watch& to) { to.folders.insert(folder); });
  return folder;
}

struct dirent* readdir(DIR* folder) {
  static const auto real = next<struct dirent* (*)(DIR*)>("readdir");
  bool watched = false;
  note([&](const Watch& to) { watched = to.folders.contains(folder); });
  return watched && fails(ShareCall::kFolder) ? nullptr : real(folder);
}

int closedir(DIR* folder) {
  static const auto real = next<int (*)(DIR*)>("closedir");
  note([&](Watch& to) { to.folders.erase(folder); });
  return real(folder);
}

}  // extern "C"
// NOLINTEND(readability-inconsistent-declaration-parameter-name)
