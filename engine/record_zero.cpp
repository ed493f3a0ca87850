#include "engine/record_zero.h"

#include <algorithm>

#include "engine/codec.h"
#include "engine/keyed_index.h"
#include "platform/values/checked.h"
#include "platform/values/run_time_error.h"

namespace dg {

namespace {

std::int32_t headOffset(const cLogicalFile& file) {
  return checkedMultiply(file.Position, kBlockSize);
}

void initialiseRecords(const std::shared_ptr<cLogicalFile>& file, bool& orb) {
  std::string head(kBlockSize, '\0');
  Pack(record_zero::kMarker, head, -2);
  Pack(record_zero::kFreeHead, head, -1);
  iWriteFile(file->OpenFile, head, headOffset(*file), orb);

  if (file->RecordLength < 0) throw RunTimeError(kInvalidProcedureCall);
  const std::string empty(static_cast<std::size_t>(file->RecordLength), '\0');
  for (std::int64_t record = 1; record <= file->LastRecord; ++record)
    iLwriteFile(file, static_cast<std::int32_t>(record), empty);
}

void initialiseIndex(const cLogicalFile& file, std::int32_t keyLength, bool duplicateKeys,
                     std::int32_t blockingFactor, bool& orb) {
  const std::int32_t entryLength = checkedAdd(keyLength, kPointerSize);
  if (entryLength == 0) throw RunTimeError(kDivisionByZero);
  const std::int32_t entries = kEntriesSize / entryLength;

  std::string header(kBlockSize, '\0');
  Pack(index_header::kEntryLength, header, entryLength);
  Pack(index_header::kEntriesPerNode, header, entries);
  Pack(index_header::kLastBlock, header, file.LastRecord);
  Pack(index_header::kAlwaysTwo, header, 2);
  Pack(index_header::kRoot, header, 1);
  // The division by 100 comes first and rounds down: a factor below 100 stores 0.
  Pack(index_header::kFirstFill, header, checkedMultiply(entries, blockingFactor / 100));
  Pack(index_header::kDuplicateKeys, header, duplicateKeys ? -1 : 0);
  iWriteFile(file.OpenFile, header, headOffset(file), orb);

  // One leaf, the last, with nothing but the sentinel.
  std::string leaf(kBlockSize, '\xFF');
  Pack(index_node::kEntryCount, leaf, 1);
  iWriteFile(file.OpenFile, leaf, checkedMultiply(checkedAdd(file.Position, 1), kBlockSize), orb);
}

}  // namespace

std::string readRecordZero(const cLogicalFile& LogicalFile, bool& Orb) {
  return iReadFile(LogicalFile.OpenFile, record_zero::kSize, headOffset(LogicalFile), Orb);
}

std::int32_t allocateRecord(const cLogicalFile& LogicalFile, bool& Orb) {
  std::string head = readRecordZero(LogicalFile, Orb);
  std::int32_t record = Unpack(record_zero::kFreeHead, head);
  if (record < 1) {
    record = checkedAdd(Unpack(record_zero::kHighUsedRecord, head), 1);
    Pack(record_zero::kHighUsedRecord, head, record);
  } else {
    const std::string data = iReadFile(LogicalFile.OpenFile, LogicalFile.RecordLength,
                                       LogicalFile.recordOffset(record), Orb);
    Pack(record_zero::kFreeHead, head, Unpack(kNextFreeRecord, data));
  }
  const std::int32_t active = Unpack(record_zero::kActiveCount, head);
  Pack(record_zero::kActiveCount, head, checkedAdd(active, 1));
  iWriteFile(LogicalFile.OpenFile, head, headOffset(LogicalFile), Orb);
  return record;
}

void releaseRecord(const std::shared_ptr<cLogicalFile>& LogicalFile, std::int32_t RecordNumber,
                   bool& Orb) {
  if (!LogicalFile) throw RunTimeError(kObjectNotSet);
  std::string head = readRecordZero(*LogicalFile, Orb);
  const std::int32_t freeHead = Unpack(record_zero::kFreeHead, head);
  const std::int32_t active = Unpack(record_zero::kActiveCount, head);
  const std::string data = iLreadFile(LogicalFile, RecordNumber, Orb);
  if (Unpack(kRecordInUse, data) <= 0) {
    throw RunTimeError(81, "DelRec", "Attempt to delete a deleted record");
  }
  std::string cleared(data.size(), '\0');
  Pack(kNextFreeRecord, cleared, freeHead);
  iLwriteFile(LogicalFile, RecordNumber, cleared);
  Pack(record_zero::kFreeHead, head, RecordNumber);
  Pack(record_zero::kActiveCount, head, std::max(active, 1) - 1);
  iWriteFile(LogicalFile->OpenFile, head, headOffset(*LogicalFile), Orb);
}

void initialiseFile(const std::shared_ptr<cLogicalFile>& LogicalFile, std::int32_t KeyLength,
                    bool DuplicateKeys, std::int32_t BlockingFactor, bool& Orb) {
  // The source names the write: this check was taken over from there with its text.
  if (!LogicalFile) {
    throw RunTimeError(-10, "iLwriteFile", "LogicalFile parameter is undefined");
  }
  if (LogicalFile->FileType == "L") {
    initialiseRecords(LogicalFile, Orb);
  } else if (LogicalFile->FileType == "I") {
    initialiseIndex(*LogicalFile, KeyLength, DuplicateKeys, BlockingFactor, Orb);
  }
}

}  // namespace dg
