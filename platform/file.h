#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace dg {

/// An open file, read and written at byte offsets. Other processes may change it meanwhile.
class File {
 public:
  virtual ~File() = default;
  File() = default;
  File(const File&) = delete;
  File& operator=(const File&) = delete;

  /// Reads up to `count` bytes at `offset` into `buffer`; returns how many there were: fewer only
  /// at the file's end. Raises 57 when the system's read fails, 70 where the range is locked
  /// against it, 63 for a negative offset.
  virtual std::size_t read(std::int64_t offset, char* buffer, std::size_t count) = 0;
  /// Writes all of `data` at `offset`. Raises 57, 61, 63 or 70.
  virtual void write(std::int64_t offset, std::string_view data) = 0;
  /// The file's length in bytes at this moment.
  virtual std::int64_t size() = 0;
};

enum class FileAccess { kRead, kReadWrite };

/// Where files are: the operating system, unless something stands in for it. Paths are the
/// program's own, with backslashes; see nativePath.
class FileSystem {
 public:
  virtual ~FileSystem() = default;
  FileSystem() = default;
  FileSystem(const FileSystem&) = delete;
  FileSystem& operator=(const FileSystem&) = delete;

  /// Opens an existing file, shared with all other users; a directory is no file. Opening for
  /// reading and writing fails where writing is not granted, whether or not anything is written.
  /// Raises 53, 57, 67, 70, 75 or 76.
  virtual std::unique_ptr<File> open(const std::string& path, FileAccess access) = 0;
  virtual bool fileExists(const std::string& path) = 0;
  virtual bool directoryExists(const std::string& path) = 0;
};

/// The file system of the process: the operating system's unless a test replaced it.
FileSystem& fileSystem();

/// Opens a file for reading; null when it is not there. Raises what else keeps it from opening.
std::unique_ptr<File> openIfThere(const std::string& path);
/// Replaces it; an empty pointer restores the operating system's. Returns the former.
std::unique_ptr<FileSystem> setFileSystem(std::unique_ptr<FileSystem> replacement);

/// How much the process has read so far, for the benchmarks. Counts system calls, not blocks; a
/// read of a file in memory counts as one.
struct ReadStatistics {
  std::uint64_t calls = 0;
  std::uint64_t bytes = 0;
};
ReadStatistics readStatistics();
/// Counts one read of so many bytes, on any thread.
void countRead(std::size_t bytes);

// --- Numbered files, as the run-time has them ---------------------------------------------------

/// The lowest file number not in use, from 1. Raises 67 when all 511 are.
std::int32_t FreeFile();
/// Opens `path` under `number`, which FreeFile gave. Errors as FileSystem::open; 55 for a number
/// that is open, 52 for one that cannot be.
void openNumbered(std::int32_t number, const std::string& path, FileAccess access);
/// `count` bytes at the 0-based `offset`: those beyond the file's end are NUL. Raises 52 for a
/// number that is not open, 63 for a negative offset.
std::string readNumbered(std::int32_t number, std::int64_t offset, std::size_t count);
/// As readNumbered, into a buffer of `count` bytes.
void readNumbered(std::int32_t number, std::int64_t offset, char* buffer, std::size_t count);
/// Writes all of `data` at the 0-based `offset`. Errors as readNumbered and File::write.
void writeNumbered(std::int32_t number, std::int64_t offset, std::string_view data);
/// Length in bytes. Raises 52.
std::int64_t fileLength(std::int32_t number);
/// Closes a number; one that is not open is no error.
void closeNumbered(std::int32_t number);

}  // namespace dg
