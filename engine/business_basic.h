#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "engine/logical_file.h"
#include "engine/open_file.h"
#include "engine/system_info.h"
#include "engine/text_utilities.h"
#include "platform/values/date.h"
#include "platform/values/variant.h"

namespace dg {

/// A physical file as an argument: the object, or its name, which is then opened first.
class FileArgument {
 public:
  FileArgument(std::shared_ptr<cOpenFile> file) : file_(std::move(file)), isObject_(true) {}
  FileArgument(std::string name) : name_(std::move(name)) {}
  FileArgument(const char* name) : name_(name) {}

  /// The open file; empty when there is none.
  std::shared_ptr<cOpenFile> resolve() const;
  bool isObject() const { return isObject_; }

 private:
  std::shared_ptr<cOpenFile> file_;
  std::string name_;
  bool isObject_ = false;
};

/// A logical file as an argument: the object, or its name, which is then opened first.
class LogicalFileArgument {
 public:
  LogicalFileArgument(std::shared_ptr<cLogicalFile> file)
      : file_(std::move(file)), isObject_(true) {}
  LogicalFileArgument(std::string name) : name_(std::move(name)) {}
  LogicalFileArgument(const char* name) : name_(name) {}

  /// The logical file; empty only when an empty object was given. A name that leads to nothing
  /// raises -10 "LogicalOpen", `File not Found: "name"`.
  std::shared_ptr<cLogicalFile> resolve() const;

 private:
  std::shared_ptr<cLogicalFile> file_;
  std::string name_;
  bool isObject_ = false;
};

/// The data engine: the one class through which the program reaches the suite's files.
///
/// Creation proves the share, learns who this workstation is and loads the link table into the
/// module state (engine/state.h), which all objects share. All operations are for one thread.
///
/// `Orb` asks a read or write for the broker transport; without one it comes back false. Record
/// positions count from 1, byte offsets and blocks from 0.
class cBusinessBasic {
 public:
  /// Raises 91 when the share cannot be reached (after a message box) or its terminal table cannot
  /// be opened.
  cBusinessBasic();
  ~cBusinessBasic();
  cBusinessBasic(const cBusinessBasic&) = delete;
  cBusinessBasic& operator=(const cBusinessBasic&) = delete;

  // --- Field codec. Unpack and Pack upper-case OpCode in place; they raise 100 for an unknown
  // letter and 31 for a field beyond the end of Data.
  std::int32_t Unpack(std::string& OpCode, const std::string& Data, std::int32_t Position) const;
  std::int32_t Unpack(char OpCode, std::string_view Data, std::int32_t Position) const;
  void Pack(std::string& OpCode, std::string& Data, std::int32_t Value,
            std::int32_t Position) const;
  void Pack(char OpCode, std::string& Data, std::int32_t Value, std::int32_t Position) const;
  /// Never raises: what cannot be read is the empty date.
  Date UnPackDate(std::string_view OpCode, std::string_view Data, std::int32_t Position) const;
  void PackDate(std::string_view OpCode, std::string& Data, std::int32_t Position,
                Date Value) const;
  /// Packed text to characters, three for each two bytes. A source of odd length gets a NUL.
  std::string Ucm(std::string& Text) const;
  std::string Ucm(std::string&& Text) const { return Ucm(Text); }
  /// Characters to packed text. A source is filled with blanks to a multiple of three.
  std::string Crm(std::string& Text) const;
  std::string Crm(std::string&& Text) const { return Crm(Text); }
  /// 10 sets the table's head, 11 and 12 convert day numbers; other codes do nothing.
  void Stma(const Variant& Code, Variant& A1, Variant& A2, Variant& A3, Variant& A4,
            Variant& A5) const;

  // --- Utilities ---
  std::int32_t Max(std::int32_t Var1, std::int32_t Var2) const {
    return Var1 >= Var2 ? Var1 : Var2;
  }
  std::int32_t Min(std::int32_t Var1, std::int32_t Var2) const { return Var1 < Var2 ? Var1 : Var2; }
  /// 1-based place of the first Target in Source, 0 when absent.
  void StrPos(std::int32_t& Position, std::string_view Source, std::string_view Target) const;
  std::string Trun(std::string_view Source, bool flgRemoveControlCharacters) const;
  std::vector<std::string> Split(std::string_view Expression, std::string_view Delimiter,
                                 std::int32_t Limit = -1, Compare compare = Compare::kBinary) const;
  /// Today's date in several forms by code; 0 for a code that has no meaning.
  std::int32_t Sys(std::int32_t Code) const;
  std::shared_ptr<cSystem> QuilSys() const;
  /// The clock's date and time, or the broker's when that transport is on.
  Date Now() const;

