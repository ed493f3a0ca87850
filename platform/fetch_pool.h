#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "platform/file.h"

namespace dg {

/// A file that a worker has opened, and its first bytes.
struct FetchedFile {
  std::unique_ptr<File> file;
  std::unique_ptr<char[]> bytes;
  std::size_t length = 0;    ///< bytes that there were
  std::size_t capacity = 0;  ///< bytes that were asked for
};

/// A bounded pool of workers that opens files and reads their beginnings before they are asked for.
///
/// Whoever asks for a file does so in its own order: what a worker has, or is about to have, is
/// handed over; what none has begun, or could not do, the one who asks does by itself and meets its
/// error where it always was. The pool's end waits for no worker: one that hangs in a call of a
/// share that does not answer drops what it gets.
class FetchPool {
 public:
  static constexpr std::size_t kWorkers = 16;
  static constexpr std::size_t kMostBytesAhead = std::size_t{64} << 20;
  static constexpr std::size_t kMostFilesAhead = 64;

  FetchPool();
  ~FetchPool();
  FetchPool(const FetchPool&) = delete;
  FetchPool& operator=(const FetchPool&) = delete;

  /// Has a file opened and read ahead; of more than the bounds allow the oldest are given up.
  void expect(const std::string& path, FileAccess access);
  /// What a worker has of a file; waits for one that is at it. No file when there is nothing.
  FetchedFile take(const std::string& path, FileAccess access);
  /// Closes a file on a worker: nobody waits for that.
  void close(std::unique_ptr<File> file);
  /// Gives up all that was fetched or is to be.
  void forgetAll();

 private:
  struct Shared;
  void startWorker();

  std::shared_ptr<Shared> shared_;
};

}  // namespace dg
