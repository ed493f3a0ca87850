#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string>

#include "platform/file.h"
#include "platform/file_call.h"

namespace dg::bench {

/// Waits until a moment, asleep.
void waitUntil(std::chrono::steady_clock::time_point end);

/// What the reads of a run touched: extents of 64 KiB, by their numbers, of each path.
class TouchedExtents {
 public:
  void add(const std::string& path, std::int64_t offset, std::size_t count);

  std::uint64_t count() const;
  const std::map<std::string, std::set<std::int64_t>>& byPath() const { return byPath_; }

 private:
  std::map<std::string, std::set<std::int64_t>> byPath_;
};

/// The system's files below a watcher that notes what is read.
class WatchedFileSystem final : public FileSystem {
 public:
  explicit WatchedFileSystem(TouchedExtents& touched) : touched_(touched) {}

  std::unique_ptr<File> open(const std::string& path, FileAccess access) override;
  bool fileExists(const std::string& path) override;
  bool directoryExists(const std::string& path) override;

 private:
  TouchedExtents& touched_;
};

/// Calls by their kind.
struct CallCounts {
  std::array<std::uint64_t, 4> byKind = {};

  std::uint64_t of(FileCall call) const { return byKind[static_cast<std::size_t>(call)]; }
  std::uint64_t sum() const;
};

/// While one lives, calls that would reach a share are counted, and each takes a round trip longer.
class SimulatedLine {
 public:
  explicit SimulatedLine(std::chrono::microseconds roundTrip);
  ~SimulatedLine();
  SimulatedLine(const SimulatedLine&) = delete;
  SimulatedLine& operator=(const SimulatedLine&) = delete;

  /// The calls so far.
  CallCounts counts() const;

 private:
  FileCallWatcher former_;
};

}  // namespace dg::bench
