#include "engine/logical_file.h"

#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <set>
#include <string_view>

#include "engine/codec.h"
#include "engine/record_zero.h"
#include "engine/state.h"
#include "engine/text_utilities.h"
#include "platform/file.h"
#include "platform/read_ahead.h"
#include "platform/text.h"
#include "platform/values/checked.h"
#include "platform/values/convert.h"
#include "platform/values/run_time_error.h"

namespace dg {

namespace {

/// Runs a step whose errors reach nobody: what fails leaves its part blank.
template <class Step>
void suppressed(Step step) {
  try {
    step();
  } catch (const RunTimeError&) {  // NOLINT(bugprone-empty-catch)
  }
}

/// Bytes of a directory that one read fetches: a whole number of entries.
constexpr std::size_t kDirectoryReadSize = DirectoryEntry::kSize * std::size_t{128};

/// Directories that are worth being told of in advance: a link table can name any number.
constexpr std::size_t kMostExpected = 256;

/// The directory's first entry of a name.
std::optional<DirectoryEntry> findEntry(const std::string& directoryPath, std::string_view name) {
  // A directory that is not there has no entries; the suite's own open would leave an empty file,
  // but nothing is ever written on the share.
  const auto file = openIfThere(directoryPath);
  if (!file) return std::nullopt;
  std::string block(kDirectoryReadSize, '\0');
  std::int64_t offset = 0;
  for (std::size_t count = block.size(); count == block.size();) {
    count = file->read(offset, block.data(), block.size());
    offset += static_cast<std::int64_t>(count);
    for (std::size_t start = 0; start < count; start += DirectoryEntry::kSize) {
      const std::size_t size = std::min<std::size_t>(DirectoryEntry::kSize, count - start);
      DirectoryEntry entry = DirectoryEntry::decode(block.substr(start, size));
      if (entry.FileName == name) return entry;
    }
  }
  return std::nullopt;
}

/// The key of a file's link: a name without a directory of its own lies in the store's.
std::string linkKey(const std::string& name) {
  if (name.empty() || name.front() == ':') return name;
  if (!SystemInfo) throw RunTimeError(kObjectNotSet);
  return ":" + SystemInfo->mDirectory + ":" + name;
}

std::string_view shortName(std::string_view name) {
  const std::size_t colon = name.rfind(':');
  return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

bool isLegal(const cLogicalFile& file, std::int32_t record) {
  return record >= 1 && record <= file.LastRecord;
}

[[noreturn]] void raiseIllegalRecord(const char* source, const cLogicalFile& file,
                                     std::int32_t number) {
  throw RunTimeError(
      81, source,
      "Illegal Record Number for File: " + file.FileName + " and Record: " + Str(number));
}

[[noreturn]] void raiseUndefined(const char* source) {
  throw RunTimeError(-10, source, "LogicalFile parameter is undefined");
}

}  // namespace

std::int32_t cLogicalFile::ActiveCount(bool& Orb) const {
  if (!OpenFile || FileType != "L") return 0;
  return Unpack(record_zero::kActiveCount, readRecordZero(*this, Orb));
}

std::int32_t cLogicalFile::HighUsedRecord(bool& Orb) const {
  if (!OpenFile || FileType != "L") return 0;
  return Unpack(record_zero::kHighUsedRecord, readRecordZero(*this, Orb));
}

std::int32_t cLogicalFile::recordOffset(std::int32_t RecordNumber) const {
  return checkedAdd(checkedMultiply(RecordNumber, RecordLength),
                    checkedMultiply(Position, kBlockSize));
}

std::shared_ptr<cLogicalFile> cLogicalFiles::Add(const std::string& FileName,
                                                 const std::string& FileType,
                                                 std::shared_ptr<cOpenFile> OpenFile,
                                                 std::int32_t Position, std::int32_t Flags,
                                                 std::int32_t RecordLength, std::int32_t LastRecord,
                                                 const std::string& sKey) {
  auto file = std::make_shared<cLogicalFile>();
  file->FileName = FileName;
  file->FileType = FileType;
  file->OpenFile = std::move(OpenFile);
  file->Position = Position;
  file->Flags = Flags;
  file->RecordLength = RecordLength;
  file->LastRecord = LastRecord;
  return insert(std::move(file), sKey);
}

DirectoryEntry DirectoryEntry::decode(std::string entry) {
  entry.resize(kSize, '\0');
  DirectoryEntry result;
  result.FileName = Trun(bytesOf(kName, entry), true);
  result.Flags = Unpack(kFlags, entry);
  result.Position = Unpack(kStartBlock, entry);
  result.RecordLength = Unpack(kRecordLength, entry);
  result.FileType = bytesOf(kType, entry);
  result.LastRecord = Unpack(kCapacity, entry);
  return result;
}

std::string directoryFilePath(const std::string& ResolutionFile) {
  if (!SystemInfo) throw RunTimeError(kObjectNotSet);
  std::string path = ResolutionFile;
  std::replace(path.begin(), path.end(), ':', '\\');
  return SystemInfo->linkShare() + path;
}

std::string dataFilePath(const std::string& directoryFile) {
  if (directoryFile.size() < kDirectoryEndingWidth) throw RunTimeError(kInvalidProcedureCall);
  return directoryFile.substr(0, directoryFile.size() - kDirectoryEndingWidth) + "DB";
}

void iExpectStore() {
  if (!canExpectFiles() || !Links || !SystemInfo) return;
  const std::string store = upperCase(linkKey(" ")).substr(0, SystemInfo->mDirectory.size() + 2);
  std::set<std::string> expected;
  for (const auto& link : Links->NewEnum()) {
    if (!upperCase(link->LinkFile).starts_with(store)) continue;
    suppressed([&] {
      const std::string directory = directoryFilePath(link->ResolutionFile);
      if (!expected.insert(directory).second) return;
      expectFile(directory, FileAccess::kRead, Expected::kLater);
      expectFile(dataFilePath(directory), FileAccess::kReadWrite, Expected::kLater);
    });
    if (expected.size() >= kMostExpected) return;
  }
}

std::shared_ptr<cLogicalFile> iLogicalOpen(const std::string& FileName) {
  if (auto known = LogicalFiles ? LogicalFiles->find(FileName) : nullptr) return known;
  const std::string key = linkKey(FileName);
  const auto link = Links ? Links->find(key) : nullptr;
  if (!link || !LogicalFiles) return nullptr;

  std::string directory;
  std::optional<DirectoryEntry> entry;
  std::shared_ptr<cOpenFile> data;
  suppressed([&] { directory = directoryFilePath(link->ResolutionFile); });
  suppressed([&] { entry = findEntry(directory, shortName(FileName)); });
  suppressed([&] {
    std::string path = dataFilePath(directory);
    data = iOpenFile(path);
  });
  // A name that the directory does not hold is a blank file without a key, not an empty pointer:
  // its reads raise 81.
  if (!entry) return LogicalFiles->Add("", "", data, 0, 0, 0, 0, "");
  return LogicalFiles->Add(FileName, entry->FileType, data, entry->Position, entry->Flags,
                           entry->RecordLength, entry->LastRecord, FileName);
}

std::string iLreadFile(const std::shared_ptr<cLogicalFile>& LogicalFile, std::int32_t RecordNumber,
                       bool& Orb) {
  if (!LogicalFile) raiseUndefined("iLreadFile");
  if (!isLegal(*LogicalFile, RecordNumber)) {
    raiseIllegalRecord("iLreadFile", *LogicalFile, RecordNumber);
  }
  return iReadFile(LogicalFile->OpenFile, LogicalFile->RecordLength,
                   LogicalFile->recordOffset(RecordNumber), Orb);
}

void iLwriteFile(const std::shared_ptr<cLogicalFile>& LogicalFile, std::int32_t RecordNumber,
                 const std::string& Data) {
  if (!LogicalFile) raiseUndefined("iLwriteFile");
  if (!isLegal(*LogicalFile, RecordNumber)) {
    // The capacity is shown and not the number that is wrong, unlike the read.
    raiseIllegalRecord("iLwriteFile", *LogicalFile, LogicalFile->LastRecord);
  }
  const auto length = static_cast<std::int32_t>(Data.size());
  if (length != LogicalFile->RecordLength) {
    throw RunTimeError(36, "iLwriteFile",
                       "Illegal Data length for this record.  Size is: " + Str(length) +
                           " and should be " + Str(LogicalFile->RecordLength));
  }
  bool askForBroker = true;
  iWriteFile(LogicalFile->OpenFile, Data, LogicalFile->recordOffset(RecordNumber), askForBroker);
}

}  // namespace dg
