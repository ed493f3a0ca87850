#pragma once

#include <cstddef>
#include <cstdint>
#include <list>
#include <string>
#include <unordered_map>
#include <unordered_set>

#include "platform/fetch_pool.h"
#include "platform/heap_bytes.h"
#include "platform/read_ahead.h"

namespace dg {

class KeptFile;

/// Extents that one read fetched, one behind the other.
struct KeptRun {
  KeptFile* file = nullptr;
  std::int64_t firstExtent = 0;
  std::size_t extents = 0;
  HeapBytes bytes;
  std::size_t length = 0;  ///< of bytes: less than the extents' when the file ends there

  std::int64_t begin() const { return firstExtent * std::int64_t{read_ahead::kExtentSize}; }
  /// Bytes there are from a position within the extents on.
  std::size_t lengthFrom(std::int64_t position) const {
    return length - std::min(length, static_cast<std::size_t>(position - begin()));
  }
  bool isCutShort() const { return length < extents * read_ahead::kExtentSize; }
};

/// What is known of one path.
class KeptFile {
 public:
  std::unordered_map<std::int64_t, std::list<KeptRun>::iterator> runs;  ///< by each extent's number
  std::unordered_set<std::int64_t> unreadable;  ///< extents that are read as asked
};

/// Where bytes come from that are not kept.
class ExtentSource {
 public:
  virtual ~ExtentSource() = default;
  virtual std::size_t readDirectly(std::int64_t offset, char* buffer, std::size_t count) = 0;
  /// What a worker has read from there on, a multiple of read_ahead::kLongestRun.
  virtual FetchedRun takeRun(std::int64_t begin) = 0;
};

/// All bytes that a scope keeps, up to read_ahead::kMostKept.
class KeptExtents {
 public:
  KeptFile& file(const std::string& path) { return files_[path]; }
  /// Whether bytes of a path are kept.
  bool knows(const std::string& path) const;

  /// As File::read, out of what is kept where it can be.
  std::size_t read(KeptFile& kept, ExtentSource& source, std::int64_t offset, char* buffer,
                   std::size_t count);
  /// Keeps the bytes that a worker has read, and takes them. Extents of which something is known
  /// stay as they were first seen.
  void keep(KeptFile& kept, std::int64_t begin, FetchedRun& fetched);
  /// Forgets the bytes; references to files stay.
  void forgetAll();

 private:
  using RunList = std::list<KeptRun>;  ///< the one used last in front

  void add(KeptRun run);
  const KeptRun* find(KeptFile& kept, std::int64_t extent);
  const KeptRun* fetch(KeptFile& kept, ExtentSource& source, std::int64_t extent);
  static std::size_t runLength(const KeptFile& kept, std::int64_t extent);
  void makeRoom(std::size_t size);

  std::unordered_map<std::string, KeptFile> files_;
  RunList runs_;
  std::size_t keptBytes_ = 0;
};

}  // namespace dg
