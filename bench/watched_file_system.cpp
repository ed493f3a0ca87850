#include "bench/watched_file_system.h"

#include <thread>
#include <utility>

#include "platform/read_ahead.h"
#include "platform/system_file.h"

namespace dg::bench {

namespace {

using Clock = std::chrono::steady_clock;

class WatchedFile final : public File {
 public:
  WatchedFile(std::unique_ptr<File> file, std::string path, std::chrono::microseconds roundTrip,
              TouchedExtents* touched)
      : file_(std::move(file)), path_(std::move(path)), roundTrip_(roundTrip), touched_(touched) {}

  std::size_t read(std::int64_t offset, char* buffer, std::size_t count) override {
    const Clock::time_point begin = Clock::now();
    const std::size_t got = file_->read(offset, buffer, count);
    if (touched_ != nullptr) touched_->add(path_, offset, got);
    if (roundTrip_.count() > 0) waitUntil(begin + roundTrip_);
    return got;
  }
  void write(std::int64_t offset, std::string_view data) override { file_->write(offset, data); }
  std::int64_t size() override { return file_->size(); }

 private:
  std::unique_ptr<File> file_;
  std::string path_;
  std::chrono::microseconds roundTrip_;
  TouchedExtents* touched_;
};

}  // namespace

void waitUntil(Clock::time_point end) {
  constexpr std::chrono::microseconds kSpin(150);
  // A sleep alone comes back late.
  const auto left = end - Clock::now();
  if (left > kSpin) std::this_thread::sleep_for(left - kSpin);
  while (Clock::now() < end) {
  }
}

void TouchedExtents::add(const std::string& path, std::int64_t offset, std::size_t count) {
  if (count == 0) return;
  constexpr std::int64_t kExtent = read_ahead::kExtentSize;
  std::set<std::int64_t>& extents = byPath_[path];
  const std::int64_t last = (offset + static_cast<std::int64_t>(count) - 1) / kExtent;
  for (std::int64_t extent = offset / kExtent; extent <= last; ++extent)
    extents.insert(extent);
}

std::uint64_t TouchedExtents::count() const {
  std::uint64_t sum = 0;
  for (const auto& [path, extents] : byPath_)
    sum += extents.size();
  return sum;
}

std::unique_ptr<File> WatchedFileSystem::open(const std::string& path, FileAccess access) {
  return std::make_unique<WatchedFile>(systemFileSystem().open(path, access), path, roundTrip_,
                                       touched_);
}

bool WatchedFileSystem::fileExists(const std::string& path) {
  return systemFileSystem().fileExists(path);
}

bool WatchedFileSystem::directoryExists(const std::string& path) {
  return systemFileSystem().directoryExists(path);
}

}  // namespace dg::bench
