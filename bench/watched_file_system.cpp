#include "bench/watched_file_system.h"

#include <algorithm>
#include <atomic>
#include <numeric>
#include <thread>
#include <utility>

#include "platform/read_ahead.h"
#include "platform/system_file.h"

namespace dg::bench {

namespace {

using Clock = std::chrono::steady_clock;

class WatchedFile final : public File {
 public:
  WatchedFile(std::unique_ptr<File> file, std::string path, TouchedExtents& touched)
      : file_(std::move(file)), path_(std::move(path)), touched_(touched) {}

  std::size_t read(std::int64_t offset, char* buffer, std::size_t count) override {
    const std::size_t got = file_->read(offset, buffer, count);
    touched_.add(path_, offset, got);
    return got;
  }
  void write(std::int64_t offset, std::string_view data) override { file_->write(offset, data); }
  std::int64_t size() override { return file_->size(); }

 private:
  std::unique_ptr<File> file_;
  std::string path_;
  TouchedExtents& touched_;
};

/// What the line in force has to do; one at a time.
std::array<std::atomic<std::uint64_t>, 4> callsByKind;
std::atomic<std::chrono::microseconds> lineRoundTrip{};

void waitAndCount(FileCall call) {
  const std::chrono::microseconds roundTrip = lineRoundTrip.load();
  if (roundTrip.count() > 0) waitUntil(Clock::now() + roundTrip);
  ++callsByKind[static_cast<std::size_t>(call)];
}

}  // namespace

void waitUntil(Clock::time_point end) {
  // Comes back some tens of microseconds late; but to spin would take the processor from the others
  // that wait for the line.
  std::this_thread::sleep_until(end);
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
  return std::make_unique<WatchedFile>(systemFileSystem().open(path, access), path, touched_);
}

bool WatchedFileSystem::fileExists(const std::string& path) {
  return systemFileSystem().fileExists(path);
}

bool WatchedFileSystem::directoryExists(const std::string& path) {
  return systemFileSystem().directoryExists(path);
}

std::uint64_t CallCounts::sum() const {
  return std::accumulate(byKind.begin(), byKind.end(), std::uint64_t{0});
}

SimulatedLine::SimulatedLine(std::chrono::microseconds roundTrip) {
  lineRoundTrip = roundTrip;
  for (auto& calls : callsByKind)
    calls = 0;
  former_ = watchFileCalls(waitAndCount);
}

SimulatedLine::~SimulatedLine() {
  watchFileCalls(former_);
}

CallCounts SimulatedLine::counts() const {
  CallCounts counts;
  std::ranges::copy(callsByKind, counts.byKind.begin());
  return counts;
}

}  // namespace dg::bench
