#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "engine/collection.h"
#include "platform/read_ahead.h"

namespace dg {

/// Bytes of a block, the unit of index files and of the control file.
inline constexpr std::int32_t kBlockSize = 512;

/// A physical file that is open.
class cOpenFile {
 public:
  std::int32_t vbFileNumber = 0;  ///< see FreeFile
  std::string Path;               ///< full path, also its key in cOpenFiles
  std::int32_t Position = 0;      ///< next byte offset: for the broker and for writes only
};

/// The open physical files, by path. Its end closes them all.
class cOpenFiles : public Collection<cOpenFile> {
 public:
  cOpenFiles() = default;
  ~cOpenFiles();
  cOpenFiles(const cOpenFiles&) = delete;
  cOpenFiles& operator=(const cOpenFiles&) = delete;

  std::shared_ptr<cOpenFile> Add(std::int32_t vbFileNumber, const std::string& Path,
                                 std::int32_t Position, const std::string& sKey);
};

/// The steps behind the public file operations, for the other modules of the engine. All use the
/// module state of engine/state.h. `Orb` asks for the broker; it comes back false without one.
std::shared_ptr<cOpenFile> iOpenFile(std::string& FileName);
/// Tells that a file of the store directory will be asked for.
void iExpectFile(const std::string& FileName, FileAccess access, Expected when);
void iCloseFile(const std::string& Path);
std::string iReadFile(const std::shared_ptr<cOpenFile>& OpenFile, std::int32_t BytesToRead,
                      std::int32_t Position, bool& Orb);
/// As iReadFile, straight into a buffer of `BytesToRead` bytes.
void iReadFileInto(const std::shared_ptr<cOpenFile>& OpenFile, char* buffer,
                   std::int32_t BytesToRead, std::int32_t Position, bool& Orb);
void iWriteFile(const std::shared_ptr<cOpenFile>& OpenFile, const std::string& Data,
                std::int32_t Position, bool& Orb);

}  // namespace dg
