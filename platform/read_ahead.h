#pragma once

#include <chrono>
#include <cstddef>
#include <string>

#include "platform/file.h"
#include "platform/patience.h"

namespace dg {

/// Keeps what files read, for the span of one load or refresh.
///
/// A load asks for thousands of records and blocks of some hundred bytes, many of them again and
/// again, and on a share that other programs write to each read is a round trip. While a scope
/// lives, every file opened through fileSystem() fetches whole extents instead, longer runs of them
/// where a reader goes straight on, and answers later reads from what it has. All openings of one
/// path share what is kept, also one after the other.
///
/// A byte that was fetched stays as it was, whatever happens to the file meanwhile; the end of the
/// scope forgets all, so that nothing stays from one refresh to the next. What cannot be fetched as
/// an extent is read exactly as asked: a damaged place fails only those who read it. Reads that
/// begin beyond the end that a file had go to the file: it may have grown.
///
/// So do the folders of the share where they are looked through for names of other case: their
/// entries and links count as they were first seen.
///
/// A scope inside another does nothing. For the one thread that reads files.
class ReadAheadScope {
 public:
  ReadAheadScope();
  ~ReadAheadScope();
  ReadAheadScope(const ReadAheadScope&) = delete;
  ReadAheadScope& operator=(const ReadAheadScope&) = delete;

 private:
  bool isOutermost_;
};

namespace read_ahead {
/// Unit of what is fetched and kept: extents begin at its multiples.
inline constexpr std::size_t kExtentSize = std::size_t{64} << 10;
/// The longest run that one read fetches.
inline constexpr std::size_t kLongestRun = std::size_t{1} << 20;
/// Bound of what a scope keeps, over all files; what was used longest ago goes first.
inline constexpr std::size_t kMostKept = std::size_t{64} << 20;
}  // namespace read_ahead

/// When a file will be asked for.
enum class Expected {
  kSoon,   ///< it goes in front of those that are expected later
  kLater,  ///< some time within the load
};

/// Whether it is of use to tell which files will be asked for: a scope lives, and the share is far.
/// To hand a read to another thread takes longer than to do it where files are near.
bool canExpectFiles();
/// Tells that a file will be opened soon: workers open and read it meanwhile, several files at a
/// time. Whoever opens it gets what it would have got by itself, errors too.
void expectFile(const std::string& path, FileAccess access, Expected when);

/// How scopes behave that begin from now on. For benchmarks and tests that compare.
struct ReadAheadSettings {
  bool isEnabled = true;
  /// A share whose answers take longer is far, as one on another machine is: many calls are under
  /// way at once, and whoever waits for one can give it up.
  std::chrono::microseconds near{300};
  /// How long an answer of a far share is waited for.
  std::chrono::milliseconds patience = kPatience;
};
/// Returns the former.
ReadAheadSettings setReadAhead(const ReadAheadSettings& settings);

}  // namespace dg
