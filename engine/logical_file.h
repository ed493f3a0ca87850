#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "engine/collection.h"
#include "engine/layout.h"
#include "engine/open_file.h"

namespace dg {

/// A record file or index inside a physical data file.
class cLogicalFile {
 public:
  std::string FileName;                 ///< as given to the open operation
  std::string FileType;                 ///< "L" records with a record zero, "I" index, or other
  std::shared_ptr<cOpenFile> OpenFile;  ///< the physical file; empty when it could not be opened
  std::int32_t Position = 0;            ///< start, in 512-byte blocks of the physical file
  std::int32_t Flags = 0;               ///< from the directory; nothing uses it
  std::int32_t RecordLength = 0;        ///< bytes per record
  std::int32_t LastRecord = 0;          ///< highest legal record number, the capacity

  /// Number of records in use and highest record number ever handed out, both read from record
  /// zero at each call; 0 unless the type is "L".
  std::int32_t ActiveCount(bool& Orb) const;
  std::int32_t HighUsedRecord(bool& Orb) const;

  /// Byte offset of a record in the physical file; raises 6 when it does not fit 32 bits.
  std::int32_t recordOffset(std::int32_t RecordNumber) const;
};

/// The logical files opened so far, by the name they were opened with.
class cLogicalFiles : public Collection<cLogicalFile> {
 public:
  std::shared_ptr<cLogicalFile> Add(const std::string& FileName, const std::string& FileType,
                                    std::shared_ptr<cOpenFile> OpenFile, std::int32_t Position,
                                    std::int32_t Flags, std::int32_t RecordLength,
                                    std::int32_t LastRecord, const std::string& sKey);
};

/// One 32-byte entry of a directory file.
struct DirectoryEntry {
  static constexpr std::int32_t kSize = 32;
  static constexpr TextField kName{1, 10};
  /// Two bytes of the name: the suite's layout has it so, and an entry with flags is met by no
  /// short name.
  static constexpr NumberField kFlags{'C', 7};
  static constexpr NumberField kStartBlock{'D', 11};
  static constexpr NumberField kRecordLength{'C', 14};
  static constexpr TextField kType{16, 1};
  static constexpr NumberField kCapacity{'L', 17};

  std::string FileName;  ///< without its padding
  std::int32_t Flags = 0;
  std::int32_t Position = 0;      ///< start block
  std::int32_t RecordLength = 0;  ///< bytes
  std::string FileType;           ///< one character
  std::int32_t LastRecord = 0;    ///< capacity

  /// Decodes an entry of 32 bytes; one that is cut short counts as padded with NULs.
  static DirectoryEntry decode(std::string entry);
};

/// The steps behind the public operations; see engine/business_basic.h for errors.
std::shared_ptr<cLogicalFile> iLogicalOpen(const std::string& FileName);
std::string iLreadFile(const std::shared_ptr<cLogicalFile>& LogicalFile, std::int32_t RecordNumber,
                       bool& Orb);
/// Asks for the broker by itself: the caller's wish is not handed down to writes of records.
void iLwriteFile(const std::shared_ptr<cLogicalFile>& LogicalFile, std::int32_t RecordNumber,
                 const std::string& Data);

/// Bytes of a directory file's name that its data file has not: "DB" stands in their place.
inline constexpr std::size_t kDirectoryEndingWidth = 2;
/// The paths of the directory file and of the data file that a resolution name stands for. Raise 91
/// without module state, and 5 for a path that is too short.
std::string directoryFilePath(const std::string& ResolutionFile);
std::string dataFilePath(const std::string& directoryFile);
/// Tells that the store's directories and data files, as its links name them, will be asked for.
void iExpectStore();

}  // namespace dg
