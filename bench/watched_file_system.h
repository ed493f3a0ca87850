#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string>

#include "platform/file.h"

namespace dg::bench {

/// Waits until a moment, to some microseconds.
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

/// The system's files below a watcher: it may note what is read, and make each read take at least
/// as long as a round trip to a share.
class WatchedFileSystem final : public FileSystem {
 public:
  explicit WatchedFileSystem(std::chrono::microseconds roundTrip, TouchedExtents* touched = nullptr)
      : roundTrip_(roundTrip), touched_(touched) {}

  std::unique_ptr<File> open(const std::string& path, FileAccess access) override;
  bool fileExists(const std::string& path) override;
  bool directoryExists(const std::string& path) override;

 private:
  std::chrono::microseconds roundTrip_;
  TouchedExtents* touched_;
};

}  // namespace dg::bench
