#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "platform/file.h"
#include "platform/heap_bytes.h"
#include "platform/read_ahead.h"

namespace dg {

class ShareLine;

/// What a worker has read of a file in one go, and the file.
struct FetchedRun {
  std::shared_ptr<File> file;
  HeapBytes bytes;           ///< none when there is nothing
  std::size_t length = 0;    ///< bytes that there were
  std::size_t capacity = 0;  ///< bytes that were asked for: whole extents
};

/// A bounded pool of workers that opens files and reads them before they are asked for: runs of
/// read_ahead::kLongestRun, the first with the opening.
///
/// Whoever asks for a file does so in its own order: what a worker has, or is about to have, is
/// handed over; what none has begun, or could not do, the one who asks does by itself and meets its
/// error where it always was. The pool's end waits for no worker: one that hangs in a call of a
/// share that does not answer drops what it gets; to wait for it is given up as ShareLine has it.
class FetchPool {
 public:
  static constexpr std::size_t kWorkers = 16;
  /// Bound of what is fetched, or being fetched, and not asked for yet: for each of both kinds of
  /// expectation, so that what is needed late in a load does not stand in the way of the next.
  static constexpr std::size_t kMostBytesAhead = std::size_t{16} << 20;
  /// Files that are expected soon; beyond it the oldest is given up.
  static constexpr std::size_t kMostFilesSoon = 64;

  explicit FetchPool(std::shared_ptr<ShareLine> line);
  ~FetchPool();
  FetchPool(const FetchPool&) = delete;
  FetchPool& operator=(const FetchPool&) = delete;

  /// Has a file opened and read ahead, unless it is expected already.
  void expect(const std::string& path, FileAccess access, Expected when);
  /// The opened file and its first run; waits for a worker that is at it.
  FetchedRun takeFile(const std::string& path, FileAccess access);
  /// The run that begins at a place, a multiple of read_ahead::kLongestRun, however it was opened.
  FetchedRun takeRun(const std::string& path, std::int64_t begin);
  /// Closes a file, on a worker where that may take its time: nobody waits for it.
  void close(std::shared_ptr<File> file);
  /// Gives up all that was fetched or is to be.
  void forgetAll();

 private:
  struct Shared;
  void startWorkers();

  std::shared_ptr<Shared> shared_;
};

}  // namespace dg