  // --- Physical files ---
  /// Opens a file, shared; a name without a backslash lies in the store directory, and the caller's
  /// variable then holds the full path. Empty when the file is missing or cannot be opened.
  std::shared_ptr<cOpenFile> OpenFile(std::string& FileName) const;
  std::shared_ptr<cOpenFile> OpenFile(std::string&& FileName) const { return OpenFile(FileName); }
  /// Closes a file for all who hold it; one that is not open or not there is no error. Raises 91
  /// for an empty object.
  void CloseFile(const FileArgument& OpenFile) const;
  /// BytesToRead bytes at a byte offset; raises 91 for no file, 63 for a negative offset.
  std::string ReadFile(const FileArgument& OpenFile, std::int32_t BytesToRead,
                       std::int32_t Position, bool& Orb) const;
  /// Raises -10 "iwriteFile" for no file.
  void WriteFile(const FileArgument& OpenFile, const std::string& Data, std::int32_t Position,
                 bool& Orb) const;
  /// The 512 bytes of a block; raises 6 when its offset does not fit 32 bits.
  std::string BlockReadFile(const FileArgument& OpenFile, std::int32_t BlockNumber,
                            bool& Orb) const;
  void BlockWriteFile(const FileArgument& OpenFile, std::int32_t BlockNumber,
                      const std::string& Record, bool& Orb) const;

  // --- Logical files ---
  /// Empty when the link table has no such name. A name that the directory does not hold gives a
  /// blank object, not an empty pointer.
  std::shared_ptr<cLogicalFile> LogicalOpen(const std::string& FileName) const;
  /// A plain file as a logical file without a directory. A LastRecord of 0 is computed from the
  /// file's length and written back. Empty when the file cannot be opened; raises 11 for a
  /// RecordLength of 0 then.
  std::shared_ptr<cLogicalFile> PhysLogicalOpen(const std::string& FileName,
                                                const std::string& FileType,
                                                std::int32_t RecordLength,
                                                std::int32_t& LastRecord) const;
  /// One record; raises 81 "iLreadFile" for a number below 1 or above LastRecord.
  std::string LreadFile(const LogicalFileArgument& LogicalFile, std::int32_t RecordNumber,
                        bool& Orb) const;
  std::string LwriteFile(const LogicalFileArgument& LogicalFile, std::int32_t RecordNumber,
                         const std::string& Data, bool& Orb) const;
  void GetRec(const LogicalFileArgument& LogicalFile, std::int32_t& RecordNumber, bool& Orb) const;
  void DelRec(const LogicalFileArgument& LogicalFile, std::int32_t RecordNumber, bool& Orb) const;
  void InitFile(const LogicalFileArgument& LogicalFile, std::int32_t KeyLength, bool DuplicateKeys,
                std::int32_t BlockingFactor, bool& Orb) const;
  /// Locks do nothing and give 0; a number above 0 would mean success.
  std::int32_t PhysicalLock(const std::string& FileName, std::int32_t Position,
                            std::int32_t LockLength) const;
  std::int32_t LogicalLock(const LogicalFileArgument& LogicalFile, std::int32_t RecordNumber) const;
  std::int32_t ReleaseLock(std::int32_t LockNumber) const;

  // --- Keyed index. Rec is 0 when there is no entry, the record number on a hit, and from KFind
  // the negated number of the next greater key. Key comes back as the entry's key. Buff is the
  // 544-byte cursor.
  void KFind(const LogicalFileArgument& LogicalFile, std::string& Buff, std::string& Key,
             std::int32_t& Rec, bool& Orb) const;
  void KNext(const LogicalFileArgument& LogicalFile, std::string& Buff, std::string& Key,
             std::int32_t& Rec, bool& Orb) const;
  void KPrev(const LogicalFileArgument& LogicalFile, std::string& Buff, std::string& Key,
             std::int32_t& Rec, bool& Orb) const;
  void KLast(const LogicalFileArgument& LogicalFile, std::string& Buff, std::string& Key,
             std::int32_t& Rec, bool& Orb) const;
  std::int32_t KCount(const LogicalFileArgument& LogicalFile, bool& Orb) const;
  std::int32_t KLength(const LogicalFileArgument& LogicalFile, bool& Orb) const;
};

}  // namespace dg
